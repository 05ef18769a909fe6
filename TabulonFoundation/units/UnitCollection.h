#pragma once

// The units that one environment knows: a list of them, the base unit of each type, the index through which
// words of a line become units, and optional links between a unit and its scaled relatives. The core layer
// fills it before evaluation starts; tokenizer, simplifier and factorizer read it from any thread.

#include "runtime/Object.h"
#include "runtime/Ref.h"
#include "units/TBFUnitTypes.h"
#include "units/UnitSearchIndex.h"

#include "m_apm.h"

#include <array>
#include <cstdint>
#include <map>
#include <set>
#include <shared_mutex>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace TBF {

class UnitContainer;

class UnitCollection final : public Object<UnitCollection> {
public:
    struct SearchResult {
        Ref<UnitContainer> unit;
        TBFUnitFormatType formatType; // the format in which the words name the unit
    };
    using SearchResults = std::vector<SearchResult>;
    using Words = UnitSearchIndex::Words;

    static Ref<UnitCollection> create();

    // The first unit of scalar 1 of a type becomes the type's base unit.
    void addUnit(UnitContainer& unit);
    void addUnits(std::span<const Ref<UnitContainer>> units);

    // Removes the first unit with the identifier. If the given unit has scalar 1, its type is left without a
    // base unit, whichever unit that was.
    void removeUnit(UnitContainer& unit);

    int32_t countOfUnits() const;
    int32_t countOfUnitsWithType(TBFUnitType type) const;

    // Borrowed; null if the type has none.
    UnitContainer* baseUnit(TBFUnitType type) const;
    void setBaseUnit(TBFUnitType type, UnitContainer* unit);

    // The units that the words name. Names written exactly so win; if there are none, `*exactMatch` is false
    // and all names count that the words match without regard to case, but for those that are case-sensitive.
    // Several results mean that the words are ambiguous. `*hasLongerNames` is set only if a name begins with
    // the words, so the caller starts it false. Both may be null. `lowercaseWords` are the same words in
    // lower case.
    SearchResults findUnitsMatchingWords(Words words, bool* hasLongerNames, bool* exactMatch) const;
    SearchResults findUnitsMatchingWords(Words words, Words lowercaseWords, bool* hasLongerNames,
                                         bool* exactMatch) const;

    // The unit of the first result, or null.
    Ref<UnitContainer> findTopUnitMatchingWords(Words words, bool* hasLongerNames, bool* exactMatch,
                                                TBFUnitFormatType* formatType) const;

    // Links from a unit of scalar 1 to its relatives. Results are borrowed.
    void addSIExponentLink(UnitContainer& unit, UnitContainer& linkedUnit, int8_t exponent);
    void addNonSILink(UnitContainer& unit, UnitContainer& linkedUnit);
    UnitContainer* unityLinkedUnit(const UnitContainer& unit) const;           // the unit of scalar 1
    UnitContainer* siExponentUnit(UnitContainer& unit, int8_t exponent) const; // 0 gives the unit itself
    UnitContainer* largestLinkedUnitWithin(const UnitContainer& unit, M_APM scalar) const;

    const UnitSearchIndex& searchIndex() const noexcept { return *index; }

private:
    friend class Object<UnitCollection>;
    UnitCollection();
    ~UnitCollection() override;

    struct Entry {
        Ref<UnitContainer> unit;
        TBFUnitType type; // as it was at the addition
    };

    // By scalar; units of equal scalar count as one.
    struct ScalarLess {
        bool operator()(const Ref<UnitContainer>& a, const Ref<UnitContainer>& b) const;
        bool operator()(const Ref<UnitContainer>& a, M_APM b) const;
    };
    using OrderedUnits = std::set<Ref<UnitContainer>, ScalarLess>;

    void addToTables(UnitContainer& unit);
    void linkUnits(UnitContainer& unit, UnitContainer& linkedUnit);

    mutable std::shared_mutex lock; // never held together with the index's
    std::vector<Entry> units;
    std::array<int32_t, TBFUnitTypeCount> countsByType{};
    std::array<Ref<UnitContainer>, TBFUnitTypeCount> baseUnits;
    // By identifier of the unit.
    std::map<std::string, std::map<int8_t, Ref<UnitContainer>>, std::less<>> siExponentLinks;
    std::map<std::string, OrderedUnits, std::less<>> orderedLinks;
    std::map<std::string, Ref<UnitContainer>, std::less<>> unityLinks;
    Ref<UnitSearchIndex> index;
};

} // namespace TBF
