#pragma once

// A set of line indexes at a bit each, for sets that hold most indexes of a document and perhaps a few far
// ones. Used by the dependency graph, under its lock.

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>

namespace TBF {

class IndexBits {
public:
    void insert(uint32_t index) {
        uint64_t& word = pages[index / pageBits][index % pageBits / wordBits];
        const uint64_t bit = uint64_t{1} << (index % wordBits);
        if (word & bit) return;
        word |= bit;
        ++count_;
    }

    std::size_t count() const { return count_; }

    // Sends each index, ascending, to `visit(index)`.
    template <typename Visitor>
    void forEach(Visitor&& visit) const {
        for (const auto& [page, words] : pages)
            for (uint32_t place = 0; place < pageBits; ++place)
                if (words[place / wordBits] >> (place % wordBits) & 1) visit(page * pageBits + place);
    }

private:
    static constexpr uint32_t wordBits = 64;
    static constexpr uint32_t pageBits = 4096;

    std::map<uint32_t, std::array<uint64_t, pageBits / wordBits>> pages;
    std::size_t count_ = 0;
};

} // namespace TBF
