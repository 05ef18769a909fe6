#pragma once

// A value with a weight, for sorting candidates by weight: `std::sort(begin, end, std::greater<>())` puts
// the heaviest first. A plain value.

#include <compare>

namespace tbf {

template <typename W, typename T>
struct WeightedContainer {
    W weight;
    T value;

    // The value takes no part in the order, nor in equality.
    bool operator==(const WeightedContainer& other) const { return weight == other.weight; }
    auto operator<=>(const WeightedContainer& other) const { return weight <=> other.weight; }
};

} // namespace tbf
