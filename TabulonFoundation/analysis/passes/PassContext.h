#pragma once

// What the passes of the contextual analyzer share while they work on one line: its tree, the names that
// words can have, and what is known of the line so far. Made for one analysis on its thread.

#include "analysis/EPExpressionTree.h"
#include "analysis/ExpressionToken.h"
#include "analysis/TBFTokenTypes.h"

#include <cstdint>
#include <vector>

namespace TBF {

class Namespace;

// What a line has in it. A pass that can only change lines with certain traits is skipped for the others;
// passes that bring a trait in say so here.
enum LineTrait : uint32_t {
    LineTraitWords = 1,
    LineTraitSeveralNumbers = 2,
    LineTraitBrackets = 4,
    LineTraitEquals = 8,
    LineTraitUnits = 16,
    LineTraitConversions = 32,
    LineTraitFactorials = 64,
    LineTraitCheckedOperators = 128, // operators that may demand operands
    LineTraitJoinedWords = 256,      // compound words, which no lookup has seen yet
    LineTraitMarkedSigns = 512,      // signs are to be marked by the syntax trees, whatever else there is
    LineTraitAny = 0xFFFFFFFF,
};

struct PassContext {
    // The line as it came. Neither the list nor the tokens are changed. Borrowed for the analysis.
    const ExpressionTokenList& input;

    // May be null: no word means anything then. Borrowed for the analysis.
    const Namespace* names = nullptr;

    // The line index at which variables are read.
    int32_t scope = 2147483647;

    // False has signs and units bound by the syntax trees instead of the matcher.
    bool usesMatcher = true;

    // Whether tokens that nothing has changed come out as they are, instead of as new ones.
    bool sharesTokens = false;

    uint32_t traits = 0;
    Ref<EPExpressionTree> tree = EPExpressionTree::create();
    ExpressionTokenList output = {};

    EPExpressionTreeNode& root() const { return tree->root(); }
    bool has(uint32_t anyOf) const { return (traits & anyOf) != 0; }
    void add(LineTrait trait) { traits |= trait; }
};

} // namespace TBF
