#pragma once

// Decides what every token of a line means in its place: whether a word is a unit, a variable, a function or
// text, whether a number counts, whether an operator has operands. It hangs the tokens of a line under a
// tree, runs a fixed series of passes over it, and makes a new list of tokens of the outcome for the parser.
// Cheap to make; holds nothing between two analyses. One thread at a time.

#include "analysis/ExpressionToken.h"
#include "analysis/TokenizedExpression.h"
#include "names/Namespace.h"

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

namespace TBF {

struct PassContext;

class ContextualAnalyzer final : public Object<ContextualAnalyzer> {
public:
    static Ref<ContextualAnalyzer> create();

    // Null if no word is to mean anything.
    void setNamespace(Ref<Namespace> space);

    // New tokens; the given ones stay as they are. `lineIndex` is where variables are read if the settings
    // allow to redefine them. Any tokens can be analyzed: what can't be placed is a word.
    ExpressionTokenList analyze(const TokenizedExpression& expression, int32_t lineIndex) const;

    // The same for a caller that only reads the tokens: the given ones stand in the list themselves where
    // they mean what they meant. Without shortcuts all passes run over calculations too, to the same outcome.
    ExpressionTokenList analyzeForReading(const TokenizedExpression& expression, int32_t lineIndex,
                                          bool takesShortcuts = true) const;

    // One step of the analysis.
    struct Pass {
        const char* name;
        void (*run)(PassContext& context);
        uint32_t traits; // the pass can change nothing in a line that has none of these
    };

    // All steps, in the order in which they run. Each has a name of its own.
    static std::span<const Pass> passes();

    // The same for a caller that looks on: after each pass that ran it gets the tokens as that left them. The
    // list is its own, the tokens are new. The tokens of the last pass are those of the outcome.
    using PassObserver = std::function<void(const Pass& pass, const ExpressionTokenList& tokens)>;
    ExpressionTokenList analyze(const TokenizedExpression& expression, int32_t lineIndex,
                                const PassObserver& observer) const;

private:
    friend class Object<ContextualAnalyzer>;

    enum class Sharing : bool { None = false, UnchangedTokens = true };

    ContextualAnalyzer() = default;
    ~ContextualAnalyzer() override = default;

    ExpressionTokenList run(const TokenizedExpression& expression, int32_t lineIndex, Sharing sharing,
                            const PassObserver* observer) const;

    Ref<Namespace> names;
};

} // namespace TBF
