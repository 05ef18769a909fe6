#pragma once

// What the user has chosen for all documents, by key. A host fills the store at its start, from a file of its
// own or from its settings, and may save it; an unknown key has no value. Any thread may read and write.

#include "propertylist/PropertyList.h"

#include <mutex>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

class UserDefaults {
public:
    UserDefaults() = default;
    UserDefaults(const UserDefaults&) = delete;
    UserDefaults& operator=(const UserDefaults&) = delete;

    // The store of the process, empty at first; never destroyed.
    static UserDefaults& standard();

    // Null for an unknown key. A null value takes the key out.
    PropertyList object(std::string_view key) const;
    void setObject(std::string_view key, PropertyList value);

    // A text, UTF-8; none for an unknown key and for a value of another kind.
    std::optional<std::string> string(std::string_view key) const;

    // A property list with a dictionary, whose keys replace those of the same name here. False, with the
    // reason (may be null), if it can't be read or written.
    bool readFile(const std::string& path, std::string* error);
    bool writeFile(const std::string& path, std::string* error) const;

private:
    mutable std::mutex mutex; // guards `values`
    PropertyList::Dictionary values;
};

} // namespace platform
