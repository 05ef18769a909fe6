#pragma once

// Folders and facts of the application as a whole. Any thread.

#include "propertylist/PropertyList.h"

#include <optional>
#include <string>

namespace platform {
class Bundle;
}

// The folder "Tabulon" among the data of the user's applications, made if need be. A user without a home has
// one among the temporary files, and none at all if somebody else has put something there. Trouble is logged;
// the path is given all the same, since what stands there may still be read.
std::optional<std::string> TKApplicationSupportDirectory();

// Who writes saved files: "CreatorVersion", "CreatorID" and "CreatorBuild", as far as the information of the
// bundle has them.
platform::PropertyList TKApplicationInfoDictionary(const platform::Bundle& bundle);
