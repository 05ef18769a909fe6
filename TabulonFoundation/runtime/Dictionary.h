#pragma once

// The body behind TBFDictionary handles: a hash dictionary from strings, which it retains and compares by
// content, to untyped pointers, which it doesn't retain. The order of keys is undefined. Used by one
// thread at a time.

#include "runtime/Object.h"
#include "runtime/Ref.h"
#include "runtime/String.h"

#include <cstdint>
#include <string_view>
#include <unordered_map>

namespace TBF {

class Dictionary final : public Object<Dictionary> {
public:
    static Ref<Dictionary> create();

    int32_t count() const noexcept { return static_cast<int32_t>(entries.size()); }

    // Null if there is no such key.
    void* value(std::u16string_view key) const;

    void setValue(void* value, String* key);
    void removeValue(std::u16string_view key);
    void removeAll() { entries.clear(); }

    // Calls `function(key, value, context)` on the entries that stand here at first; it may change them.
    void apply(void (*function)(String* key, void* value, void* context), void* context) const;

    using Entries = std::unordered_map<Ref<String>, void*, StringContentHash, StringContentEqual>;
    const Entries& contents() const noexcept { return entries; }

private:
    friend class Object<Dictionary>;

    Dictionary() = default;
    ~Dictionary() override = default;

    Entries entries;
};

} // namespace TBF
