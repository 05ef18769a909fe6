#include "units/TCUnitCollection.h"

#include "units/UnitCollection.h"

TCUnitCollection::TCUnitCollection(TBF::Ref<TBF::UnitCollection> foundationCollection)
    : collection(std::move(foundationCollection)) {}

TCUnitCollection::~TCUnitCollection() = default;
