#pragma once

// Finds the best way to write a result's unit. Given a fraction in base types, it looks at all the ways of
// writing it with derived types, scores them by the units that the user wrote or asked for, and makes the
// fraction of the best. A node evaluator makes one for its collection. Used by one thread at a time.

#include "runtime/Object.h"
#include "runtime/Ref.h"
#include "units/UnitFraction.h"
#include "units/UnitTypeFraction.h"

#include <cstdint>
#include <vector>

namespace TBF {

class MAPMAccumulator;
class UnitCollection;
class UnitTypeFactorings;

// Makes a fraction of the types of `types`, in ascending order of type. Each gets the unit of its type in
// `units`, else that of the source, else the base unit of the collection; a type without any is left out. An
// extra multiplier makes up for the difference to the source's multiplier. Null if a degree is too large. The
// collection may be null; a null accumulator is made where one is needed.
Ref<UnitFraction> createUnitFractionFromTypeFraction(const UnitCollection* collection,
                                                     Ref<MAPMAccumulator>& accumulator, UnitFraction* source,
                                                     const UnitsByType& units, const UnitTypeFraction& types);

class UnitFractionFactorizer final : public Object<UnitFractionFactorizer> {
public:
    // The collection may be null. Without factorings those of `UnitTypeFactorings::instance()` count.
    static Ref<UnitFractionFactorizer> create(UnitCollection* collection);
    static Ref<UnitFractionFactorizer> create(UnitCollection* collection, Ref<UnitTypeFactorings> factorings);

    // Every other fraction of types that `fraction` can be written as.
    std::vector<UnitTypeFraction> findAllFactorizations(const UnitTypeFraction& fraction) const;

    // The better a fraction suits, the more; the lowest 32-bit number for no types. Preferred units are those
    // that the expression used, required ones those that a conversion asked for.
    int32_t score(const UnitTypeFraction& candidate, const UnitsByType& preferredUnits,
                  const UnitsByType& requiredUnits) const;

    // `fraction` is simplified; `writtenFraction` is what it was before, or null for the same. Of candidates
    // with equal scores the written form comes first, then the simplified one, then they go by their text.
    // Null for a null fraction, and if a degree is too large.
    Ref<UnitFraction> undecompose(UnitFraction* fraction, const UnitsByType& preferredUnits,
                                  const UnitsByType& requiredUnits, UnitFraction* writtenFraction = nullptr);

private:
    friend class Object<UnitFractionFactorizer>;
    UnitFractionFactorizer(UnitCollection* collection, Ref<UnitTypeFactorings> factorings);
    ~UnitFractionFactorizer() override;

    UnitTypeFraction chooseTypes(const UnitTypeFraction& simplified, const UnitTypeFraction& written,
                                 const UnitsByType& preferredUnits, const UnitsByType& requiredUnits) const;

    Ref<UnitTypeFactorings> factorings;
    Ref<UnitCollection> collection;
    Ref<MAPMAccumulator> accumulator; // made when first needed
};

} // namespace TBF
