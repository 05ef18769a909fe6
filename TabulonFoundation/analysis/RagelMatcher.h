#pragma once

// Finds the operators among sibling nodes that have to bind tighter than usual, so that a rate such as
// "km/h" or a conversion target such as "in km/h" holds together. A matcher maps every node to one
// symbol and runs an automaton over the symbols. Used by the contextual analyzer, over the children of
// a node of its tree:
//
//     RagelMatchIterator iterator(*matcher, children, [](const auto& n) {
//         return RagelToken{n->tokenType(), n->tokenSubType()};
//     });
//     while (iterator.advance()) promote(children[iterator.match()->operatorIndex]);
//
// Matchers are read-only and may be shared between threads; an iterator belongs to one.

#include "analysis/TBFTokenTypes.h"
#include "runtime/Object.h"
#include "runtime/Ref.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace TBF {

// All that the automaton is told about a node.
struct RagelToken {
    token_type type;
    TBFTokenSubType subType;
};

// Indexes count symbols from the place where the search began, or nodes in the result of an iterator.
struct RagelMatch {
    // Where the search goes on right behind: the right-hand unit for kind 1, the conversion for kind 2.
    std::size_t beginIndex = 0;
    std::size_t endIndex = 0; // one past the last symbol of the match
    std::size_t operatorIndex = 0;
    int32_t kind = 0; // 1: a product or quotient of units; 2: a conversion to a product or quotient
};

class RagelMatcherImplementation {
public:
    virtual ~RagelMatcherImplementation() = default;

    virtual int8_t symbolForToken(token_type type, TBFTokenSubType subType) const = 0;

    // The earliest match in the symbols; false if there is none.
    virtual bool findMatch(const int8_t* begin, const int8_t* end, RagelMatch& outMatch) const = 0;
};

class RagelMatcher final : public Object<RagelMatcher> {
public:
    static Ref<RagelMatcher> create(std::unique_ptr<RagelMatcherImplementation> implementation);

    // The matcher of high-priority operators.
    static Ref<RagelMatcher> createHighPriorityOperators();

    int8_t symbolForToken(RagelToken token) const {
        return implementation->symbolForToken(token.type, token.subType);
    }
    bool findMatch(const int8_t* begin, const int8_t* end, RagelMatch& outMatch) const {
        return implementation->findMatch(begin, end, outMatch);
    }

private:
    friend class Object<RagelMatcher>;
    explicit RagelMatcher(std::unique_ptr<RagelMatcherImplementation> implementation) noexcept;
    ~RagelMatcher() override = default;

    std::unique_ptr<RagelMatcherImplementation> implementation;
};

// Walks the matches among sibling nodes. All advances together are linear in the number of nodes: the
// symbols are made once, at the start. Retyping the operator of the current match is fine, because the
// search never comes back to it.
class RagelMatchIterator {
public:
    // `tokenOf` gives the RagelToken of an element of `nodes`. Keeps neither of them.
    template <typename Nodes, typename TokenOf>
    RagelMatchIterator(const RagelMatcher& matcherOfNodes, const Nodes& nodes, TokenOf tokenOf)
        : matcher(retain(&matcherOfNodes)) {
        symbols.reserve(std::size(nodes));
        for (const auto& node : nodes)
            symbols.push_back(matcher->symbolForToken(tokenOf(node)));
    }

    // False, without a match, when there are no more.
    bool advance();

    // The current match, in indexes of nodes.
    const std::optional<RagelMatch>& match() const noexcept { return current; }

private:
    Ref<const RagelMatcher> matcher;
    std::vector<int8_t> symbols;
    std::size_t position = 0; // where the next search begins
    std::optional<RagelMatch> current;
};

// The automaton of high-priority operators, over the symbols that its matcher makes.
bool TBFR_machine_HPO_findMatch(const int8_t* begin, const int8_t* end, RagelMatch& outMatch);

} // namespace TBF
