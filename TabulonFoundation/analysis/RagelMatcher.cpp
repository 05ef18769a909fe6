#include "analysis/RagelMatcher.h"

#include <array>

// The automaton knows two patterns, in which whitespace may stand between any two symbols:
//
//     kind 1:  unit, * or /, unit without a number
//     kind 2:  conversion, number or unit, * or /, number
//
// It stops at the first place where one of them is complete. A symbol that fits neither pattern starts
// over, and is itself tried as the beginning of one.

namespace TBF {

namespace {

enum Symbol : int8_t {
    SymbolOther = 0, // fits no pattern
    SymbolUnitAlone = 1,
    SymbolUnit = 2, // with a number
    SymbolNumeric = 3,
    SymbolProduct = 4, // * or /
    SymbolConversion = 5,
    SymbolWhitespace = 6,
};
constexpr std::size_t symbolCount = 7;

enum State : uint8_t {
    StateStart = 0,
    StateUnit = 1,
    StateUnitProduct = 2,
    StateConversion = 3,
    StateConversionNumeric = 4,
    StateConversionNumericProduct = 5,
    StateConversionUnit = 6, // also the left side of kind 1
    StateConversionUnitProduct = 7,
    StateMatchKind1 = 8,
    StateMatchKind2 = 9,
};
constexpr std::size_t runningStateCount = 8;

// By state, then by symbol: other, unit alone, unit, numeric, product, conversion, whitespace.
constexpr std::array<std::array<State, symbolCount>, runningStateCount> transitions = {{
    {StateStart, StateUnit, StateUnit, StateStart, StateStart, StateConversion, StateStart},
    {StateStart, StateUnit, StateUnit, StateStart, StateUnitProduct, StateConversion, StateUnit},
    {StateStart, StateMatchKind1, StateUnit, StateStart, StateStart, StateConversion, StateUnitProduct},
    {StateStart, StateConversionUnit, StateConversionUnit, StateConversionNumeric, StateStart,
     StateConversion, StateConversion},
    {StateStart, StateUnit, StateUnit, StateStart, StateConversionNumericProduct, StateConversion,
     StateConversionNumeric},
    {StateStart, StateUnit, StateUnit, StateMatchKind2, StateStart, StateConversion,
     StateConversionNumericProduct},
    {StateStart, StateUnit, StateUnit, StateStart, StateConversionUnitProduct, StateConversion,
     StateConversionUnit},
    {StateStart, StateMatchKind1, StateUnit, StateMatchKind2, StateStart, StateConversion,
     StateConversionUnitProduct},
}};

class HighPriorityOperatorMatcher final : public RagelMatcherImplementation {
public:
    int8_t symbolForToken(token_type type, TBFTokenSubType subType) const override {
        switch (type) {
        case TBFTokenTypeUnit:
            if (subType == TBFTokenSubTypeUnitAlone) return SymbolUnitAlone;
            if (subType == TBFTokenSubTypeUnitPrefix || subType == TBFTokenSubTypeUnitPostfix)
                return SymbolUnit;
            return SymbolOther;
        case TBFTokenTypeVariable:
        case TBFTokenTypeNumber:
        case TBFTokenTypeGroup:
            return SymbolNumeric;
        case TBFTokenTypeOperator:
            if (subType == TBFTokenSubTypeMultiply || subType == TBFTokenSubTypeDivide) return SymbolProduct;
            if (subType == TBFTokenSubTypeUnitConversion) return SymbolConversion;
            return SymbolOther;
        case TBFTokenTypeWhitespace:
            return SymbolWhitespace;
        default:
            return SymbolOther;
        }
    }

    bool findMatch(const int8_t* begin, const int8_t* end, RagelMatch& outMatch) const override {
        return TBFR_machine_HPO_findMatch(begin, end, outMatch);
    }
};

} // namespace

bool TBFR_machine_HPO_findMatch(const int8_t* begin, const int8_t* end, RagelMatch& outMatch) {
    State state = StateStart;
    std::size_t product = 0;
    std::size_t conversion = 0;
    const auto count = static_cast<std::size_t>(end - begin);
    for (std::size_t i = 0; i < count; ++i) {
        if (begin[i] == SymbolProduct) product = i;
        if (begin[i] == SymbolConversion) conversion = i;
        state = transitions[state][static_cast<std::size_t>(begin[i])];
        if (state == StateMatchKind1) {
            outMatch = {.beginIndex = i, .endIndex = i + 1, .operatorIndex = product, .kind = 1};
            return true;
        }
        if (state == StateMatchKind2) {
            outMatch = {.beginIndex = conversion, .endIndex = i + 1, .operatorIndex = conversion, .kind = 2};
            return true;
        }
    }
    return false;
}

Ref<RagelMatcher> RagelMatcher::create(std::unique_ptr<RagelMatcherImplementation> implementation) {
    return make<RagelMatcher>(std::move(implementation));
}

Ref<RagelMatcher> RagelMatcher::createHighPriorityOperators() {
    return create(std::make_unique<HighPriorityOperatorMatcher>());
}

RagelMatcher::RagelMatcher(std::unique_ptr<RagelMatcherImplementation> implementationOfMatcher) noexcept
    : implementation(std::move(implementationOfMatcher)) {}

bool RagelMatchIterator::advance() {
    current.reset();
    RagelMatch found;
    const int8_t* const begin = symbols.data();
    if (!matcher->findMatch(begin + position, begin + symbols.size(), found)) return false;
    found.beginIndex += position;
    found.endIndex += position;
    found.operatorIndex += position;
    current = found;
    position = found.beginIndex + 1;
    return true;
}

} // namespace TBF
