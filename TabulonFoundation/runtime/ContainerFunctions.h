#pragma once

// Small operations on standard containers. As thread-safe as their arguments.

#include <vector>

namespace tbf {

// Copies a range of entries into a map; a key that exists takes the new value.
template <typename Map, typename Iterator>
void insertAndOverride(Map& map, Iterator first, Iterator last) {
    for (; first != last; ++first)
        map.insert_or_assign(first->first, first->second);
}

// The values of a map, in the order of its keys.
template <typename Map>
std::vector<typename Map::mapped_type> mapValues(const Map& map) {
    std::vector<typename Map::mapped_type> values;
    values.reserve(map.size());
    for (const auto& [key, value] : map)
        values.push_back(value);
    return values;
}

// Deletes what every pointer of a vector owns. The pointers stay in the vector, dangling.
template <typename T>
void deleteAll(const std::vector<T*>& pointers) {
    for (T* const pointer : pointers)
        delete pointer;
}

} // namespace tbf
