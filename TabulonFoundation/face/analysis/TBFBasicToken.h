#pragma once

// The plain functions over basic tokens. A null token is harmless everywhere and answers 0 or null.

#include "analysis/TBFTokenTypes.h"
#include "face/analysis/TBFExpression.h"
#include "face/runtime/TBFString.h"
#include "runtime/TBFTypes.h"

namespace TBF {
class BasicToken;
}
using TBFBasicTokenRef = TBF::BasicToken*;

// The caller owns the result.
TBFBasicTokenRef TBFBasicTokenCreate(TBFExpressionRef expression, TBFRange range, TBFBasicTokenType type,
                                     TBFBasicTokenSubType subType, TBFLocale locale);
TBFBasicTokenRef TBFBasicTokenRetain(TBFBasicTokenRef token);
void TBFBasicTokenRelease(TBFBasicTokenRef token);

TBFBasicTokenType TBFBasicTokenGetType(TBFBasicTokenRef token);
TBFBasicTokenSubType TBFBasicTokenGetSubType(TBFBasicTokenRef token);
TBFRange TBFBasicTokenGetRange(TBFBasicTokenRef token);
TBFStringRef TBFBasicTokenGetStringReference(TBFBasicTokenRef token);         // borrowed
TBFExpressionRef TBFBasicTokenGetExpressionReference(TBFBasicTokenRef token); // borrowed

// True if the token begins, or ends, the text of its expression.
bool TBFBasicTokenIsFirstToken(TBFBasicTokenRef token);
bool TBFBasicTokenIsLastToken(TBFBasicTokenRef token);
TBFChar TBFBasicTokenGetFirstCharacter(TBFBasicTokenRef token);
