#include "export/TKHTMLText.h"

#include <algorithm>

namespace {

constexpr char16_t replacementCharacter = u'\uFFFD';

bool isHighSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}
bool isLowSurrogate(char16_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

bool isForbidden(char16_t unit) {
    const bool isSpace = unit == u'\t' || unit == u'\n' || unit == u'\r';
    return (unit < 0x20 && !isSpace) || (unit >= 0x7F && unit <= 0x9F) || unit == 0xFFFE || unit == 0xFFFF;
}

bool isPlain(char16_t unit) {
    return unit != u'&' && unit != u'<' && unit != u'>' && unit != u'"' && !isForbidden(unit) &&
           !isHighSurrogate(unit) && !isLowSurrogate(unit);
}

} // namespace

std::u16string TKHTMLEscaped(std::u16string_view text) {
    if (std::all_of(text.begin(), text.end(), isPlain)) return std::u16string(text);
    std::u16string escaped;
    escaped.reserve(text.size() + text.size() / 4);
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        if (unit == u'&')
            escaped += u"&amp;";
        else if (unit == u'<')
            escaped += u"&lt;";
        else if (unit == u'>')
            escaped += u"&gt;";
        else if (unit == u'"')
            escaped += u"&quot;";
        else if (isHighSurrogate(unit) && i + 1 < text.size() && isLowSurrogate(text[i + 1]))
            escaped += text.substr(i++, 2);
        else
            escaped += isPlain(unit) ? unit : replacementCharacter;
    }
    return escaped;
}
