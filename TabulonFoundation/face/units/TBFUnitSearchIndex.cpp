#include "face/units/TBFUnitSearchIndex.h"

#include "units/UnitContainer.h"

#include <string_view>

using TBF::UnitSearchIndex;

namespace {

std::vector<std::u16string_view> viewsOf(const std::vector<TBF::String*>& words) {
    std::vector<std::u16string_view> views;
    views.reserve(words.size());
    for (const TBF::String* const word : words)
        views.push_back(word ? word->view() : std::u16string_view());
    return views;
}

} // namespace

TBFUnitSearchIndexRef TBFUnitSearchIndexCreate() {
    return UnitSearchIndex::create().leak();
}

TBFUnitSearchIndexRef TBFUnitSearchIndexRetain(TBFUnitSearchIndexRef index) {
    return TBF::retain(index).leak();
}

void TBFUnitSearchIndexRelease(const TBF::UnitSearchIndex* index) {
    if (index) index->release();
}

void TBFUnitSearchIndexAddUnit(TBFUnitSearchIndexRef index, TBF::UnitContainer* unit) {
    if (index && unit) index->addUnit(*unit);
}

void TBFUnitSearchIndexAddUnits(TBFUnitSearchIndexRef index, TBF::UnitContainer* const* units,
                                int32_t count) {
    for (int32_t i = 0; units && i < count; ++i)
        TBFUnitSearchIndexAddUnit(index, units[i]);
}

void TBFUnitSearchIndexRemoveUnit(TBFUnitSearchIndexRef index, TBF::UnitContainer* unit) {
    if (index && unit) index->removeUnit(*unit);
}

std::vector<TBFUnitSearchIndexResult> TBFUnitSearchIndexFindUnits(const TBF::UnitSearchIndex* index,
                                                                  const std::vector<TBF::String*>& words,
                                                                  bool* hasLongerNames) {
    if (!index) return {};
    return index->find(viewsOf(words), hasLongerNames);
}

std::vector<TBFUnitSearchIndexResult>
TBFUnitSearchIndexFindUnitsWithLowercaseQuery(const TBF::UnitSearchIndex* index,
                                              const std::vector<TBF::String*>& words, bool* hasLongerNames) {
    if (!index) return {};
    return index->findLowercase(viewsOf(words), hasLongerNames);
}

int32_t TBFUnitSearchIndexGetSize(const TBF::UnitSearchIndex* index) {
    return index ? index->size() : 0;
}
