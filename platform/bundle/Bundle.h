#pragma once

// A folder of resources that belongs to a piece of code, found by the identifier of that code. A host says
// where the bundles are before it asks for any; afterwards any thread may look them up. A bundle itself never
// changes.

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

class Bundle {
public:
    // Makes a folder known as the bundle with this identifier, instead of an earlier one. The folder need not
    // exist: then it has no resources.
    static void registerBundle(std::string identifier, std::string folder);

    // Null if no such bundle is known.
    static std::shared_ptr<const Bundle> bundleWithIdentifier(std::string_view identifier);

    Bundle(std::string bundleIdentifier, std::string folder);

    const std::string& identifier() const { return name; }
    const std::string& path() const { return folderPath; }

    // The path of the resource "<resource>.<type>", a file or a folder; none if there is no such thing. An
    // empty type adds no point.
    std::optional<std::string> pathForResource(std::string_view resource, std::string_view type) const;

private:
    std::string name;
    std::string folderPath;
};

} // namespace platform
