#pragma once

// The dictionaries of a document file: texts by keys, in the order of the keys, so that a document that
// is written twice gives the same file. A value like any other; its strings are shared.

#include "runtime/Ref.h"
#include "runtime/String.h"

#include <cstddef>
#include <map>
#include <string_view>
#include <utility>

namespace TBF {

class FileDictionary {
    struct KeyOrder {
        using is_transparent = void;
        bool operator()(const Ref<String>& a, const Ref<String>& b) const { return a->view() < b->view(); }
        bool operator()(const Ref<String>& a, std::u16string_view b) const { return a->view() < b; }
        bool operator()(std::u16string_view a, const Ref<String>& b) const { return a < b->view(); }
    };

public:
    using Items = std::map<Ref<String>, Ref<String>, KeyOrder>;

    // Replaces the value that the key has. A null key or value is no item.
    void set(Ref<String> key, Ref<String> value) {
        if (key && value) items.insert_or_assign(std::move(key), std::move(value));
    }

    // Borrowed; null for a key that isn't there.
    String* find(std::u16string_view key) const {
        const auto found = items.find(key);
        return found == items.end() ? nullptr : found->second.get();
    }

    bool isEmpty() const { return items.empty(); }
    std::size_t count() const { return items.size(); }
    Items::const_iterator begin() const { return items.begin(); }
    Items::const_iterator end() const { return items.end(); }

private:
    Items items;
};

} // namespace TBF
