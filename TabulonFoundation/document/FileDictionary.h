#pragma once

// The dictionaries of a document file: texts by keys, in the order of the keys, so that a document that
// is written twice gives the same file. A value like any other; copies share their items until one of them
// changes, so that the lines of a document, which are nearly all alike, hold them once.

#include "runtime/Ref.h"
#include "runtime/String.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <memory>
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
        if (!key || !value) return;
        if (!shared)
            shared = std::make_shared<Items>();
        else if (shared.use_count() > 1)
            shared = std::make_shared<Items>(*shared);
        shared->insert_or_assign(std::move(key), std::move(value));
    }

    // Borrowed; null for a key that isn't there.
    String* find(std::u16string_view key) const {
        const auto found = items().find(key);
        return found == items().end() ? nullptr : found->second.get();
    }

    bool isEmpty() const { return items().empty(); }
    std::size_t count() const { return items().size(); }
    Items::const_iterator begin() const { return items().begin(); }
    Items::const_iterator end() const { return items().end(); }

    // Holds the items of the other one if they are the same texts.
    void shareWith(const FileDictionary& other) {
        const auto isSame = [](const auto& a, const auto& b) {
            return a.first->equals(*b.first) && a.second->equals(*b.second);
        };
        if (std::equal(begin(), end(), other.begin(), other.end(), isSame)) shared = other.shared;
    }

private:
    const Items& items() const {
        static const Items& none = *new Items;
        return shared ? *shared : none;
    }

    std::shared_ptr<Items> shared; // null without items
};

} // namespace TBF
