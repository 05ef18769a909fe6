#include "analysis/TBFTokenTypes.h"

namespace {

struct ConversionRow {
    TBFBasicTokenType basicType;
    TBFBasicTokenSubType basicSubType; // None: any subtype without a row of its own above
    token_type type;
    TBFTokenSubType subType;
};

constexpr ConversionRow conversions[] = {
    {TBFBasicTokenTypeNumber, TBFBasicTokenSubTypePrefixedNumber, TBFTokenTypeNumber,
     TBFTokenSubTypePrefixedNumber},
    {TBFBasicTokenTypeNumber, TBFBasicTokenSubTypeNone, TBFTokenTypeNumber, TBFTokenSubTypeDecimalNumber},
    {TBFBasicTokenTypeWord, TBFBasicTokenSubTypeWordBreaker, TBFTokenTypeWord, TBFTokenSubTypeWordBreaker},
    {TBFBasicTokenTypeWord, TBFBasicTokenSubTypeNone, TBFTokenTypeWord, TBFTokenSubTypeNone},
    {TBFBasicTokenTypeOperator, TBFBasicTokenSubTypePlus, TBFTokenTypeOperator, TBFTokenSubTypePlus},
    {TBFBasicTokenTypeOperator, TBFBasicTokenSubTypeMinus, TBFTokenTypeOperator, TBFTokenSubTypeMinus},
    {TBFBasicTokenTypeOperator, TBFBasicTokenSubTypeMultiply, TBFTokenTypeOperator, TBFTokenSubTypeMultiply},
    {TBFBasicTokenTypeOperator, TBFBasicTokenSubTypeDivide, TBFTokenTypeOperator, TBFTokenSubTypeDivide},
    {TBFBasicTokenTypeOperator, TBFBasicTokenSubTypeNone, TBFTokenTypeOperator, TBFTokenSubTypeNone},
    {TBFBasicTokenTypeWhitespace, TBFBasicTokenSubTypeNone, TBFTokenTypeWhitespace,
     TBFTokenSubTypeWhitespace},
    {TBFBasicTokenTypeSubstitutionMark, TBFBasicTokenSubTypeMarkOpen, TBFTokenTypeSubstitutionMark,
     TBFTokenSubTypeMarkOpen},
    {TBFBasicTokenTypeSubstitutionMark, TBFBasicTokenSubTypeNone, TBFTokenTypeSubstitutionMark,
     TBFTokenSubTypeMarkClose},
    {TBFBasicTokenTypeBracket, TBFBasicTokenSubTypeCloseBracket, TBFTokenTypeBracket,
     TBFTokenSubTypeCloseBracket},
    {TBFBasicTokenTypeBracket, TBFBasicTokenSubTypeOpenBracket, TBFTokenTypeBracket,
     TBFTokenSubTypeOpenBracket},
    {TBFBasicTokenTypeBracket, TBFBasicTokenSubTypeNone, TBFTokenTypeBracket, TBFTokenSubTypeNone},
    {TBFBasicTokenTypeOther, TBFBasicTokenSubTypeEquals, TBFTokenTypeEquals, TBFTokenSubTypeNone},
    {TBFBasicTokenTypeOther, TBFBasicTokenSubTypeCommentStart, TBFTokenTypeCommentStart,
     TBFTokenSubTypeCommentStart},
};

} // namespace

void TBFBasicTokenTypesToTokenTypes(TBFBasicTokenType basicType, TBFBasicTokenSubType basicSubType,
                                    token_type* outType, TBFTokenSubType* outSubType) {
    if (!outType || !outSubType) return;
    for (const ConversionRow& row : conversions) {
        if (row.basicType != basicType) continue;
        if (row.basicSubType != basicSubType && row.basicSubType != TBFBasicTokenSubTypeNone) continue;
        *outType = row.type;
        *outSubType = row.subType;
        return;
    }
}
