#include "PlugInHost.h"

#include "CommandFailure.h"
#include "QuickLookGeneratorPlugin.h"
#include "bootstrap.h"
#include "bundle/Bundle.h"
#include "environment/TKEnvironment.h"
#include "process/ProgramPlaces.h"
#include "runtime/Settings.h"

#include <algorithm>
#include <filesystem>
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
    std::vector<fs::path> places;
    for (const fs::path& program : placesOfProgram())
        for (const char* const place : contentPlaces)
            places.push_back((program.parent_path() / place).lexically_normal());
    return places;
}

[[noreturn]] void failWithoutContent(const std::vector<fs::path>& places) {
    std::string text;
    for (const fs::path& place : places)
        text += (text.empty() ? "" : " or ") + place.string();
    throw CommandFailure{
        ExitCodeFailed,
        {},
        std::string("there is no ") + contentName + " in " + (text.empty() ? "reach" : text) +
            ": --content DIR says where it is, --no-content does without units and currencies"};
}

// The sentences as one, without the points at their ends.
std::string joined(const std::vector<std::string>& sentences) {
    std::string text;
    for (const std::string& sentence : sentences) {
        text += (text.empty() ? "" : "; ") + sentence;
        if (text.ends_with('.')) text.pop_back();
    }
    return text;
}

} // namespace

void hostPlugIn(const HostOptions& options) {
    setBootstrapChoices({.localization = options.language,
                         .dataFolder = options.dataFolder,
                         .batchBudget = documentBudget,
                         .readings = !options.plainRules,
                         .tellsOfContent = true});
    if (options.isWithoutContent) return;
    const std::vector<fs::path> places = placesOfContent(options);
    const auto found = std::find_if(places.begin(), places.end(), hasContent);
    if (found == places.end()) failWithoutContent(places);
    platform::Bundle::registerBundle(kPlugInBundleIdentifier, found->string());
}

void startEngine() {
    bootstrap(platform::Bundle::bundleWithIdentifier(kPlugInBundleIdentifier).get());
    const auto environment = TKEnvironment::sharedEnvironment();
    if (!environment || environment->contentFailures().empty()) return;
    throw CommandFailure{
        ExitCodeFailed, {}, "the content is damaged: " + joined(environment->contentFailures())};
}
