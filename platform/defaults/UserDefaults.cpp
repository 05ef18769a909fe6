#include "defaults/UserDefaults.h"

#include <utility>

namespace platform {

UserDefaults& UserDefaults::standard() {
    static auto& store = *new UserDefaults;
    return store;
}

PropertyList UserDefaults::object(std::string_view key) const {
    const std::lock_guard guard(mutex);
    const PropertyList* const value = values.find(key);
    return value ? *value : PropertyList();
}

void UserDefaults::setObject(std::string_view key, PropertyList value) {
    const std::lock_guard guard(mutex);
    if (value.isNull()) {
        values.remove(key);
    } else {
        values.set(key, std::move(value));
    }
}

std::optional<std::string> UserDefaults::string(std::string_view key) const {
    const PropertyList value = object(key);
    const auto text = value.string();
    return text ? std::optional<std::string>(*text) : std::nullopt;
}

bool UserDefaults::readFile(const std::string& path, std::string* error) {
    const auto contents = PropertyList::read(path, error);
    if (!contents) return false;
    if (contents->kind() != PropertyList::Kind::dictionary) {
        if (error) *error = path + ": the file holds no dictionary";
        return false;
    }
    for (const auto& [key, value] : contents->dictionary())
        setObject(key, value);
    return true;
}

bool UserDefaults::writeFile(const std::string& path, std::string* error) const {
    PropertyList::Dictionary present;
    {
        const std::lock_guard guard(mutex);
        present = values;
    }
    return PropertyList(std::move(present)).write(path, error);
}

} // namespace platform
