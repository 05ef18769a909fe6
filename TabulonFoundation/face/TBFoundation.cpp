#include "face/TBFoundation.h"

#include "eval/Foundation.h"

void TBFoundationInit(TBFSettingsRef settings) {
    TBF::startFoundation(TBF::retain(settings));
}
