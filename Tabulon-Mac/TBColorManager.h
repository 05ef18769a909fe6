#pragma once

// The colours of the application by their identifiers: a default set, and over it the user's own. There is
// one manager in a process. It is filled by one thread, and afterwards read by any.

#include "TBColor.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

// Posted to the shared centre with the TBColor when the colour of an identifier has changed.
inline constexpr const char* TBColorDidChange = "TBColorDidChange";

class TBColorManager {
public:
    using DataSource = std::vector<std::shared_ptr<TBColor>>;

    static TBColorManager& sharedInstance();
    TBColorManager(const TBColorManager&) = delete;
    TBColorManager& operator=(const TBColorManager&) = delete;

    // The first colour with this identifier; null for none.
    std::shared_ptr<TBColor> colorForIdentifier(std::string_view identifier) const;

    // Changes the first colour with this identifier and tells of it, or adds a new one and tells nobody.
    void setColor(const platform::Color& color, std::string_view identifier, bool persistant);

    // Adds the colours of a file behind those that are there. A file that can't be read adds none.
    void loadDefaultsFromPath(const std::string& path);

    // Lets the colours of a file take the place of those with their identifiers. False, and all stays, for a
    // file without colours; `error`, where given, then has one sentence behind the path.
    bool loadColorsFromPath(const std::string& path, std::string* error = nullptr);

    // Writes the persistent colours, and who writes them. Failure is told in the log.
    void saveColorsToPath(const std::string& path, const platform::PropertyList& info) const;

    // The colour with these very components if there is one; otherwise a new one, "Undefined" and not saved.
    static platform::Color colorWithRed(double red, double green, double blue, double alpha);

    // In the order of entry.
    DataSource& dataSource() { return colors; }
    const DataSource& dataSource() const { return colors; }

private:
    TBColorManager() = default;

    DataSource colors;
};
