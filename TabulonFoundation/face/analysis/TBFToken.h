#pragma once

// The plain functions over the tokens of a parsed expression, for core and above. A null token is
// harmless everywhere and answers 0 or null.

#include "analysis/TBFTokenTypes.h"
#include "face/runtime/TBFString.h"
#include "runtime/TBFTypes.h"

namespace TBF {
class Token;
}
using TBFTokenRef = TBF::Token*;

// The caller owns the result.
TBFTokenRef TBFTokenCreate(TBFRange range, token_type type, TBFTokenSubType subType, TBFStringRef string);
TBFTokenRef TBFTokenRetain(TBFTokenRef token);
void TBFTokenRelease(TBFTokenRef token);

token_type TBFTokenGetType(TBFTokenRef token);
TBFTokenSubType TBFTokenGetSubType(TBFTokenRef token);
TBFRange TBFTokenGetRange(TBFTokenRef token);
TBFStringRef TBFTokenGetStringReference(TBFTokenRef token); // borrowed
