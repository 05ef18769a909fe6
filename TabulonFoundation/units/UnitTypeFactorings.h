#pragma once

// The table of relations between unit types, closed under inversion and under moving a type from the
// decomposed to the factorized side. The simplifier reads it towards base types, the factorizer away from
// them. There are two instances, the standard and the experimental one; both are made once and are read-only
// from then on, on any thread.

#include "runtime/Object.h"
#include "runtime/Ref.h"
#include "units/TBFUnitTypes.h"
#include "units/UnitTypeFactoring.h"
#include "units/UnitTypeFraction.h"

#include <array>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

namespace TBF {

class UnitTypeFactorings final : public Object<UnitTypeFactorings> {
public:
    // Makes both instances now; otherwise the first use makes them.
    static void initialize();

    // The experimental instance while the setting for experimental units is on, else the standard one.
    static const Ref<UnitTypeFactorings>& instance();
    static const Ref<UnitTypeFactorings>& standardInstance();
    static const Ref<UnitTypeFactorings>& experimentalInstance();

    // The closure of a list. `experimental` says which types are base types.
    static Ref<UnitTypeFactorings> create(std::span<const Ref<UnitTypeFactoring>> declared,
                                          bool experimental);

    // All relations, sorted by key.
    const std::vector<Ref<UnitTypeFactoring>>& factorings() const noexcept { return closed; }

    // The relations whose decomposed side is contained in the fraction, in order of key.
    std::vector<const UnitTypeFactoring*> factorizations(const UnitTypeFraction& fraction) const;

    // The relations with the type on their factorized side, in order of key.
    std::vector<const UnitTypeFactoring*> decompositions(TBFUnitType type) const;

    // The relation whose side has exactly the fraction's degrees; null if there is none. Of several, the last
    // in order of key.
    const UnitTypeFactoring* factoringForFactorizedUnitTypeFraction(const UnitTypeFraction& fraction) const;
    const UnitTypeFactoring* factoringForDecomposedUnitTypeFraction(const UnitTypeFraction& fraction) const;
    bool hasFactorizationForUnitTypeFraction(const UnitTypeFraction& fraction) const {
        return factoringForFactorizedUnitTypeFraction(fraction) != nullptr;
    }

    // Base types are what everything is simplified to: length, mass, money, time, temperature, computer
    // storage and current; in the standard instance voltage and resistance too.
    bool isBaseUnitType(TBFUnitType type) const noexcept;

    // What one degree of a type comes to in simpler types; null for base types and for types in no relation.
    const UnitTypeFraction* definition(TBFUnitType type) const noexcept;

    // Every fraction that can be reached from `start` by applying relations from their decomposed to their
    // factorized side, without `start`. For degrees beyond all practice the search ends at a bound; what it
    // has found by then is the result. Results are kept for the next question.
    using Fractions = std::vector<UnitTypeFraction>;
    std::shared_ptr<const Fractions> allFactorizations(const UnitTypeFraction& start) const;

private:
    friend class Object<UnitTypeFactorings>;
    UnitTypeFactorings(std::span<const Ref<UnitTypeFactoring>> declared, bool experimental);
    ~UnitTypeFactorings() override = default;

    using BySide = std::unordered_map<UnitTypeFraction, const UnitTypeFactoring*,
                                      UnitTypeFraction::DegreesHash, UnitTypeFraction::DegreesEqual>;
    using ByStart = std::unordered_map<UnitTypeFraction, std::shared_ptr<const Fractions>,
                                       UnitTypeFraction::DegreesHash, UnitTypeFraction::DegreesEqual>;

    Fractions searchFactorizations(const UnitTypeFraction& start) const;

    bool experimental;
    std::vector<Ref<UnitTypeFactoring>> closed;
    BySide byFactorized;
    BySide byDecomposed;
    std::array<std::optional<UnitTypeFraction>, TBFUnitTypeCount> definitions; // by type

    mutable std::mutex cacheLock;
    mutable ByStart cache;
};

} // namespace TBF

// For the foundation's start-up.
void TBF_UnitTypeFactorings_initialize();
