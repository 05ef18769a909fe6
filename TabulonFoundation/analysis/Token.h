#pragma once

// One token of a parsed expression as it is handed out for colouring: where it stands, what it is, and
// its text, without a link to the analysis that found it. Immutable, shared between threads.

#include "analysis/TBFTokenTypes.h"
#include "runtime/Object.h"
#include "runtime/Ref.h"
#include "runtime/String.h"
#include "runtime/TBFTypes.h"

namespace TBF {

class Token final : public Object<Token> {
public:
    // Shares the string, which may be null.
    static Ref<Token> create(TBFRange range, token_type type, TBFTokenSubType subType, String* string);

    TBFRange range() const noexcept { return tokenRange; }
    token_type type() const noexcept { return tokenType; }
    TBFTokenSubType subType() const noexcept { return tokenSubType; }
    String* string() const noexcept { return text.get(); } // borrowed

private:
    friend class Object<Token>;
    Token(TBFRange range, token_type type, TBFTokenSubType subType, Ref<String> string) noexcept
        : tokenRange(range)
        , tokenType(type)
        , tokenSubType(subType)
        , text(std::move(string)) {}
    ~Token() override = default;

    TBFRange tokenRange;
    token_type tokenType;
    TBFTokenSubType tokenSubType;
    Ref<String> text;
};

} // namespace TBF
