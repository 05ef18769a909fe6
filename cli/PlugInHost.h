#pragma once

// The command as the host of the plug-in: tells it where its bundle is and what the user chose. Main thread,
// before anything of the engine is used.

#include <optional>
#include <string>

// What isn't given is looked for beside the program, and chosen by the user's surroundings.
struct HostOptions {
    std::optional<std::string> contentFolder; // holds TBContent.bundle
    std::optional<std::string> dataFolder;
    std::string language;
    bool plainRules = false; // turns the readings off
};

// Missing content is told in one line on standard error: the engine then works with what it has built in.
void hostPlugIn(const HostOptions& options);
