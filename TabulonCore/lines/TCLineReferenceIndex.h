#pragma once

// What a reference to a line means, apart from any document: which line it points to, and its name within its
// line. Constant; for use on any thread.

#include "expressions/TCLineReferenceType.h"

#include <cstdint>
#include <string>

// The zero-based index of the target of a reference on the line `ownerIndex`; may be no line's index.
int64_t TCLineReferenceIndex(TCLineReferenceType type, int64_t number, int64_t ownerIndex);

// Type and number with its sign: "1-2" for two lines up, "2+7" for the line of index 7. References of the
// same type and number on one line share it.
std::u16string TCLineReferenceIdentifier(TCLineReferenceType type, int64_t number);

// The reference in words, for where there is no answer to show: "line 3" for the target index 2.
std::u16string TCLineReferenceWords(TCLineReferenceType type, int64_t number, int64_t ownerIndex);
