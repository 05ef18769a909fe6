#include "bundle/LocalizedStrings.h"

#include <unicode/unistr.h>

#include <memory>
#include <mutex>
#include <utility>

namespace platform {

namespace {

struct Current {
    std::mutex mutex;
    std::shared_ptr<const LocalizedStrings> strings;

    static Current& shared() {
        static auto& current = *new Current;
        return current;
    }
};

} // namespace

void setLocalizedStrings(LocalizedStrings strings) {
    auto replacement = std::make_shared<const LocalizedStrings>(std::move(strings));
    Current& current = Current::shared();
    const std::lock_guard lock(current.mutex);
    current.strings.swap(replacement);
}

std::u16string localizedString(std::u16string_view key) {
    std::shared_ptr<const LocalizedStrings> strings;
    {
        Current& current = Current::shared();
        const std::lock_guard lock(current.mutex);
        strings = current.strings;
    }
    if (!strings) return std::u16string(key);
    std::string bytes;
    icu::UnicodeString(key.data(), static_cast<int32_t>(key.size())).toUTF8String(bytes);
    const auto found = strings->find(bytes);
    if (found == strings->end()) return std::u16string(key);
    const icu::UnicodeString text = icu::UnicodeString::fromUTF8(found->second);
    return std::u16string(text.getBuffer(), static_cast<std::size_t>(text.length()));
}

} // namespace platform
