#pragma once

// A dictionary that finds a name however it is typed, as long as one spelling of it is known, and keeps Mb
// and mb apart once both exist. Function and variable lists rest on it. Keys are strings by content,
// retained; items are untyped pointers, neither retained nor freed. Sets guard against each other by a mutex;
// a lookup takes none, so nothing may be set while others read.
//
// Invariant, as long as entries are set with `caseSensitive` false: a lowercase key has at most one entry
// that any casing finds, and then no other entry has that lowercase key. Keys that differ in case only need
// their exact spelling.

#include "runtime/Object.h"
#include "runtime/Ref.h"
#include "runtime/String.h"

#include <cstdint>
#include <memory>
#include <mutex>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace TBF {

class CaseInsensitiveDictionary final : public Object<CaseInsensitiveDictionary> {
public:
    static Ref<CaseInsensitiveDictionary> create();

    // Enters `item` under `key`, whose lower-case form the caller has; a null item removes the entry. The
    // item that was replaced goes to `replacedOut`, which may be null and is left alone if none was.
    void setItem(void* item, String& key, String& lowercaseKey, bool caseSensitive,
                 void** replacedOut = nullptr);
    void setItem(void* item, String& key, bool caseSensitive, void** replacedOut = nullptr);

    // The item or null. `exactCaseOut`, if not null, tells whether the key is spelled as the entry's was;
    // false if there is none. Allocates nothing.
    void* find(const HashedText& key, const HashedText& lowercaseKey, bool* exactCaseOut = nullptr) const;
    void* find(std::u16string_view key, std::u16string_view lowercaseKey, bool* exactCaseOut = nullptr) const;
    void* find(const String& key) const;

    int32_t count() const noexcept;

    // The items that any casing finds, then the others.
    std::vector<void*> items() const;

    // Calls `function(item)` on the items that need their exact key, then on the others, as they stand at
    // first; it may change them.
    void apply(void (*function)(void* item)) const;

    void removeAll();

private:
    friend class Object<CaseInsensitiveDictionary>;

    struct Node;
    using Nodes = std::unordered_map<Ref<String>, Node*, StringContentHash, StringContentEqual>;

    // The nodes of one lowercase key, one after the other: nearly always one.
    using Siblings = std::unique_ptr<Node>;

    // A document may declare a hundred thousand names, so a node is small.
    struct Node {
        Node(void* value, String& key, String& lowercaseKey, Siblings others, bool isCaseSensitive)
            : item(value)
            , givenKey(TBF::retain(&key))
            , siblingsKey(TBF::retain(&lowercaseKey))
            , next(std::move(others))
            , caseSensitive(isCaseSensitive) {}
        ~Node() { // one by one: a name may have very many spellings
            while (next)
                next = std::move(next->next);
        }

        void* item;
        Ref<String> givenKey;    // the key as it was given
        Ref<String> siblingsKey; // the lowercase key under which it is owned
        Siblings next;
        bool caseSensitive;
        bool needsExactKey = false; // in which dictionary it stands, and so under which key
    };

    CaseInsensitiveDictionary() = default;
    ~CaseInsensitiveDictionary() override = default;

    Node* findNode(const Nodes& nodes, const HashedText& key) const;
    Nodes& dictionaryOf(const Node& node) {
        return node.needsExactKey ? caseSensitiveItems : caseInsensitiveItems;
    }
    void store(Node& node, bool needsExactKey);
    void takeOut(Node& node);

    void add(void* item, String& key, String& lowercaseKey, bool caseSensitive);
    void addSecondSpelling(Node& first, void* item, String& key, String& lowercaseKey, bool caseSensitive);
    Node& addSibling(Siblings& siblings, void* item, String& key, String& lowercaseKey, bool caseSensitive);
    void remove(Node& node);

    HashFilter storedKeys;      // of both
    Nodes caseSensitiveItems;   // found by their exact key
    Nodes caseInsensitiveItems; // found by any casing, stored under the lowercase key

    // Owns every node. The keys stay when they have none.
    std::unordered_map<Ref<String>, Siblings, StringContentHash, StringContentEqual> itemsByLowercaseKey;
    std::mutex mutex;
};

} // namespace TBF
