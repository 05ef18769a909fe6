#include "face/analysis/TBFExpressionToken.h"

#include "analysis/ExpressionToken.h"
#include "runtime/PolyString.h"

TBFExpressionTokenRef TBFExpressionTokenCreateWithString(TBFStringRef string, token_type type,
                                                         TBFTokenSubType subType) {
    return TBF::ExpressionToken::create(string, type, subType).leak();
}

TBFExpressionTokenRef TBFExpressionTokenCreateWithBasicToken(TBFBasicTokenRef token) {
    return TBF::ExpressionToken::create(TBF::retain(token)).leak();
}

TBFExpressionTokenRef
TBFExpressionTokenCreateWithBasicTokenVector(std::span<const TBF::Ref<TBF::BasicToken>> tokens) {
    return TBF::ExpressionToken::create({tokens.begin(), tokens.end()}).leak();
}

TBFExpressionTokenRef TBFExpressionTokenRetain(TBFExpressionTokenRef token) {
    return TBF::retain(token).leak();
}

void TBFExpressionTokenRelease(TBFExpressionTokenRef token) {
    if (token) token->release();
}

int32_t TBFExpressionTokenGetBasicTokenCount(TBFExpressionTokenRef token) {
    return token ? static_cast<int32_t>(token->basicTokens().size()) : 0;
}

std::span<const TBF::Ref<TBF::BasicToken>> TBFExpressionTokenGetBasicTokens(TBFExpressionTokenRef token) {
    if (!token) return {};
    return token->basicTokens();
}

token_type TBFExpressionTokenGetType(TBFExpressionTokenRef token) {
    return token ? token->type() : TBFTokenTypeNone;
}

void TBFExpressionTokenSetType(TBFExpressionTokenRef token, token_type type) {
    if (token) token->setType(type);
}

TBFTokenSubType TBFExpressionTokenGetSubType(TBFExpressionTokenRef token) {
    return token ? token->subType() : TBFTokenSubTypeNone;
}

void TBFExpressionTokenSetSubType(TBFExpressionTokenRef token, TBFTokenSubType subType) {
    if (token) token->setSubType(subType);
}

TBFTokenSubType TBFExpressionTokenGetActualSubType(TBFExpressionTokenRef token) {
    return token ? token->actualSubType() : TBFTokenSubTypeNone;
}

void TBFExpressionTokenSetActualSubType(TBFExpressionTokenRef token, TBFTokenSubType subType) {
    if (token) token->setActualSubType(subType);
}

TBFRange TBFExpressionTokenGetRange(TBFExpressionTokenRef token) {
    return token ? token->range() : TBFRangeZero;
}

TBFStringRef TBFExpressionTokenGetStringReference(TBFExpressionTokenRef token) {
    const TBF::PolyString* const string = token ? token->string() : nullptr;
    return string ? string->tbfString() : nullptr;
}

TBFStringRef TBFExpressionTokenGetDecimalStringReference(TBFExpressionTokenRef token) {
    return token ? token->decimalString()->tbfString() : nullptr;
}

TBFChar TBFExpressionTokenGetFirstCharacter(TBFExpressionTokenRef token) {
    return token ? token->firstCharacter() : TBFCharNULL;
}

TBFExpressionRef TBFExpressionTokenGetExpressionReference(TBFExpressionTokenRef token) {
    return token ? token->expression() : nullptr;
}

void TBFExpressionTokenSetUnitFraction(TBFExpressionTokenRef token, TBF::UnitFraction* fraction) {
    if (token) token->setUnitFraction(fraction);
}

TBF::UnitFraction* TBFExpressionTokenGetUnitFractionReference(TBFExpressionTokenRef token) {
    return token ? token->unitFraction() : nullptr;
}

void TBFExpressionTokenSetUnitContainer(TBFExpressionTokenRef token, TBF::UnitContainer* container) {
    if (token) token->setUnitContainer(container);
}

TBF::UnitContainer* TBFExpressionTokenGetUnitContainer(TBFExpressionTokenRef token) {
    return token ? token->unitContainer() : nullptr;
}

void TBFExpressionTokenSetAmbiguousUnit(TBFExpressionTokenRef token, TBF::AmbiguousUnit* unit) {
    if (token) token->setAmbiguousUnit(unit);
}

TBF::AmbiguousUnit* TBFExpressionTokenGetAmbiguousUnit(TBFExpressionTokenRef token) {
    return token ? token->ambiguousUnit() : nullptr;
}

void TBFExpressionTokenSetFunction(TBFExpressionTokenRef token, TBF::Function* function) {
    if (token) token->setFunction(function);
}

TBF::Function* TBFExpressionTokenGetFunction(TBFExpressionTokenRef token) {
    return token ? token->function() : nullptr;
}

void TBFExpressionTokenSetWordOperator(TBFExpressionTokenRef token, TBF::WordOperator* wordOperator) {
    if (token) token->setWordOperator(wordOperator);
}

TBF::WordOperator* TBFExpressionTokenGetWordOperator(TBFExpressionTokenRef token) {
    return token ? token->wordOperator() : nullptr;
}

void TBFExpressionTokenSetVariable(TBFExpressionTokenRef token, TBF::ScopedVariable* variable) {
    if (token) token->setVariable(variable);
}

TBF::ScopedVariable* TBFExpressionTokenGetVariable(TBFExpressionTokenRef token) {
    return token ? token->variable() : nullptr;
}

void TBFExpressionTokenSetUnitFormatType(TBFExpressionTokenRef token, int32_t type) {
    if (token) token->setUnitFormatType(type);
}

int32_t TBFExpressionTokenGetUnitFormatType(TBFExpressionTokenRef token) {
    return token ? token->unitFormatType() : 0;
}
