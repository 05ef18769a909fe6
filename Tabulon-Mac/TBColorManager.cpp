#include "TBColorManager.h"

#include "NotificationCenter.h"
#include "runtime/TBFLog.h"

#include <algorithm>

namespace {

constexpr const char* colorsKey = "TBColors";
constexpr const char* versionInfoKey = "TBVersionInfo";

// None if there is no such file, or no such array in it.
std::optional<platform::PropertyList::Array> colorsOfFile(const std::string& path, std::string* error) {
    const auto list = platform::PropertyList::read(path, error);
    if (!list) return std::nullopt;
    const platform::PropertyList& colors = (*list)[colorsKey];
    if (colors.kind() == platform::PropertyList::Kind::array) return colors.array();
    if (error) *error = path + ": has no colours.";
    return std::nullopt;
}

} // namespace

TBColorManager& TBColorManager::sharedInstance() {
    static auto& manager = *new TBColorManager; // never destroyed, so that threads may outlive `main`
    return manager;
}

std::shared_ptr<TBColor> TBColorManager::colorForIdentifier(std::string_view identifier) const {
    const auto found = std::find_if(colors.begin(), colors.end(), [identifier](const auto& color) {
        return color->identifier() == identifier;
    });
    return found == colors.end() ? nullptr : *found;
}

void TBColorManager::setColor(const platform::Color& color, std::string_view identifier, bool persistant) {
    if (const std::shared_ptr<TBColor> entry = colorForIdentifier(identifier)) {
        entry->setColor(color);
        entry->setIsPersistant(persistant);
        platform::NotificationCenter::shared().post(TBColorDidChange, entry);
        return;
    }
    colors.push_back(std::make_shared<TBColor>(color, std::string(identifier)));
    colors.back()->setIsPersistant(persistant);
}

void TBColorManager::loadDefaultsFromPath(const std::string& path) {
    const auto entries = colorsOfFile(path, nullptr);
    if (!entries) return;
    for (const platform::PropertyList& entry : *entries)
        colors.push_back(std::make_shared<TBColor>(entry));
}

bool TBColorManager::loadColorsFromPath(const std::string& path, std::string* error) {
    const auto entries = colorsOfFile(path, error);
    if (!entries) {
        TBFErrorLog("Warning: Could not load any colors from %s", path.c_str());
        return false;
    }
    for (const platform::PropertyList& entry : *entries) {
        const TBColor color(entry);
        setColor(color.color(), color.identifier(), true);
    }
    return true;
}

void TBColorManager::saveColorsToPath(const std::string& path, const platform::PropertyList& info) const {
    platform::PropertyList::Array entries;
    for (const auto& color : colors)
        if (color->isPersistant()) entries.push_back(color->dictionaryRepresentation());
    const platform::PropertyList list =
        platform::PropertyList::Dictionary{{colorsKey, std::move(entries)}, {versionInfoKey, info}};
    if (!list.write(path)) TBFErrorLog("Warning: Could not save Colors datasource to a file");
}

platform::Color TBColorManager::colorWithRed(double red, double green, double blue, double alpha) {
    DataSource& entries = sharedInstance().colors;
    const platform::RGBA wanted = {red, green, blue, alpha};
    const auto found = std::find_if(entries.begin(), entries.end(), [&wanted](const auto& color) {
        return color->color().components() == wanted;
    });
    if (found != entries.end()) return (*found)->color();
    entries.push_back(std::make_shared<TBColor>(platform::Color::rgb(red, green, blue, alpha), "Undefined"));
    entries.back()->setIsPersistant(false);
    return entries.back()->color();
}
