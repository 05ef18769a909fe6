#include "units/UnitSearchIndex.h"

#include "runtime/Unicode.h"
#include "units/UnitContainer.h"

#include <algorithm>
#include <mutex>
#include <string>
#include <utility>

namespace TBF {

namespace {

// Names and aliases together, for the first size of the table. More only cost time.
constexpr std::size_t expectedNamesPerUnit = 6;

// The words of a name: what stands between spaces.
class WordReader {
public:
    explicit WordReader(std::u16string_view name)
        : rest(name) {}

    // False at the end.
    bool next(std::u16string_view& word) {
        const std::size_t start = rest.find_first_not_of(u' ');
        if (start == std::u16string_view::npos) return false;
        rest.remove_prefix(start);
        const std::size_t length = std::min(rest.find(u' '), rest.size());
        word = rest.substr(0, length);
        rest.remove_prefix(length);
        return true;
    }

private:
    std::u16string_view rest;
};

// A text in lower case that isn't copied if it is that already.
class Lowercased {
public:
    explicit Lowercased(std::u16string_view text)
        : original(text)
        , isOriginal(isLowercaseASCII(text)) {
        if (!isOriginal) converted = lowercase(text);
    }
    std::u16string_view view() const { return isOriginal ? original : std::u16string_view(converted); }

private:
    std::u16string_view original;
    bool isOriginal;
    std::u16string converted;
};

} // namespace

// A name as it goes into the index.
struct UnitSearchIndex::Name {
    Ref<String> text;
    TBFUnitFormatType formatType;
};

std::size_t UnitSearchIndex::EdgeHash::operator()(const EdgeKey& key) const noexcept {
    return key.word->hash() ^ (std::size_t{key.from} * 0x9E3779B97F4A7C15);
}

std::size_t UnitSearchIndex::EdgeHash::operator()(const EdgeProbe& key) const noexcept {
    return key.wordHash ^ (std::size_t{key.from} * 0x9E3779B97F4A7C15);
}

bool UnitSearchIndex::Result::hasWords(Words words) const {
    WordReader reader(name->view());
    std::u16string_view own;
    for (const std::u16string_view word : words) {
        if (!reader.next(own) || own != word) return false;
    }
    return !reader.next(own);
}

UnitSearchIndex::UnitSearchIndex()
    : nodes(1)
    , edgeFilter(filterBits) {}

UnitSearchIndex::~UnitSearchIndex() = default;

Ref<UnitSearchIndex> UnitSearchIndex::create() {
    return make<UnitSearchIndex>();
}

void UnitSearchIndex::addUnit(UnitContainer& unit) {
    const std::unique_lock guard(lock);
    add(unit);
}

void UnitSearchIndex::addUnits(std::span<const Ref<UnitContainer>> units) {
    const std::unique_lock guard(lock);
    // Only for the first load: to reserve a little again and again would undo the table's own growth.
    if (edges.empty()) edges.reserve(units.size() * expectedNamesPerUnit);
    for (const Ref<UnitContainer>& unit : units)
        add(*unit);
}

// Names in order of their types, then the aliases.
std::vector<UnitSearchIndex::Name> UnitSearchIndex::namesOf(const UnitContainer& unit) {
    std::vector<Name> names;
    const auto enter = [&names](const Ref<String>& text, TBFUnitNameType nameType) {
        names.push_back({text, TBFUnitFormatTypeFromTBFUnitNameType(nameType)});
    };
    for (int32_t type = TBFUnitNameTypeSingular; type < TBFUnitNameTypeSlotCount; ++type) {
        const auto nameType = static_cast<TBFUnitNameType>(type);
        if (unit.nameString(nameType)) enter(unit.nameString(nameType), nameType);
    }
    for (const UnitContainer::Alias& alias : unit.aliases())
        enter(alias.text, alias.nameType);
    return names;
}

void UnitSearchIndex::add(UnitContainer& unit) {
    for (const Name& name : namesOf(unit)) {
        const Index node = nodeOfNameMakingIt(name.text);
        if (node == root) continue; // a name without words
        addResult(node, {TBF::retain(&unit), name.text, name.formatType,
                         unit.isNameCaseSensitive(name.text->view())});
    }
}

void UnitSearchIndex::addResult(Index node, Result result) {
    for (Index i = nodes[node].firstEntry; i != none; i = entries[i].next) {
        const Result& present = entries[i].result;
        if (present.formatType == result.formatType &&
            present.unit->identifier() == result.unit->identifier() && present.name->equals(*result.name)) {
            return;
        }
    }
    Index place = firstFreeEntry;
    if (place == none) {
        place = static_cast<Index>(entries.size());
        entries.emplace_back();
    } else {
        firstFreeEntry = entries[place].next;
    }
    entries[place] = {std::move(result), none};
    Node& owner = nodes[node];
    if (owner.lastEntry == none) {
        owner.firstEntry = place;
    } else {
        entries[owner.lastEntry].next = place;
    }
    owner.lastEntry = place;
    countInAncestors(node, 1);
}

void UnitSearchIndex::removeUnit(const UnitContainer& unit) {
    const std::unique_lock guard(lock);
    for (const Name& name : namesOf(unit)) {
        const Index node = nodeOfName(name.text->view());
        if (node != none) removeResults(node, unit);
    }
}

void UnitSearchIndex::removeResults(Index node, const UnitContainer& unit) {
    Index previous = none;
    for (Index i = nodes[node].firstEntry; i != none;) {
        const Index next = entries[i].next;
        if (entries[i].result.unit->identifier() != unit.identifier()) {
            previous = i;
        } else {
            (previous == none ? nodes[node].firstEntry : entries[previous].next) = next;
            if (nodes[node].lastEntry == i) nodes[node].lastEntry = previous;
            entries[i] = {{}, firstFreeEntry};
            firstFreeEntry = i;
            countInAncestors(node, -1);
        }
        i = next;
    }
}

std::vector<UnitSearchIndex::Result> UnitSearchIndex::find(Words words, bool* hasLongerNames) const {
    std::vector<Lowercased> lowercased;
    std::vector<std::u16string_view> views;
    lowercased.reserve(words.size());
    views.reserve(words.size());
    for (const std::u16string_view word : words)
        views.push_back(lowercased.emplace_back(word).view());
    return findLowercase(views, hasLongerNames);
}

std::vector<UnitSearchIndex::Result> UnitSearchIndex::findLowercase(Words lowercaseWords,
                                                                    bool* hasLongerNames) const {
    std::vector<Result> results;
    visitLowercase(lowercaseWords, hasLongerNames,
                   [&results](const Result& result) { results.push_back(result); });
    return results;
}

bool UnitSearchIndex::beginsLongerName(std::u16string_view lowercaseWord, bool* beginsName) const {
    const std::shared_lock guard(lock);
    const Index node = child(root, lowercaseWord);
    if (beginsName) *beginsName = node != none;
    return node != none && nodes[node].subtreeCount != 0;
}

UnitSearchIndex::Index UnitSearchIndex::nodeOfWords(Words lowercaseWords) const {
    Index node = lowercaseWords.empty() ? none : root;
    for (const std::u16string_view word : lowercaseWords) {
        node = child(node, word);
        if (node == none) break;
    }
    return node;
}

int32_t UnitSearchIndex::size() const {
    const std::shared_lock guard(lock);
    return nodes[root].subtreeCount;
}

UnitSearchIndex::Index UnitSearchIndex::child(Index node, std::u16string_view lowercaseWord) const {
    const EdgeProbe probe{node, lowercaseWord, String::hashOf(lowercaseWord)};
    if (!edgeFilter[EdgeHash()(probe) % filterBits]) return none;
    const auto edge = edges.find(probe);
    return edge == edges.end() ? none : edge->second;
}

UnitSearchIndex::Index UnitSearchIndex::makeChild(Index node, Ref<String> lowercaseWord) {
    const auto made = static_cast<Index>(nodes.size());
    nodes.push_back({node, none, none, 0});
    EdgeKey key{node, std::move(lowercaseWord)};
    edgeFilter[EdgeHash()(key) % filterBits] = true;
    edges.emplace(std::move(key), made);
    return made;
}

// `none` if no such path exists.
UnitSearchIndex::Index UnitSearchIndex::nodeOfName(std::u16string_view name) const {
    const Lowercased lowercased(name);
    WordReader reader(lowercased.view());
    Index node = root;
    for (std::u16string_view word; node != none && reader.next(word);)
        node = child(node, word);
    return node;
}

UnitSearchIndex::Index UnitSearchIndex::nodeOfNameMakingIt(const Ref<String>& name) {
    const Lowercased lowercased(name->view());
    WordReader reader(lowercased.view());
    Index node = root;
    for (std::u16string_view word; reader.next(word);) {
        const Index existing = child(node, word);
        if (existing != none) {
            node = existing;
            continue;
        }
        // Most names are one word in lower case, which can serve as it is.
        node = makeChild(node, word == name->view() ? name : String::create(word));
    }
    return node;
}

void UnitSearchIndex::countInAncestors(Index node, int32_t change) {
    for (Index ancestor = nodes[node].parent; ancestor != none; ancestor = nodes[ancestor].parent) {
        nodes[ancestor].subtreeCount += change;
    }
}

} // namespace TBF
