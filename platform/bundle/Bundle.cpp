#include "bundle/Bundle.h"

#include <filesystem>
#include <functional>
#include <map>
#include <mutex>
#include <utility>

namespace platform {

namespace {

struct Registry {
    std::mutex mutex;
    std::map<std::string, std::shared_ptr<const Bundle>, std::less<>> bundles;

    static Registry& shared() {
        static auto& registry = *new Registry; // never destroyed, so that threads may outlive `main`
        return registry;
    }
};

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

std::optional<std::string> Bundle::pathForResource(std::string_view resource, std::string_view type) const {
    std::string file(resource);
    if (!type.empty()) file.append(".").append(type);
    const std::filesystem::path path = std::filesystem::path(folderPath) / file;
    std::error_code ignored;
    if (!std::filesystem::exists(path, ignored)) return std::nullopt;
    return path.string();
}

} // namespace platform
