#include "face/analysis/TBFToken.h"

#include "analysis/Token.h"

TBFTokenRef TBFTokenCreate(TBFRange range, token_type type, TBFTokenSubType subType, TBFStringRef string) {
    return TBF::Token::create(range, type, subType, string).leak();
}

TBFTokenRef TBFTokenRetain(TBFTokenRef token) {
    return TBF::retain(token).leak();
}

void TBFTokenRelease(TBFTokenRef token) {
    if (token) token->release();
}

token_type TBFTokenGetType(TBFTokenRef token) {
    return token ? token->type() : TBFTokenTypeNone;
}

TBFTokenSubType TBFTokenGetSubType(TBFTokenRef token) {
    return token ? token->subType() : TBFTokenSubTypeNone;
}

TBFRange TBFTokenGetRange(TBFTokenRef token) {
    return token ? token->range() : TBFRangeZero;
}

TBFStringRef TBFTokenGetStringReference(TBFTokenRef token) {
    return token ? token->string() : nullptr;
}
