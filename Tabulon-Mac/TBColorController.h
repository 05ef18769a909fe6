#pragma once

// The application's choice of how pages look: which colours there are, and where they go in a page. Used by
// the plug-in and other hosts, on the thread that makes the page.

#include "export/TKLineCollectionExporterHTMLStyle.h"

#include <optional>
#include <span>
#include <string>

class TBColorManager;

namespace platform {
class Bundle;
}

class TBColorController {
public:
    // The start of an application: the defaults of its bundle, the user's own colours over them, and black
    // for what neither has.
    void beginLife(const platform::Bundle& mainBundle);

    // Its end: saves the colours where `beginLife` looked for them.
    void endLife(const platform::Bundle& mainBundle) const;

    // The user's own colours; none for a user without a place of their own.
    const std::optional<std::string>& dataSourcePath() const { return path; }
    void setDataSourcePath(std::optional<std::string> newPath) { path = std::move(newPath); }

    // The identifiers of the colours of tokens, in the order in which a user is shown them.
    static std::span<const char* const> syntaxColoringColorIdentifiers();

    // A new style with the colours of the shared manager, or of another.
    static TKLineCollectionExporterHTMLStyle htmlStyle();
    static TKLineCollectionExporterHTMLStyle htmlStyleForColorManager(const TBColorManager& manager);

private:
    std::optional<std::string> path;
};
