#pragma once

// The texts of the program in the user's language, by key. A key is the English text itself, or a name for a
// text that differs between places. Set when the content is loaded; any thread may ask.

#include <map>
#include <string>
#include <string_view>

namespace platform {

// UTF-8, by UTF-8 keys.
using LocalizedStrings = std::map<std::string, std::string, std::less<>>;

// In place of what was set before.
void setLocalizedStrings(LocalizedStrings strings);

// The key itself where there is no text for it.
std::u16string localizedString(std::u16string_view key);

} // namespace platform
