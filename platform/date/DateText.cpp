#include "date/DateText.h"

#include <unicode/datefmt.h>

#include <memory>

namespace platform {

std::u16string currentDateText() {
    const std::unique_ptr<icu::DateFormat> format(
        icu::DateFormat::createDateTimeInstance(icu::DateFormat::kLong, icu::DateFormat::kMedium));
    if (!format) return {};
    icu::UnicodeString text;
    format->format(icu::Calendar::getNow(), text);
    return std::u16string(text.getBuffer(), static_cast<std::size_t>(text.length()));
}

} // namespace platform
