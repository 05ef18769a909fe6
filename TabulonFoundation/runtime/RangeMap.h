#pragma once

// A map from half-open integer intervals to values, for carrying positions in a rewritten expression back to
// the text as typed. It is filled first and then read; readers may share it between threads. An entry at
// boundary k says what holds from k up to the next boundary, and the last entry is always absent.

#include "runtime/Object.h"
#include "runtime/Ref.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <map>
#include <optional>

namespace TBF {

template <typename T>
class RangeMap final : public Object<RangeMap<T>> {
public:
    static Ref<RangeMap> create() { return make<RangeMap>(); }

    // Sets `value` from `from` up to, not including, `to`, over whatever holds there. Nothing if the
    // interval is empty.
    void put(int32_t from, int32_t to, const T& value) {
        if (from >= to) return;
        const auto low = entries.lower_bound(from);
        const auto high = entries.upper_bound(to);
        if (low != entries.end() && high != entries.begin()) {
            const Entry ruling = std::prev(high)->second; // at `to`
            const bool isFollowed = high != entries.end();
            entries.erase(low, high);
            if (isFollowed) entries.insert_or_assign(to, ruling);
        }
        entries.insert_or_assign(from, Entry{value, false});
        entries.try_emplace(to, absentEntry); // what follows is absent unless another interval holds it
    }

    // Borrowed, valid until the next put; null where nothing holds.
    const T* get(int32_t key) const {
        const auto behind = entries.upper_bound(key);
        if (behind == entries.end() || behind == entries.begin()) return nullptr;
        const Entry& entry = std::prev(behind)->second;
        return entry.absent ? nullptr : &entry.value;
    }

    // The greatest mapped key in [from, to); none if `to` lies in a gap.
    std::optional<int32_t> findMaxKeyInRange(int32_t from, int32_t to) const {
        const auto next = entries.lower_bound(to);
        if (next == entries.begin()) return std::nullopt;
        const auto previous = std::prev(next);
        const bool hasNext = next != entries.end();
        if (hasNext && !next->second.absent && previous->second.absent) return std::nullopt;
        const int32_t bound = std::min(to, hasNext ? next->first : previous->first);
        if (bound <= from) return std::nullopt;
        return bound - 1;
    }

private:
    friend class Object<RangeMap<T>>;

    struct Entry {
        T value;
        bool absent;
    };

    RangeMap() = default;
    ~RangeMap() override = default;

    std::map<int32_t, Entry> entries;
    const Entry absentEntry{T{}, true};
};

} // namespace TBF
