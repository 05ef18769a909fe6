#pragma once

// The command as the host of the plug-in: tells it where its bundle is and what the user chose, and sets the
// engine up. Main thread.

#include <optional>
#include <string>

// What isn't given is looked for beside the program, and chosen by the user's surroundings.
struct HostOptions {
    std::optional<std::string> contentFolder; // holds TBContent.bundle
    bool isWithoutContent = false;            // the user wants no units and currencies
    std::optional<std::string> dataFolder;
    std::string language;
    bool plainRules = false; // turns the readings off
};

// Before anything of the engine is used. A CommandFailure if there is no content and the user wants some:
// lines would have answers all the same, and wrong ones.
void hostPlugIn(const HostOptions& options);

// Sets the engine up, once; then it does nothing. A CommandFailure that names the files if the content is
// damaged.
void startEngine();
