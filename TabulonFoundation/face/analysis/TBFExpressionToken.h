#pragma once

// The plain functions over expression tokens. A null token is harmless everywhere: getters answer 0,
// null or an empty sequence, setters do nothing. `Get` results are borrowed from the token, setters
// retain what they are given.

#include "analysis/TBFTokenTypes.h"
#include "face/analysis/TBFBasicToken.h"
#include "face/runtime/TBFString.h"
#include "runtime/Ref.h"
#include "runtime/TBFTypes.h"

#include <span>

namespace TBF {
class AmbiguousUnit;
class ExpressionToken;
class Function;
class ScopedVariable;
class UnitContainer;
class UnitFraction;
class WordOperator;
} // namespace TBF
using TBFExpressionTokenRef = TBF::ExpressionToken*;

// The caller owns the results. A null basic token, or an empty vector, gives null.
TBFExpressionTokenRef TBFExpressionTokenCreateWithString(TBFStringRef string, token_type type,
                                                         TBFTokenSubType subType);
TBFExpressionTokenRef TBFExpressionTokenCreateWithBasicToken(TBFBasicTokenRef token);
TBFExpressionTokenRef
TBFExpressionTokenCreateWithBasicTokenVector(std::span<const TBF::Ref<TBF::BasicToken>> tokens);
TBFExpressionTokenRef TBFExpressionTokenRetain(TBFExpressionTokenRef token);
void TBFExpressionTokenRelease(TBFExpressionTokenRef token);

int32_t TBFExpressionTokenGetBasicTokenCount(TBFExpressionTokenRef token);
std::span<const TBF::Ref<TBF::BasicToken>> TBFExpressionTokenGetBasicTokens(TBFExpressionTokenRef token);

token_type TBFExpressionTokenGetType(TBFExpressionTokenRef token);
void TBFExpressionTokenSetType(TBFExpressionTokenRef token, token_type type);
TBFTokenSubType TBFExpressionTokenGetSubType(TBFExpressionTokenRef token);
void TBFExpressionTokenSetSubType(TBFExpressionTokenRef token, TBFTokenSubType subType);
TBFTokenSubType TBFExpressionTokenGetActualSubType(TBFExpressionTokenRef token);
void TBFExpressionTokenSetActualSubType(TBFExpressionTokenRef token, TBFTokenSubType subType);

TBFRange TBFExpressionTokenGetRange(TBFExpressionTokenRef token);
TBFStringRef TBFExpressionTokenGetStringReference(TBFExpressionTokenRef token);
TBFStringRef TBFExpressionTokenGetDecimalStringReference(TBFExpressionTokenRef token);
TBFChar TBFExpressionTokenGetFirstCharacter(TBFExpressionTokenRef token);
TBFExpressionRef TBFExpressionTokenGetExpressionReference(TBFExpressionTokenRef token);

void TBFExpressionTokenSetUnitFraction(TBFExpressionTokenRef token, TBF::UnitFraction* fraction);
TBF::UnitFraction* TBFExpressionTokenGetUnitFractionReference(TBFExpressionTokenRef token);
void TBFExpressionTokenSetUnitContainer(TBFExpressionTokenRef token, TBF::UnitContainer* container);
TBF::UnitContainer* TBFExpressionTokenGetUnitContainer(TBFExpressionTokenRef token);
void TBFExpressionTokenSetAmbiguousUnit(TBFExpressionTokenRef token, TBF::AmbiguousUnit* unit);
TBF::AmbiguousUnit* TBFExpressionTokenGetAmbiguousUnit(TBFExpressionTokenRef token);
void TBFExpressionTokenSetFunction(TBFExpressionTokenRef token, TBF::Function* function);
TBF::Function* TBFExpressionTokenGetFunction(TBFExpressionTokenRef token);
void TBFExpressionTokenSetWordOperator(TBFExpressionTokenRef token, TBF::WordOperator* wordOperator);
TBF::WordOperator* TBFExpressionTokenGetWordOperator(TBFExpressionTokenRef token);
void TBFExpressionTokenSetVariable(TBFExpressionTokenRef token, TBF::ScopedVariable* variable);
TBF::ScopedVariable* TBFExpressionTokenGetVariable(TBFExpressionTokenRef token);
void TBFExpressionTokenSetUnitFormatType(TBFExpressionTokenRef token, int32_t type);
int32_t TBFExpressionTokenGetUnitFormatType(TBFExpressionTokenRef token);
