#include "analysis/ExpressionScannerImpl.h"

#include <algorithm>

namespace TBF {

namespace {

constexpr char16_t markOpen = 0x16;
constexpr char16_t markClose = 0x17;

constexpr bool isWhitespace(char16_t c) {
    return c == u' ' || c == u'\t' || c == u'\n' || c == u'\r';
}

constexpr bool isDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}

// The unit at `index`, or NUL behind the end: no kind of token goes on at a NUL.
constexpr char16_t unitAt(std::u16string_view text, std::size_t index) {
    return index < text.size() ? text[index] : u'\0';
}

// Tokens that are one unit long, whatever follows.
struct SingleUnitRow {
    char16_t unit;
    TBFBasicTokenType type;
    TBFBasicTokenSubType subType;
};

constexpr SingleUnitRow bracketsAndMarks[] = {
    {u'=', TBFBasicTokenTypeOther, TBFBasicTokenSubTypeEquals},
    {u')', TBFBasicTokenTypeBracket, TBFBasicTokenSubTypeCloseBracket},
    {u'(', TBFBasicTokenTypeBracket, TBFBasicTokenSubTypeOpenBracket},
    {markOpen, TBFBasicTokenTypeSubstitutionMark, TBFBasicTokenSubTypeMarkOpen},
    {markClose, TBFBasicTokenTypeSubstitutionMark, TBFBasicTokenSubTypeMarkClose},
};

constexpr SingleUnitRow operators[] = {
    {u'+', TBFBasicTokenTypeOperator, TBFBasicTokenSubTypePlus},
    {u'-', TBFBasicTokenTypeOperator, TBFBasicTokenSubTypeMinus},
    {u'*', TBFBasicTokenTypeOperator, TBFBasicTokenSubTypeMultiply},
    {u'/', TBFBasicTokenTypeOperator, TBFBasicTokenSubTypeDivide},
};

// The units of the rows as a set of bits, which all of them fit in.
template <std::size_t count>
constexpr uint64_t unitsOf(const SingleUnitRow (&rows)[count]) {
    uint64_t units = 0;
    for (const SingleUnitRow& row : rows)
        units |= uint64_t{1} << row.unit;
    return units;
}

template <const auto& rows>
constexpr const SingleUnitRow* findRow(char16_t c) {
    constexpr uint64_t units = unitsOf(rows);
    if (c >= 64 || (units >> c & 1) == 0) return nullptr;
    for (const SingleUnitRow& row : rows) {
        if (row.unit == c) return &row;
    }
    return nullptr;
}

constexpr int32_t lengthBetween(std::size_t start, std::size_t end) {
    return static_cast<int32_t>(end - start);
}

} // namespace

Ref<ExpressionScannerImpl> ExpressionScannerImpl::create(const std::set<TBFChar>& wordBreakers,
                                                         TBFLocale locale) {
    return make<ExpressionScannerImpl>(wordBreakers, locale);
}

ExpressionScannerImpl::ExpressionScannerImpl(const std::set<TBFChar>& wordBreakers, TBFLocale locale)
    : scannerLocale(locale) {
    for (const TBFChar c : wordBreakers) {
        if (c < isASCIIWordBreaker.size()) {
            isASCIIWordBreaker[c] = true;
        } else {
            otherWordBreakers.push_back(c);
        }
    }
}

PooledVector<Ref<BasicToken>> ExpressionScannerImpl::scan(Expression* expression) const {
    PooledVector<Ref<BasicToken>> tokens;
    if (!expression) return tokens;
    // Words, numbers and the spaces between them are some three units long on the average.
    tokens.reserve(expression->view().size() / 3 + 1);
    int32_t index = 0;
    Ref<BasicToken> token;
    while (getNextBasicToken(expression, token, index))
        tokens.push_back(std::move(token));
    return tokens;
}

bool ExpressionScannerImpl::getNextBasicToken(Expression* expression, Ref<BasicToken>& outToken,
                                              int32_t& inoutIndex) const {
    outToken.reset();
    if (!expression || inoutIndex < 0) return false;
    const std::u16string_view text = expression->view();
    const auto start = static_cast<std::size_t>(inoutIndex);
    if (start >= text.size()) return false;

    const ScannedRun run = scanRun(text, start);
    outToken = BasicToken::create(expression, {inoutIndex, run.length}, run.type, run.subType, scannerLocale);
    inoutIndex += run.length;
    return true;
}

