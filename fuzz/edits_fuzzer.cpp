// Edits against loading: the bytes choose a document, its texts and its edits, after each of which every
// answer must equal that of a fresh load.

#include "EditedDocument.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const bool started = [] {
        startEnvironmentForEdits(CONTENT_BUNDLE, false);
        return true;
    }();
    static_cast<void>(started);
    ByteChoices choices(std::span(data, size));
    const EditScenario scenario = anyEditScenario(choices, 60);
    if (const auto difference = firstDifference(scenario)) {
        std::fputs(description(scenario).c_str(), stderr);
        std::fputs(difference->what.c_str(), stderr);
        std::abort();
    }
    return 0;
}
