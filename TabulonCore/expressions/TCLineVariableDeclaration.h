#pragma once

// What a line declares: a name, and the expression that gives it its value. Immutable.

#include "expressions/TCRange.h"
#include "runtime/Ref.h"
#include "runtime/String.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
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
    TCLineVariableDeclaration(uint64_t equalsTokenIndex, TCRange nameRange, std::u16string_view name,
                              std::shared_ptr<TCExpression> valueExpression)
        : declaredName(TBF::String::create(name))
        , value(std::move(valueExpression))
        , equalsIndex(static_cast<uint32_t>(equalsTokenIndex))
        , nameLocation(static_cast<int32_t>(nameRange.location))
        , nameLength(static_cast<int32_t>(nameRange.length)) {}

    uint64_t equalsTokenIndex() const { return equalsIndex; }
    TCRange nameRange() const { return {nameLocation, nameLength}; }
    std::u16string name() const { return declaredName->utf16(); }
    const std::shared_ptr<TCExpression>& valueExpression() const { return value; }

    // The name as those keep it who look names up; never null.
    const TBF::Ref<TBF::String>& sharedName() const { return declaredName; }

private:
    TBF::Ref<TBF::String> declaredName;
    std::shared_ptr<TCExpression> value;

    // Of a line, whose text is no longer than 32 bits count.
    uint32_t equalsIndex;
    int32_t nameLocation;
    int32_t nameLength;
};
