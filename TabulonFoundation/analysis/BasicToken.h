#pragma once

// A run of UTF-16 code units of an expression, with a coarse type, as the scanner cut it out. The
// scanner makes them; expression tokens and the analyzer's tree hold them. A token keeps its expression
// alive. Immutable but for the string, which is made on first request without a lock: a token belongs
// to one thread at a time.

#include "analysis/Expression.h"
#include "analysis/TBFTokenTypes.h"
#include "runtime/TBFTypes.h"

#include <string_view>

namespace TBF {

class PolyString;

class BasicToken final : public Object<BasicToken> {
public:
    // `range` lies inside of the expression's text.
    static Ref<BasicToken> create(Expression* expression, TBFRange range, TBFBasicTokenType type,
                                  TBFBasicTokenSubType subType, TBFLocale locale);

    TBFRange range() const noexcept { return tokenRange; }
    TBFBasicTokenType type() const noexcept { return tokenType; }
    TBFBasicTokenSubType subType() const noexcept { return tokenSubType; }

    // The locale under which the text was scanned.
    TBFLocale locale() const noexcept { return tokenLocale; }

    // Borrowed.
    Expression* expression() const noexcept { return owner.get(); }

    // The text, without making a string; valid as long as the token lives.
    std::u16string_view view() const noexcept;

    // The text as an object, made on first request and kept. Borrowed.
    PolyString* string() const;

    // True if the token begins, or ends, the expression's text.
    bool isFirstToken() const noexcept { return tokenRange.location == 0; }
    bool isLastToken() const noexcept;

private:
    friend class Object<BasicToken>;
    BasicToken(Expression* expression, TBFRange range, TBFBasicTokenType type, TBFBasicTokenSubType subType,
               TBFLocale locale) noexcept;
    ~BasicToken() override;

    TBFRange tokenRange;
    TBFBasicTokenType tokenType;
    TBFBasicTokenSubType tokenSubType;
    TBFLocale tokenLocale;
    Ref<Expression> owner;
    mutable Ref<PolyString> cachedString; // null until asked for
};

} // namespace TBF