// The first unit decides, and the order of the tests matters: a locale or a set of word breakers may
// claim a unit that also has another meaning.
ScannedRun ExpressionScannerImpl::scanRun(std::u16string_view text, std::size_t start) const noexcept {
    const char16_t c = text[start];
    const char16_t next = unitAt(text, start + 1);

    if (const SingleUnitRow* row = findRow<bracketsAndMarks>(c)) return {1, row->type, row->subType};
    if (isWhitespace(c)) {
        std::size_t end = start + 1;
        while (isWhitespace(unitAt(text, end)))
            ++end;
        return {lengthBetween(start, end), TBFBasicTokenTypeWhitespace, TBFBasicTokenSubTypeWhitespace};
    }
    if (c == u'0' && (next == u'x' || next == u'b')) return scanPrefixedNumber(text, start);
    if (isNumberChar(c)) return scanDecimalNumber(text, start);
    if (c == u'/' && next == u'/') return {2, TBFBasicTokenTypeOther, TBFBasicTokenSubTypeCommentStart};
    if (const SingleUnitRow* row = findRow<operators>(c)) return {1, row->type, row->subType};
    if (c == u'e') return {wordLength(text, start), TBFBasicTokenTypeWord, TBFBasicTokenSubTypeLetterE};
    if (isWordBreaker(c)) return {1, TBFBasicTokenTypeWord, TBFBasicTokenSubTypeWordBreaker};
    return {wordLength(text, start), TBFBasicTokenTypeWord, TBFBasicTokenSubTypeWord};
}

ScannedRun ExpressionScannerImpl::scanDecimalNumber(std::u16string_view text,
                                                    std::size_t start) const noexcept {
    const char16_t separator = scannerLocale.thousandsSeparator;
    std::size_t decimalPoints = 0;
    std::size_t end = start;
    for (; end < text.size(); ++end) {
        const char16_t c = text[end];
        if (c == scannerLocale.decimalPoint) {
            ++decimalPoints;
        } else if (!isDigit(c) && (c != separator || isWhitespace(c))) {
            break;
        }
    }
    const int32_t length = lengthBetween(start, end);
    const bool isWord = decimalPoints >= 2 || (decimalPoints == 1 && length == 1);
    if (isWord) return {length, TBFBasicTokenTypeWord, TBFBasicTokenSubTypeWord};
    return {length, TBFBasicTokenTypeNumber, TBFBasicTokenSubTypeDecimalNumber};
}

// Binary digits aren't checked: what the literal means is for the base converter.
ScannedRun ExpressionScannerImpl::scanPrefixedNumber(std::u16string_view text,
                                                     std::size_t start) const noexcept {
    std::size_t end = start + 2;
    while (isHexNumberChar(unitAt(text, end)))
        ++end;
    const int32_t length = lengthBetween(start, end);
    if (length == 2) return {length, TBFBasicTokenTypeWord, TBFBasicTokenSubTypeWord};
    return {length, TBFBasicTokenTypeNumber, TBFBasicTokenSubTypePrefixedNumber};
}

// The first unit belongs to the word, whatever it is. A decimal point stays inside of a word ("e.g.")
// unless a number begins with it.
int32_t ExpressionScannerImpl::wordLength(std::u16string_view text, std::size_t start) const noexcept {
    std::size_t end = start + 1;
    for (; end < text.size(); ++end) {
        const char16_t c = text[end];
        if (isWordBreaker(c)) break;
        if (c == scannerLocale.decimalPoint) {
            if (isNumberChar(unitAt(text, end + 1))) break;
        } else if (!isBasicWordChar(c)) {
            break;
        }
    }
    return lengthBetween(start, end);
}

bool ExpressionScannerImpl::isNumberChar(char16_t c) const noexcept {
    return isDigit(c) || c == scannerLocale.decimalPoint;
}

bool ExpressionScannerImpl::isHexNumberChar(char16_t c) const noexcept {
    return isNumberChar(c) || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
}

bool ExpressionScannerImpl::isBasicWordChar(char16_t c) const noexcept {
    if (c == scannerLocale.decimalPoint) return false;
    if (c > u'9') return true;
    return c != u'\0' && !isWhitespace(c) && c != markOpen && c != markClose && !isDigit(c) && c != u'*' &&
           c != u'+' && c != u'-' && c != u'/';
}

bool ExpressionScannerImpl::isWordBreaker(char16_t c) const noexcept {
    if (c < isASCIIWordBreaker.size()) return isASCIIWordBreaker[c];
    return std::binary_search(otherWordBreakers.begin(), otherWordBreakers.end(), c);
}

} // namespace TBF
