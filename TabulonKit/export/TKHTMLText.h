#pragma once

// Text on its way into a page. Everything that a document can bring along passes through here, so that it
// can't add markup.

#include <string>
#include <string_view>

// `text` with `&`, `<`, `>` and `"` as character references. Control characters that a page can't hold,
// and halves of surrogate pairs, become U+FFFD.
std::u16string TKHTMLEscaped(std::u16string_view text);
