#include "bundle/Bundle.h"

#include "locale/Locale.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <map>
#include <mutex>
#include <utility>

namespace platform {

namespace {

constexpr std::string_view localizationSuffix = ".lproj";
constexpr std::string_view developmentRegionKey = "CFBundleDevelopmentRegion";
constexpr std::string_view identifierKey = "CFBundleIdentifier";

// Where the parts of a bundle may stand below its folder.
constexpr std::string_view folders[] = {"", "Resources", "Contents/Resources"};
constexpr std::string_view infoFiles[] = {"Info.plist", "Resources/Info.plist", "Contents/Info.plist"};

struct Registry {
    std::mutex mutex;
    std::map<std::string, std::shared_ptr<const Bundle>, std::less<>> bundles;

    static Registry& shared() {
        static auto& registry = *new Registry; // never destroyed, so that threads may outlive `main`
        return registry;
    }
};

std::optional<std::string> existingFile(const std::filesystem::path& folder, std::string_view resource,
                                        std::string_view type) {
    std::string file(resource);
    if (!type.empty()) file.append(".").append(type);
    const std::filesystem::path path = folder / file;
    std::error_code ignored;
    return std::filesystem::exists(path, ignored) ? std::optional(path.string()) : std::nullopt;
}

void appendIfNew(std::vector<std::string>& names, std::string_view name) {
    if (std::find(names.begin(), names.end(), name) == names.end()) names.emplace_back(name);
}

} // namespace

Bundle::Bundle(std::string bundleIdentifier, std::string folder)
    : name(std::move(bundleIdentifier))
    , folderPath(std::move(folder)) {}

void Bundle::registerBundle(std::string identifier, std::string folder) {
    auto bundle = std::make_shared<const Bundle>(identifier, std::move(folder));
    Registry& registry = Registry::shared();
    const std::lock_guard lock(registry.mutex);
    registry.bundles.insert_or_assign(std::move(identifier), std::move(bundle));
}

std::shared_ptr<const Bundle> Bundle::bundleWithIdentifier(std::string_view identifier) {
    Registry& registry = Registry::shared();
    const std::lock_guard lock(registry.mutex);
    const auto found = registry.bundles.find(identifier);
    return found == registry.bundles.end() ? nullptr : found->second;
}

std::shared_ptr<const Bundle> Bundle::bundleWithPath(std::string folder) {
    std::error_code ignored;
    if (!std::filesystem::is_directory(folder, ignored)) return nullptr;
    const Bundle unnamed({}, folder);
    return std::make_shared<const Bundle>(unnamed.infoText(identifierKey).value_or(std::string()),
                                          std::move(folder));
}

std::vector<std::string> Bundle::resourceFolders() const {
    std::vector<std::string> present;
    for (const std::string_view folder : folders) {
        const auto path =
            folder.empty() ? std::filesystem::path(folderPath) : std::filesystem::path(folderPath) / folder;
        std::error_code ignored;
        if (std::filesystem::is_directory(path, ignored)) present.push_back(path.string());
    }
    return present;
}

std::optional<std::string> Bundle::pathForResource(std::string_view resource, std::string_view type) const {
    for (const std::string& folder : resourceFolders())
        if (auto path = existingFile(folder, resource, type)) return path;
    for (const std::string& localization : preferredLocalizations())
        if (auto path = pathForResource(resource, type, localization)) return path;
    return std::nullopt;
}

std::optional<std::string> Bundle::pathForResource(std::string_view resource, std::string_view type,
                                                   std::string_view localization) const {
    if (localization.empty() || localization.find('/') != localization.npos) return std::nullopt;
    const std::string folderName = std::string(localization).append(localizationSuffix);
    for (const std::string& folder : resourceFolders())
        if (auto path = existingFile(std::filesystem::path(folder) / folderName, resource, type)) return path;
    return std::nullopt;
}

std::vector<std::string> Bundle::localizations() const {
    std::vector<std::string> names;
    for (const std::string& folder : resourceFolders()) {
        std::error_code ignored;
        for (const auto& entry : std::filesystem::directory_iterator(folder, ignored)) {
            if (entry.path().extension() == localizationSuffix)
                appendIfNew(names, entry.path().stem().string());
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::vector<std::string> Bundle::preferredLocalizations() const {
    const std::vector<std::string> present = localizations();
    std::vector<std::string> preferred;
    const auto prefer = [&](std::string_view language) {
        if (std::find(present.begin(), present.end(), language) != present.end()) {
            appendIfNew(preferred, language);
        }
    };
    const Locale locale = Locale::current();
    for (const std::string& language : locale.preferredLanguages())
        prefer(language);
    if (const auto region = infoText(developmentRegionKey)) prefer(*region);
    return preferred;
}

const PropertyList& Bundle::infoDictionary() const {
    std::call_once(infoOnce, [this] {
        for (const std::string_view file : infoFiles) {
            auto read = PropertyList::read((std::filesystem::path(folderPath) / file).string());
            if (!read) continue;
            info = std::move(*read);
            return;
        }
    });
    return info;
}

std::optional<std::string> Bundle::infoText(std::string_view key) const {
    const auto text = infoDictionary()[key].string();
    return text ? std::optional(std::string(*text)) : std::nullopt;
}

} // namespace platform
