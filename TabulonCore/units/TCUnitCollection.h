#pragma once

// The units of an environment: a foundation collection in the core layer's hands. Filled while an environment
// is made; reading it is safe on any thread.

#include "runtime/Ref.h"

namespace TBF {
class UnitCollection;
}

class TCUnitCollection {
public:
    explicit TCUnitCollection(TBF::Ref<TBF::UnitCollection> collection);
    ~TCUnitCollection();

    // Borrowed; null without units.
    TBF::UnitCollection* tbfUnitCollection() const { return collection.get(); }

private:
    TBF::Ref<TBF::UnitCollection> collection;
};
