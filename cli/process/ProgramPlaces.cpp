#include "process/ProgramPlaces.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <string_view>
#include <sys/auxv.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

// The name that a program was called by, as the shell finds it.
fs::path foundOnPath(std::string_view name) {
    if (name.find('/') != name.npos) return name;
    const char* const variable = std::getenv("PATH");
    std::string_view folders = variable ? variable : "";
    while (!name.empty() && !folders.empty()) {
        const std::size_t end = std::min(folders.find(':'), folders.size());
        const fs::path folder = end == 0 ? "." : folders.substr(0, end);
        if (const fs::path path = folder / name; access(path.c_str(), X_OK) == 0) return path;
        folders.remove_prefix(std::min(end + 1, folders.size()));
    }
    return {};
}

void addPlace(std::vector<fs::path>& places, const fs::path& path) {
    std::error_code error;
    fs::path place = path.empty() ? fs::path() : fs::canonical(path, error);
    if (error || place.empty() || std::ranges::find(places, place) != places.end()) return;
    places.push_back(std::move(place));
}

} // namespace

std::vector<fs::path> placesOfProgram() {
    std::vector<fs::path> places;
    addPlace(places, "/proc/self/exe");
    // An auxiliary value is a number, here the address of a text that lives as long as the process.
    if (const unsigned long address = getauxval(AT_EXECFN))
        addPlace(places, reinterpret_cast<const char*>(address));
    addPlace(places, foundOnPath(program_invocation_name));
    return places;
}
