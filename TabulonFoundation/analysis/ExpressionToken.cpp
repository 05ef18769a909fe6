#include "analysis/ExpressionToken.h"

#include "names/functions/Function.h"
#include "names/variables/ScopedVariable.h"
#include "names/wordoperators/WordOperator.h"
#include "numbers/BaseConverter.h"
#include "runtime/PolyString.h"
#include "runtime/Unicode.h"
#include "units/AmbiguousUnit.h"
#include "units/UnitContainer.h"
#include "units/UnitFraction.h"

#include <string>
#include <utility>

namespace TBF {

namespace {

// Touches the counts only when the object changes.
template <typename T>
void setMeaning(Ref<T>& member, T* object) {
    if (member.get() != object) member = retain(object);
}

// What the analyzer may have joined into a number between its groups of digits: white space of any kind
// and substitution marks.
bool standsBetweenDigits(char16_t c) {
    return c <= u' ';
}

// The digits of a number without its locale: in the common case a copy of a few bytes.
std::string numberText(std::u16string_view text, TBFLocale locale) {
    std::string bytes;
    for (const char16_t c : text) {
        if (c == locale.thousandsSeparator || standsBetweenDigits(c)) continue;
        if (c == locale.decimalPoint) {
            bytes.push_back('.');
        } else if (c < 0x80) {
            bytes.push_back(static_cast<char>(c));
        } else {
            bytes += utf8(std::u16string_view(&c, 1));
        }
    }
    return bytes;
}

} // namespace

Ref<ExpressionToken> ExpressionToken::create(String* string, token_type type, TBFTokenSubType subType) {
    return make<ExpressionToken>(string, type, subType);
}

Ref<ExpressionToken> ExpressionToken::create(Ref<BasicToken> basicToken) {
    if (!basicToken) return nullptr;
    return make<ExpressionToken>(std::move(basicToken));
}

Ref<ExpressionToken> ExpressionToken::create(std::vector<Ref<BasicToken>> basicTokens) {
    if (basicTokens.empty()) return nullptr;
    if (basicTokens.size() == 1) return create(std::move(basicTokens.front()));
    return make<ExpressionToken>(std::move(basicTokens));
}

ExpressionToken::ExpressionToken(String* string, token_type type, TBFTokenSubType subType)
    : tokenType(type)
    , tokenSubType(subType) {
    if (string) cachedString = PolyString::create(string);
}

ExpressionToken::ExpressionToken(Ref<BasicToken> basicToken) noexcept
    : onlyBasicToken(std::move(basicToken))
    , tokenRange(onlyBasicToken->range()) {
    setTypesByBasicToken(*onlyBasicToken);
}

ExpressionToken::ExpressionToken(std::vector<Ref<BasicToken>> basicTokens) noexcept
    : severalBasicTokens(std::move(basicTokens)) {
    const BasicToken& first = *severalBasicTokens.front();
    tokenRange = TBFRange::between(first.range().location, severalBasicTokens.back()->range().end());
    setTypesByBasicToken(first);
}

ExpressionToken::~ExpressionToken() = default;

void ExpressionToken::setTypesByBasicToken(const BasicToken& basicToken) noexcept {
    TBFBasicTokenTypesToTokenTypes(basicToken.type(), basicToken.subType(), &tokenType, &tokenSubType);
}

std::span<const Ref<BasicToken>> ExpressionToken::basicTokens() const noexcept {
    if (onlyBasicToken) return {&onlyBasicToken, 1};
    return severalBasicTokens;
}

TBFLocale ExpressionToken::locale() const noexcept {
    const auto tokens = basicTokens();
    return tokens.empty() ? kTBFLocaleDefault : tokens.front()->locale();
}

std::u16string_view ExpressionToken::view() const noexcept {
    if (onlyBasicToken) return onlyBasicToken->view();
    if (severalBasicTokens.empty())
        return cachedString ? cachedString->tbfString()->view() : std::u16string_view();
    const Expression* const text = expression();
    const std::u16string_view all = text ? text->view() : std::u16string_view();
    const auto start = static_cast<std::size_t>(tokenRange.location);
    return start < all.size() ? all.substr(start, static_cast<std::size_t>(tokenRange.length))
                              : std::u16string_view();
}

PolyString* ExpressionToken::string() const {
    if (onlyBasicToken) return onlyBasicToken->string();
    if (!cachedString && !severalBasicTokens.empty()) {
        cachedString = PolyString::create(String::create(view()).get());
    }
    return cachedString.get();
}

PolyString* ExpressionToken::decimalString() const {
    if (!cachedDecimalString) cachedDecimalString = PolyString::create(decimalText());
    return cachedDecimalString.get();
}

std::string ExpressionToken::decimalText() const {
    if (tokenType != TBFTokenTypeNumber) return "1";
    std::string text = numberText(view(), locale());
    // The analyzer may have joined other characters in front of a prefix.
    if (tokenSubType == TBFTokenSubTypePrefixedNumber && text.starts_with('0'))
        return BaseConverter::prefixedToDecimal(text).value_or(std::string());
    return text;
}

TBFChar ExpressionToken::firstCharacter() const noexcept {
    const auto tokens = basicTokens();
    if (tokens.empty()) return TBFCharNULL;
    const std::u16string_view text = tokens.front()->view();
    return text.empty() ? TBFCharNULL : text.front();
}

Expression* ExpressionToken::expression() const noexcept {
    const auto tokens = basicTokens();
    return tokens.empty() ? nullptr : tokens.front()->expression();
}

void ExpressionToken::setUnitFraction(UnitFraction* fraction) {
    setMeaning(meaning.unitFraction, fraction);
}

void ExpressionToken::setUnitContainer(UnitContainer* container) {
    setMeaning(meaning.unitContainer, container);
}

void ExpressionToken::setAmbiguousUnit(AmbiguousUnit* unit) {
    setMeaning(meaning.ambiguousUnit, unit);
}

void ExpressionToken::setFunction(Function* function) {
    setMeaning(meaning.function, function);
}

void ExpressionToken::setWordOperator(WordOperator* wordOperator) {
    setMeaning(meaning.wordOperator, wordOperator);
}

void ExpressionToken::setVariable(ScopedVariable* variable) {
    setMeaning(meaning.variable, variable);
}

} // namespace TBF
