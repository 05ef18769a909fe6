#pragma once

// What a line declares: a name, and the expression that gives it its value. Immutable.

#include "expressions/TCRange.h"

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

class TCExpression;

// Where a declaration was found; ranges are those of the typed text.
struct TCVariableDeclarationRecord {
    uint64_t equalsTokenIndex = 0; // among the simple tokens
    TCRange nameRange;             // from the name's first character up to the equals sign
    TCRange valueRange;            // from behind the equals sign to the end
};

class TCLineVariableDeclaration {
public:
    // The name comes without white space around it; the value is null where nothing follows the equals sign.
    TCLineVariableDeclaration(uint64_t equalsTokenIndex, TCRange nameRange, std::u16string name,
                              std::shared_ptr<TCExpression> valueExpression)
        : equalsIndex(equalsTokenIndex)
        , rangeOfName(nameRange)
        , declaredName(std::move(name))
        , value(std::move(valueExpression)) {}

    uint64_t equalsTokenIndex() const { return equalsIndex; }
    TCRange nameRange() const { return rangeOfName; }
    const std::u16string& name() const { return declaredName; }
    const std::shared_ptr<TCExpression>& valueExpression() const { return value; }

private:
    uint64_t equalsIndex;
    TCRange rangeOfName;
    std::u16string declaredName;
    std::shared_ptr<TCExpression> value;
};
