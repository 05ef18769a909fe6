#pragma once

// The text of one expression: what the tokens of a line refer to by ranges of UTF-16 code units. Made
// by the core for each line, kept alive by the basic tokens. Immutable, shared between threads.

#include "runtime/Object.h"
#include "runtime/Ref.h"
#include "runtime/String.h"

#include <string_view>

namespace TBF {

class Expression final : public Object<Expression> {
public:
    // Shares the string. A null string is an expression without text.
    static Ref<Expression> create(String* string);
    static Ref<Expression> create(std::u16string_view text);

    // Borrowed; null for an expression without text.
    String* string() const noexcept { return text.get(); }

    // Valid as long as the expression lives.
    std::u16string_view view() const noexcept { return text ? text->view() : std::u16string_view(); }

private:
    friend class Object<Expression>;
    explicit Expression(Ref<String> string) noexcept
        : text(std::move(string)) {}
    ~Expression() override = default;

    Ref<String> text;
};

} // namespace TBF
