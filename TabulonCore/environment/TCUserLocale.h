#pragma once

// The characters that the user writes numbers with. Any thread.

#include "environment/TCSimpleLocale.h"

namespace platform {
class UserDefaults;
}

// The first characters of "TBDecimalPointSign" and "TBThousandsSeperatorSign" in the defaults; of the locale
// of the process where a key isn't there; "." and "," where a text is empty.
TCSimpleLocale simpleLocale(const platform::UserDefaults& defaults);
