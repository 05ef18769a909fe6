#pragma once

// Identifiers of objects, with the kind of object in their type so that ids of different kinds can't be
// mixed, and objects that sets and maps keep unique by identifier. Plain values; as thread-safe as
// std::string.

#include <compare>
#include <cstddef>
#include <functional>
#include <string>
#include <type_traits>
#include <utility>

namespace tbf {

// The identifier of an object of type `T`, which may be incomplete. Ordered by its bytes as unsigned numbers;
// of two texts of which one begins the other, the shorter one is less.
template <typename T>
class StringId {
public:
    StringId() = default;
    explicit StringId(std::string text)
        : identifier(std::move(text)) {}

    const std::string& string() const noexcept { return identifier; }
    bool isEmpty() const noexcept { return identifier.empty(); }

    bool operator==(const StringId&) const = default;
    std::strong_ordering operator<=>(const StringId& other) const noexcept {
        return identifier.compare(other.identifier) <=> 0;
    }

private:
    std::string identifier;
};

// An object with its identifier; order and equality look at the identifier alone. `T` is mostly a handle,
// which is not retained: whoever keeps the UniqueObj sees to it that the object lives as long.
template <typename T>
class UniqueObj {
public:
    using Id = StringId<std::remove_pointer_t<T>>;

    UniqueObj(Id objectId, T uniqueObject)
        : id(std::move(objectId))
        , object(std::move(uniqueObject)) {}

    const Id& identifier() const noexcept { return id; }
    const T& get() const noexcept { return object; }

    bool operator==(const UniqueObj& other) const noexcept { return id == other.id; }
    std::strong_ordering operator<=>(const UniqueObj& other) const noexcept { return id <=> other.id; }

private:
    Id id;
    T object;
};

} // namespace tbf

template <typename T>
struct std::hash<tbf::StringId<T>> {
    std::size_t operator()(const tbf::StringId<T>& id) const noexcept {
        return std::hash<std::string>()(id.string());
    }
};
