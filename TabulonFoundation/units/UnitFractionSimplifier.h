#pragma once

// Takes a unit fraction down to base types, so that a litre and a cubic metre can be compared, added and
// converted. A node evaluator makes one for its collection and calls it for each sum, each conversion and
// each result with a unit. Used by one thread at a time.

#include "runtime/Object.h"
#include "runtime/Ref.h"

#include <cstdint>

namespace TBF {

class MAPMAccumulator;
class UnitCollection;
class UnitFraction;
class UnitTypeFactorings;
class UnitTypeFraction;

class UnitFractionSimplifier final : public Object<UnitFractionSimplifier> {
public:
    static constexpr int32_t defaultPrecision = 100;

    // The collection gives the base units; it may be null, and then types that are in no unit of the fraction
    // get lost. Without factorings those of `UnitTypeFactorings::instance()` count.
    static Ref<UnitFractionSimplifier> create(UnitCollection* collection);
    static Ref<UnitFractionSimplifier> create(UnitCollection* collection, Ref<UnitTypeFactorings> factorings,
                                              int32_t precision = defaultPrecision);

    // Each derived type replaced by what it is made of.
    UnitTypeFraction simplify(const UnitTypeFraction& fraction) const;

    // The fraction in base types, of the same multiplier: what the units lack is the extra multiplier. Null
    // for null, and if a degree gets too large. A fraction that is simple already is given back as it is.
    Ref<UnitFraction> createSimplifiedUnitFraction(UnitFraction* fraction);

private:
    friend class Object<UnitFractionSimplifier>;
    UnitFractionSimplifier(UnitCollection* collection, Ref<UnitTypeFactorings> factorings, int32_t precision);
    ~UnitFractionSimplifier() override;

    Ref<UnitTypeFactorings> factorings;
    Ref<UnitCollection> collection;
    Ref<MAPMAccumulator> accumulator; // of the default precision while null
};

} // namespace TBF
