#include "face/units/TBFUnitCollection.h"

#include "runtime/String.h"
#include "units/UnitCollection.h"
#include "units/UnitContainer.h"

#include <cstddef>
#include <string_view>

using TBF::UnitCollection;
using TBF::UnitContainer;

namespace {

std::vector<std::u16string_view> viewsOf(const std::vector<TBF::String*>& words) {
    std::vector<std::u16string_view> views;
    views.reserve(words.size());
    for (const TBF::String* const word : words)
        views.push_back(word ? word->view() : std::u16string_view());
    return views;
}

} // namespace

TBFUnitCollectionRef TBFUnitCollectionCreate() {
    return UnitCollection::create().leak();
}

TBFUnitCollectionRef TBFUnitCollectionRetain(TBFUnitCollectionRef collection) {
    return TBF::retain(collection).leak();
}

void TBFUnitCollectionRelease(const TBF::UnitCollection* collection) {
    if (collection) collection->release();
}

void TBFUnitCollectionAddUnit(TBFUnitCollectionRef collection, TBF::UnitContainer* unit) {
    if (collection && unit) collection->addUnit(*unit);
}

void TBFUnitCollectionAddUnits(TBFUnitCollectionRef collection, TBF::UnitContainer* const* units,
                               int32_t count) {
    if (!collection || !units) return;
    std::vector<TBF::Ref<UnitContainer>> owned;
    for (int32_t i = 0; i < count; ++i) {
        if (units[i]) owned.push_back(TBF::retain(units[i]));
    }
    collection->addUnits(owned);
}

void TBFUnitCollectionRemoveUnit(TBFUnitCollectionRef collection, TBF::UnitContainer* unit) {
    if (collection && unit) collection->removeUnit(*unit);
}

int32_t TBFUnitCollectionGetCountOfUnits(const TBF::UnitCollection* collection) {
    return collection ? collection->countOfUnits() : 0;
}

int32_t TBFUnitCollectionGetCountOfUnitsWithType(const TBF::UnitCollection* collection, TBFUnitType type) {
    return collection ? collection->countOfUnitsWithType(type) : 0;
}

void TBFUnitCollectionSetBaseUnit(TBFUnitCollectionRef collection, TBFUnitType type,
                                  TBF::UnitContainer* unit) {
    if (collection) collection->setBaseUnit(type, unit);
}

TBF::UnitContainer* TBFUnitCollectionGetBaseUnit(const TBF::UnitCollection* collection, TBFUnitType type) {
    return collection ? collection->baseUnit(type) : nullptr;
}

std::vector<TBFUnitCollectionSearchResult>
TBFUnitCollectionFindUnitsMatchingWords(const TBF::UnitCollection* collection,
                                        const std::vector<TBF::String*>& words, bool* hasLongerNames,
                                        bool* exactMatch) {
    std::vector<TBFUnitCollectionSearchResult> results;
    if (!collection) return results;
    for (const auto& found : collection->findUnitsMatchingWords(viewsOf(words), hasLongerNames, exactMatch)) {
        results.push_back({found.unit.get(), found.formatType});
    }
    return results;
}

TBF::UnitContainer* TBFUnitCollectionFindTopUnitMatchingWords(const TBF::UnitCollection* collection,
                                                              const std::vector<TBF::String*>& words,
                                                              bool* hasLongerNames, bool* exactMatch,
                                                              TBFUnitFormatType* formatType) {
    if (!collection) return nullptr;
    return collection->findTopUnitMatchingWords(viewsOf(words), hasLongerNames, exactMatch, formatType).get();
}

std::vector<TBF::UnitContainer*>
TBFUnitCollectionUnitsFromSearchResults(const std::vector<TBFUnitCollectionSearchResult>& results) {
    std::vector<UnitContainer*> units;
    for (const TBFUnitCollectionSearchResult& result : results)
        units.push_back(result.unit);
    return units;
}

void TBFUnitCollectionAddSIExponentLink(TBFUnitCollectionRef collection, TBF::UnitContainer* unit,
                                        TBF::UnitContainer* linkedUnit, int8_t exponent) {
    if (collection && unit && linkedUnit) collection->addSIExponentLink(*unit, *linkedUnit, exponent);
}

void TBFUnitCollectionAddNonSILink(TBFUnitCollectionRef collection, TBF::UnitContainer* unit,
                                   TBF::UnitContainer* linkedUnit) {
    if (collection && unit && linkedUnit) collection->addNonSILink(*unit, *linkedUnit);
}

TBF::UnitContainer* TBFUnitCollectionGetUnityLinkedUnit(const TBF::UnitCollection* collection,
                                                        const TBF::UnitContainer* unit) {
    return collection && unit ? collection->unityLinkedUnit(*unit) : nullptr;
}

TBF::UnitContainer* TBFUnitCollectionGetSIExponentUnit(const TBF::UnitCollection* collection,
                                                       TBF::UnitContainer* unit, int8_t exponent) {
    return collection && unit ? collection->siExponentUnit(*unit, exponent) : nullptr;
}

TBF::UnitContainer* TBFUnitCollectionFindFirstLinkedUnitWithScalarLessThanOrEqualToMAPM(
    const TBF::UnitCollection* collection, const TBF::UnitContainer* unit, M_APM scalar) {
    return collection && unit ? collection->largestLinkedUnitWithin(*unit, scalar) : nullptr;
}
