#pragma once

// Line references that are read off a line's tokens before any word is looked up. A document asks every line
// for its references, and the analysis that the display tokens need is costly. Nearly all references are
// plain: "(name(digits))", as editors write and phrases give them. Used on the document's thread.

#include "expressions/TCLineReferenceType.h"

#include <cstdint>
#include <optional>
#include <vector>

class TCSimpleTokenizedExpression;
class TCVariableList;

struct TCPlainLineReference {
    TCLineReferenceType type = TCLineReferenceTypeNone;
    int64_t number = 0; // as it is written: a line number, an index or an offset
};

// The references in order, the very ones that the display tokens show. None if any of them, or the line
// around them, is in a form that only the analysis can tell. `variables` are the names that the line knows;
// null for none.
std::optional<std::vector<TCPlainLineReference>>
TCPlainLineReferences(const TCSimpleTokenizedExpression& expression, const TCVariableList* variables);
