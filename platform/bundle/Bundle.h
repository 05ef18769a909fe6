#pragma once

// A folder of resources that belongs to a piece of code, found by the identifier of that code or by its path.
// A host says where the bundles are before it asks for any; afterwards any thread may look them up. A bundle
// itself never changes.
//
// A resource may stand in the bundle's folder, in the folder "Resources" or "Contents/Resources" of it, and,
// if it depends on the language, in "<localization>.lproj" of either.

#include "propertylist/PropertyList.h"

#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

class Bundle {
public:
    // Makes a folder known as the bundle with this identifier, instead of an earlier one. The folder need not
    // exist: then it has no resources.
    static void registerBundle(std::string identifier, std::string folder);

    // Null if no such bundle is known.
    static std::shared_ptr<const Bundle> bundleWithIdentifier(std::string_view identifier);

    // The bundle in a folder, under the identifier that its information gives. Null if there is no such
    // folder.
    static std::shared_ptr<const Bundle> bundleWithPath(std::string folder);

    Bundle(std::string bundleIdentifier, std::string folder);

    const std::string& identifier() const { return name; }
    const std::string& path() const { return folderPath; }

    // The path of the resource "<resource>.<type>", a file or a folder; none if there is no such thing. An
    // empty type adds no point. What doesn't depend on the language comes first, then the preferred
    // localizations in turn.
    std::optional<std::string> pathForResource(std::string_view resource, std::string_view type) const;

    // The same in one localization, such as "en", alone.
    std::optional<std::string> pathForResource(std::string_view resource, std::string_view type,
                                               std::string_view localization) const;

    // The localizations that have a folder, sorted.
    std::vector<std::string> localizations() const;

    // Those of them that fit the languages which the user wants, the best one first; then the
    // one of the development region, where there is one. With no language in common, that alone.
    std::vector<std::string> preferredLocalizations() const;

    // The contents of "Info.plist", null without one. Read at the first question.
    const PropertyList& infoDictionary() const;

    // A text of that dictionary; none if it has no such text.
    std::optional<std::string> infoText(std::string_view key) const;

private:
    std::vector<std::string> resourceFolders() const;

    std::string name;
    std::string folderPath;
    mutable std::once_flag infoOnce;
    mutable PropertyList info;
};

} // namespace platform
