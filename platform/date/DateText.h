#pragma once

// Dates and times as the user's locale writes them. May be called on any thread.

#include <string>

namespace platform {

// The current date in long style and time in medium style: "22 November 2026 at 20:28:22".
std::u16string currentDateText();

} // namespace platform
