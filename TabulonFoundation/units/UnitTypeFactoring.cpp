#include "units/UnitTypeFactoring.h"

namespace TBF {

UnitTypeFactoring::UnitTypeFactoring(const UnitTypeFraction& decomposed, const UnitTypeFraction& factorized,
                                     bool isTrivialFactoring)
    : decomposedSide(decomposed)
    , factorizedSide(factorized)
    , trivial(isTrivialFactoring) {}

Ref<UnitTypeFactoring> UnitTypeFactoring::create(const UnitTypeFraction& decomposed,
                                                 const UnitTypeFraction& factorized, bool trivial) {
    return make<UnitTypeFactoring>(decomposed, factorized, trivial);
}

Ref<UnitTypeFactoring> UnitTypeFactoring::createInverse() const {
    return create(decomposedSide.inverse(), factorizedSide.inverse(), trivial);
}

std::string UnitTypeFactoring::key() const {
    return decomposedSide.stringRepresentation() + "->" + factorizedSide.stringRepresentation();
}

} // namespace TBF
