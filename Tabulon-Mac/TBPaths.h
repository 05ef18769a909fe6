#pragma once

// Where the application leaves what its plug-in reads. Any thread.

#include <optional>
#include <string>

namespace platform {
class Bundle;
}

class TBPaths {
public:
    // The folder with the saved values, made if need be. Trouble is logged: a bundle whose information
    // doesn't name the application's team, and a user without a place of their own, have none; a folder that
    // can't be made has its path all the same.
    static std::optional<std::string> quicklookDataFolderForBundle(const platform::Bundle& bundle);
};
