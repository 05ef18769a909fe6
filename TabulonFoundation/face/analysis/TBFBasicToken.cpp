#include "face/analysis/TBFBasicToken.h"

#include "analysis/BasicToken.h"
#include "runtime/PolyString.h"

TBFBasicTokenRef TBFBasicTokenCreate(TBFExpressionRef expression, TBFRange range, TBFBasicTokenType type,
                                     TBFBasicTokenSubType subType, TBFLocale locale) {
    return TBF::BasicToken::create(expression, range, type, subType, locale).leak();
}

TBFBasicTokenRef TBFBasicTokenRetain(TBFBasicTokenRef token) {
    return TBF::retain(token).leak();
}

void TBFBasicTokenRelease(TBFBasicTokenRef token) {
    if (token) token->release();
}

TBFBasicTokenType TBFBasicTokenGetType(TBFBasicTokenRef token) {
    return token ? token->type() : TBFBasicTokenTypeNone;
}

TBFBasicTokenSubType TBFBasicTokenGetSubType(TBFBasicTokenRef token) {
    return token ? token->subType() : TBFBasicTokenSubTypeNone;
}

TBFRange TBFBasicTokenGetRange(TBFBasicTokenRef token) {
    return token ? token->range() : TBFRangeZero;
}

TBFStringRef TBFBasicTokenGetStringReference(TBFBasicTokenRef token) {
    return token ? token->string()->tbfString() : nullptr;
}

TBFExpressionRef TBFBasicTokenGetExpressionReference(TBFBasicTokenRef token) {
    return token ? token->expression() : nullptr;
}

bool TBFBasicTokenIsFirstToken(TBFBasicTokenRef token) {
    return token && token->isFirstToken();
}

bool TBFBasicTokenIsLastToken(TBFBasicTokenRef token) {
    return token && token->isLastToken();
}

TBFChar TBFBasicTokenGetFirstCharacter(TBFBasicTokenRef token) {
    if (!token) return TBFCharNULL;
    const std::u16string_view text = token->view();
    return text.empty() ? TBFCharNULL : text.front();
}
