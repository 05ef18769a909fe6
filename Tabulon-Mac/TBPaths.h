#pragma once

// Where the application leaves what its plug-in reads. Any thread.

#include <optional>
#include <string>

namespace platform {
class Bundle;
}

class TBPaths {
public:
    // The folder with the saved values, made if need be. Trouble is logged: a user without a place of their
    // own has none; a folder that can't be made has its path all the same. So has a bundle whose information
    // doesn't name the application's team, as that of an embedder.
    static std::optional<std::string> quicklookDataFolderForBundle(const platform::Bundle& bundle);
};
