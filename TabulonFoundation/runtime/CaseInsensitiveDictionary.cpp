#include "runtime/CaseInsensitiveDictionary.h"

#include <algorithm>
#include <utility>

namespace TBF {

Ref<CaseInsensitiveDictionary> CaseInsensitiveDictionary::create() {
    return make<CaseInsensitiveDictionary>();
}

CaseInsensitiveDictionary::Node* CaseInsensitiveDictionary::findNode(const Nodes& nodes,
                                                                     const HashedText& key) const {
    if (!storedKeys.mayHold(key.hash)) return nullptr;
    const auto found = nodes.find(key);
    return found != nodes.end() ? found->second : nullptr;
}

void CaseInsensitiveDictionary::store(Node& node, bool needsExactKey) {
    node.needsExactKey = needsExactKey;
    const Ref<String>& key = needsExactKey ? node.givenKey : node.siblingsKey;
    storedKeys.add(key->hash());
    dictionaryOf(node).insert_or_assign(key, &node);
}

void CaseInsensitiveDictionary::takeOut(Node& node) {
    // Another node may have taken the place when entries with and without case sensitivity are mixed.
    Nodes& nodes = dictionaryOf(node);
    const auto found = nodes.find(node.needsExactKey ? node.givenKey : node.siblingsKey);
    if (found != nodes.end() && found->second == &node) nodes.erase(found);
}

void CaseInsensitiveDictionary::setItem(void* item, String& key, bool caseSensitive, void** replacedOut) {
    const Ref<String> lowercaseKey = key.lowercase();
    setItem(item, key, *lowercaseKey, caseSensitive, replacedOut);
}

void CaseInsensitiveDictionary::setItem(void* item, String& key, String& lowercaseKey, bool caseSensitive,
                                        void** replacedOut) {
    const std::lock_guard lock(mutex);
    Node* node = findNode(caseSensitiveItems, HashedText(key));
    if (!node) node = findNode(caseInsensitiveItems, HashedText(lowercaseKey));
    if (!node) {
        if (item) add(item, key, lowercaseKey, caseSensitive);
        return;
    }
    if (!node->needsExactKey && !node->givenKey->equals(key)) {
        // Another casing than the one that is known adds a spelling, and removes nothing.
        if (item) addSecondSpelling(*node, item, key, lowercaseKey, caseSensitive);
        return;
    }
    if (!item) {
        remove(*node);
        return;
    }
    if (node->caseSensitive != caseSensitive) {
        takeOut(*node);
        node->givenKey = TBF::retain(&key);
        store(*node, caseSensitive);
        node->caseSensitive = caseSensitive;
    }
    void* const replaced = std::exchange(node->item, item);
    if (replacedOut) *replacedOut = replaced;
}

CaseInsensitiveDictionary::Node& CaseInsensitiveDictionary::addSibling(Siblings& siblings, void* item,
                                                                       String& key, String& lowercaseKey,
                                                                       bool caseSensitive) {
    siblings = std::make_unique<Node>(item, key, lowercaseKey, std::move(siblings), caseSensitive);
    return *siblings;
}

void CaseInsensitiveDictionary::add(void* item, String& key, String& lowercaseKey, bool caseSensitive) {
    Siblings& siblings = itemsByLowercaseKey[TBF::retain(&lowercaseKey)];
    const bool anyCase = !siblings && !caseSensitive;
    store(addSibling(siblings, item, key, lowercaseKey, caseSensitive), !anyCase);
}

void CaseInsensitiveDictionary::addSecondSpelling(Node& first, void* item, String& key, String& lowercaseKey,
                                                  bool caseSensitive) {
    takeOut(first);
    store(first, true);
    Siblings& siblings = itemsByLowercaseKey[TBF::retain(&lowercaseKey)];
    store(addSibling(siblings, item, key, lowercaseKey, caseSensitive), true);
}

void CaseInsensitiveDictionary::remove(Node& node) {
    takeOut(node);
    const Ref<String> lowercaseKey = node.siblingsKey;
    Siblings& siblings = itemsByLowercaseKey[lowercaseKey];
    Siblings* place = &siblings;
    while (place->get() != &node)
        place = &(*place)->next;
    const Siblings removed = std::exchange(*place, std::move(node.next));
    if (!siblings || siblings->next) return;
    // The only spelling that is left is found in any case again.
    Node& last = *siblings;
    if (!last.needsExactKey || last.caseSensitive) return;
    takeOut(last);
    store(last, false);
}

void* CaseInsensitiveDictionary::find(const HashedText& key, const HashedText& lowercaseKey,
                                      bool* exactCaseOut) const {
    const Node* node = findNode(caseSensitiveItems, key);
    if (!node) node = findNode(caseInsensitiveItems, lowercaseKey);
    if (exactCaseOut) *exactCaseOut = node && node->givenKey->view() == key.text;
    return node ? node->item : nullptr;
}

void* CaseInsensitiveDictionary::find(std::u16string_view key, std::u16string_view lowercaseKey,
                                      bool* exactCaseOut) const {
    return find(HashedText(key), HashedText(lowercaseKey), exactCaseOut);
}

void* CaseInsensitiveDictionary::find(const String& key) const {
    return find(HashedText(key), HashedText(*key.lowercase()));
}

int32_t CaseInsensitiveDictionary::count() const noexcept {
    return static_cast<int32_t>(caseSensitiveItems.size() + caseInsensitiveItems.size());
}

std::vector<void*> CaseInsensitiveDictionary::items() const {
    std::vector<void*> result;
    result.reserve(caseSensitiveItems.size() + caseInsensitiveItems.size());
    for (const auto& [key, node] : caseInsensitiveItems)
        result.push_back(node->item);
    for (const auto& [key, node] : caseSensitiveItems)
        result.push_back(node->item);
    return result;
}

void CaseInsensitiveDictionary::apply(void (*function)(void* item)) const {
    std::vector<void*> present;
    present.reserve(caseSensitiveItems.size() + caseInsensitiveItems.size());
    for (const auto& [key, node] : caseSensitiveItems)
        present.push_back(node->item);
    for (const auto& [key, node] : caseInsensitiveItems)
        present.push_back(node->item);
    for (void* const item : present)
        function(item);
}

void CaseInsensitiveDictionary::removeAll() {
    const std::lock_guard lock(mutex);
    storedKeys.clear();
    caseSensitiveItems.clear();
    caseInsensitiveItems.clear();
    itemsByLowercaseKey.clear();
}

} // namespace TBF
