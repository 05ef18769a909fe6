#pragma once

// Sets the engine up for a process. Hosts of the engine alone call it as the plug-in does.

#include <cstdint>
#include <optional>
#include <string>

namespace platform {
class Bundle;
}

// What a host may choose for the environment. Whatever it leaves out is as the plug-in has it.
struct BootstrapChoices {
    std::string localization; // of the content, as "de"; empty leaves it to the user's preferences
    std::optional<std::string> dataFolder = {}; // with the saved values
    std::optional<int64_t> batchBudget = {};    // steps of work for the loading of a document, see TCSettings
    bool readings = true;                       // beyond the plain rules, see TCSettings
    bool tellsOfContent = false; // that it is missing or damaged; otherwise a line on standard error does
};

// For the `bootstrap` to come; without effect afterwards. On the thread that makes the first instance.
void setBootstrapChoices(BootstrapChoices choices);

// The first call makes the settings and the environment that all documents of the process share, from the
// content in the plug-in's bundle and the saved values in its data folder, and loads the colours of pages;
// later calls, from any thread, wait for it and do nothing. Without a bundle, or without content in it, there
// are the built-in lists alone. The environment lives as long as the process.
void bootstrap(const platform::Bundle* bundle);
