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

void CaseInsensitiveDictionary::store(Node& node, Nodes& nodes, String& storedKey) {
    node.storedKey = TBF::retain(&storedKey);
    node.storedDictionary = &nodes;
    storedKeys.add(storedKey.hash());
    nodes.insert_or_assign(node.storedKey, &node);
}

void CaseInsensitiveDictionary::takeOut(Node& node) {
    // Another node may have taken the place when entries with and without case sensitivity are mixed.
    const auto found = node.storedDictionary->find(node.storedKey);
    if (found != node.storedDictionary->end() && found->second == &node) node.storedDictionary->erase(found);
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
    if (node->storedDictionary == &caseInsensitiveItems && !node->givenKey->equals(key)) {
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
        if (caseSensitive) {
            store(*node, caseSensitiveItems, key);
        } else {
            store(*node, caseInsensitiveItems, lowercaseKey);
        }
        node->caseSensitive = caseSensitive;
    }
    void* const replaced = std::exchange(node->item, item);
    if (replacedOut) *replacedOut = replaced;
}

void CaseInsensitiveDictionary::add(void* item, String& key, String& lowercaseKey, bool caseSensitive) {
    Siblings& siblings = itemsByLowercaseKey[TBF::retain(&lowercaseKey)];
    const bool anyCase = siblings.empty() && !caseSensitive;
    Node& node = *siblings.emplace_back(std::make_unique<Node>(
        Node{item, nullptr, TBF::retain(&key), TBF::retain(&lowercaseKey), nullptr, caseSensitive}));
    if (anyCase) {
        store(node, caseInsensitiveItems, lowercaseKey);
    } else {
        store(node, caseSensitiveItems, key);
    }
}

void CaseInsensitiveDictionary::addSecondSpelling(Node& first, void* item, String& key, String& lowercaseKey,
                                                  bool caseSensitive) {
    takeOut(first);
    store(first, caseSensitiveItems, *first.givenKey);
    Siblings& siblings = itemsByLowercaseKey[TBF::retain(&lowercaseKey)];
    Node& node = *siblings.emplace_back(std::make_unique<Node>(
        Node{item, nullptr, TBF::retain(&key), TBF::retain(&lowercaseKey), nullptr, caseSensitive}));
    store(node, caseSensitiveItems, key);
}

void CaseInsensitiveDictionary::remove(Node& node) {
    takeOut(node);
    const Ref<String> lowercaseKey = node.siblingsKey;
    Siblings& siblings = itemsByLowercaseKey[lowercaseKey];
    std::erase_if(siblings, [&node](const std::unique_ptr<Node>& sibling) { return sibling.get() == &node; });
    if (siblings.size() != 1) return;
    // The only spelling that is left is found in any case again.
    Node& last = *siblings.front();
    if (last.storedDictionary != &caseSensitiveItems || last.caseSensitive) return;
    takeOut(last);
    store(last, caseInsensitiveItems, *lowercaseKey);
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
