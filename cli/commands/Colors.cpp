#include "commands/Colors.h"

#include "CommandFailure.h"
#include "TBColorManager.h"

void useColorsOfFile(const std::optional<std::string>& file) {
    std::string why;
    if (!file || TBColorManager::sharedInstance().loadColorsFromPath(*file, &why)) return;
    // The failure names the file itself, and is no sentence.
    if (why.starts_with(*file + ": ")) why.erase(0, file->size() + 2);
    if (why.ends_with('.')) why.pop_back();
    throw CommandFailure{ExitCodeFailed, *file, why};
}
