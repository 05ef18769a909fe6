#pragma once

// The names of units as a trie of whole words: finds the units that a run of words names, and tells whether a
// longer name begins with them. Words match without regard to case; what case means is decided by the
// collection (UnitCollection), which owns the index. Any number of threads may search while none changes the
// index; both sides lock it.

#include "runtime/Object.h"
#include "runtime/Ref.h"
#include "runtime/String.h"
#include "units/TBFUnitTypes.h"

#include <cstddef>
#include <cstdint>
#include <shared_mutex>
#include <span>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace TBF {

class UnitContainer;

class UnitSearchIndex final : public Object<UnitSearchIndex> {
public:
    struct Result {
        Ref<UnitContainer> unit;
        Ref<String> name; // the whole name as the unit has it, not null
        TBFUnitFormatType formatType = TBFUnitFormatTypeNone;
        bool isCaseSensitive = false;

        // Whether the words of the name are exactly these.
        bool hasWords(std::span<const std::u16string_view> words) const;
    };
    using Words = std::span<const std::u16string_view>;

    static Ref<UnitSearchIndex> create();

    // Under each of its names and aliases. Units are told apart by their identifiers; a name that is there
    // for the same unit and format isn't added again.
    void addUnit(UnitContainer& unit);
    void addUnits(std::span<const Ref<UnitContainer>> units);

    // Takes away what `addUnit` of the same unit added. Its words stay as empty places.
    void removeUnit(const UnitContainer& unit);

    // The units named by the words, in order of addition. If the words lead to a place in the trie,
    // `*hasLongerNames` is set to whether any name goes on from there; if not, it isn't touched. It may be
    // null.
    std::vector<Result> find(Words words, bool* hasLongerNames) const;
    std::vector<Result> findLowercase(Words lowercaseWords, bool* hasLongerNames) const;

    // The same without a list: sends each result to `visit`, which must not change the index.
    template <typename Visit>
    void visitLowercase(Words lowercaseWords, bool* hasLongerNames, Visit visit) const {
        const std::shared_lock guard(lock);
        const Index node = nodeOfWords(lowercaseWords);
        if (node == none) return;
        if (hasLongerNames) *hasLongerNames = nodes[node].subtreeCount != 0;
        for (Index i = nodes[node].firstEntry; i != none; i = entries[i].next)
            visit(entries[i].result);
    }

    // Whether a name of several words begins with the word. `*beginsName`, if not null, tells whether any
    // name does.
    bool beginsLongerName(std::u16string_view lowercaseWord, bool* beginsName) const;

    // The number of results in the index.
    int32_t size() const;

private:
    friend class Object<UnitSearchIndex>;
    UnitSearchIndex();
    ~UnitSearchIndex() override;

    using Index = uint32_t;
    static constexpr Index none = UINT32_MAX;
    static constexpr Index root = 0;

    // A position in the trie. The results that end here are a list through `Entry::next`.
    struct Node {
        Index parent = none;
        Index firstEntry = none;
        Index lastEntry = none;
        int32_t subtreeCount = 0; // results below this node, without its own
    };

    struct Entry {
        Result result;
        Index next = none;
    };

    // The edge from a node by a lower-cased word.
    struct EdgeKey {
        Index from;
        Ref<String> word;
    };
    struct EdgeProbe {
        Index from;
        std::u16string_view word;
        std::size_t wordHash;
    };
    struct EdgeHash {
        using is_transparent = void;
        std::size_t operator()(const EdgeKey& key) const noexcept;
        std::size_t operator()(const EdgeProbe& key) const noexcept;
    };
    struct EdgeEqual {
        using is_transparent = void;
        template <typename A, typename B>
        bool operator()(const A& a, const B& b) const noexcept {
            return a.from == b.from && text(a) == text(b);
        }

    private:
        static std::u16string_view text(const EdgeKey& key) noexcept { return key.word->view(); }
        static std::u16string_view text(const EdgeProbe& key) noexcept { return key.word; }
    };

    struct Name;
    static std::vector<Name> namesOf(const UnitContainer& unit);

    void add(UnitContainer& unit);
    void addResult(Index node, Result result);
    void removeResults(Index node, const UnitContainer& unit);
    Index nodeOfWords(Words lowercaseWords) const; // `none` for no words as well
    Index child(Index node, std::u16string_view lowercaseWord) const;
    Index makeChild(Index node, Ref<String> lowercaseWord);
    Index nodeOfName(std::u16string_view name) const;
    Index nodeOfNameMakingIt(const Ref<String>& name);
    void countInAncestors(Index node, int32_t change);

    mutable std::shared_mutex lock;
    std::vector<Node> nodes;
    std::vector<Entry> entries;
    Index firstFreeEntry = none;

    // A bit for the hash of every edge, at a few bits of it. Most words of a line are no unit's, which the
    // bits tell without a walk through the table.
    static constexpr std::size_t filterBits = std::size_t{1} << 16;
    std::vector<bool> edgeFilter;
    std::unordered_map<EdgeKey, Index, EdgeHash, EdgeEqual> edges;
};

} // namespace TBF
