#include "analysis/BasicToken.h"

#include "runtime/PolyString.h"

namespace TBF {

Ref<BasicToken> BasicToken::create(Expression* expression, TBFRange range, TBFBasicTokenType type,
                                   TBFBasicTokenSubType subType, TBFLocale locale) {
    return make<BasicToken>(expression, range, type, subType, locale);
}

BasicToken::BasicToken(Expression* expression, TBFRange range, TBFBasicTokenType type,
                       TBFBasicTokenSubType subType, TBFLocale locale) noexcept
    : tokenRange(range)
    , tokenType(type)
    , tokenSubType(subType)
    , tokenLocale(locale)
    , owner(TBF::retain(expression)) {}

BasicToken::~BasicToken() = default;

std::u16string_view BasicToken::view() const noexcept {
    const std::u16string_view text = owner ? owner->view() : std::u16string_view();
    const auto start = static_cast<std::size_t>(std::max(tokenRange.location, 0));
    if (start >= text.size() || tokenRange.isEmpty()) return {};
    return text.substr(start, static_cast<std::size_t>(tokenRange.length));
}

PolyString* BasicToken::string() const {
    if (!cachedString) cachedString = PolyString::create(String::create(view()).get());
    return cachedString.get();
}

bool BasicToken::isLastToken() const noexcept {
    const std::size_t length = owner ? owner->view().size() : 0;
    return static_cast<std::size_t>(tokenRange.end()) == length;
}

} // namespace TBF
