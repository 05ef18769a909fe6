#include "PlugInHost.h"

#include "QuickLookGeneratorPlugin.h"
#include "bootstrap.h"
#include "bundle/Bundle.h"
#include "numbers/WorkBudget.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <iterator>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr const char* contentName = "TBContent.bundle";

// From the folder of the program: where an installation and where a build has the content.
constexpr const char* contentPlaces[] = {TABULON_CONTENT_FROM_PROGRAM, "share/tabulon"};

// A minute's worth of lines for a document.
constexpr int64_t documentBudget = 60 * TBF::standardLineBudget;

bool hasContent(const fs::path& folder) {
    std::error_code ignored;
    return fs::is_directory(folder / contentName, ignored);
}

std::vector<fs::path> placesOfContent(const HostOptions& options) {
    if (options.contentFolder) return {*options.contentFolder};
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    std::vector<fs::path> places;
    if (!error)
        for (const char* place : contentPlaces)
            places.push_back((program.parent_path() / place).lexically_normal());
    return places;
}

void reportMissingContent(const std::vector<fs::path>& places) {
    std::string text;
    for (const fs::path& place : places)
        text += (text.empty() ? "" : " or ") + place.string();
    std::replace_if(
        text.begin(), text.end(), [](unsigned char c) { return c < 0x20 || c == 0x7F; }, '?');
    std::fprintf(stderr, "tabulon: there is no %s in %s: units and currencies are unknown\n", contentName,
                 text.empty() ? "reach" : text.c_str());
}

} // namespace

void hostPlugIn(const HostOptions& options) {
    setBootstrapChoices({options.language, options.dataFolder, documentBudget, !options.plainRules});
    const std::vector<fs::path> places = placesOfContent(options);
    const auto found = std::find_if(places.begin(), places.end(), hasContent);
    if (found == places.end()) return reportMissingContent(places);
    platform::Bundle::registerBundle(kPlugInBundleIdentifier, found->string());
}
