#include "analysis/passes/RecognizeWords.h"

#include "analysis/Expression.h"
#include "names/Namespace.h"
#include "names/functions/Function.h"
#include "names/variables/ScopedVariable.h"
#include "names/wordoperators/WordOperator.h"
#include "units/AmbiguousUnit.h"
#include "units/UnitContainer.h"
#include "units/UnitFraction.h"

#include <array>
#include <cstddef>
#include <span>
#include <string_view>
#include <utility>

// At every word the walk gathers a run: the word, and what follows it as far as it could belong to one name,
// at most five children in all. The longest beginning of the run that means something becomes one node; if
// none does, the word stays. Either way the walk goes on right behind what was used, so that the rest of
// a run is looked at again. Since a run is bounded, the walk is linear.

namespace TBF {

namespace {

using Children = EPExpressionTreeNode::Children;

constexpr std::size_t longestRun = 5;
constexpr std::size_t mostWords = (longestRun + 1) / 2; // every second entry may be a gap

// The children from `start` on that may form a name.
struct Run {
    std::size_t start = 0;
    std::size_t length = 0;
    bool isBeforeGroup = false; // the node which ended the run is a group
};

bool canBePartOfName(const EPExpressionTreeNode& node, bool isAfterGap) {
    if (!node.isMutable()) return false;
    // A number belongs to the word that it touches, and to none across a gap.
    return node.is(TBFTokenTypeWord) || (node.is(TBFTokenTypeNumber) && !isAfterGap);
}

// `start` is the index of a word that may be retyped.
Run runAt(const Children& nodes, std::size_t start) {
    Run run{.start = start, .length = 1};
    bool isAfterGap = false;
    std::size_t next = start + 1;
    for (; next < nodes.size(); ++next) {
        const EPExpressionTreeNode& node = *nodes[next];
        if (node.isGap()) {
            isAfterGap = true;
            if (run.length < longestRun) ++run.length;
            continue;
        }
        if (run.length == longestRun || !canBePartOfName(node, isAfterGap)) break;
        isAfterGap = false;
        ++run.length;
        if (run.length == longestRun) return run; // the last word of a full run counts as what follows
    }
    run.isBeforeGroup = next < nodes.size() && nodes[next]->is(TBFTokenTypeGroup);
    return run;
}

// The text from the start of one node to the end of another one behind it.
std::u16string_view textFromTo(const EPExpressionTreeNode& first, const EPExpressionTreeNode& last) {
    if (!first.expression() || first.expression() != last.expression()) return first.text();
    const auto start = static_cast<std::size_t>(first.range().location);
    return first.expression()->view().substr(start, static_cast<std::size_t>(last.range().end()) - start);
}

// The words of the first `length` children of the run. Children without a gap between them are one word;
// they touch in the text, so that no text has to be put together.
class RunWords {
public:
    RunWords(const Children& nodes, const Run& run, std::size_t length) {
        bool isAfterGap = true;
        const EPExpressionTreeNode* first = nullptr;
        for (std::size_t index = run.start; index < run.start + length; ++index) {
            const EPExpressionTreeNode& node = *nodes[index];
            if (node.isGap()) {
                isAfterGap = true;
                continue;
            }
            if (isAfterGap) {
                first = &node;
                words[count++] = node.text();
                isAfterGap = false;
                continue;
            }
            words[count - 1] = textFromTo(*first, node);
        }
    }

    std::span<const std::u16string_view> views() const { return {words.data(), count}; }

private:
    std::array<std::u16string_view, mostWords> words;
    std::size_t count = 0;
};

// How many of the run's children touch the first one, and it.
std::size_t lengthOfFirstWord(const Children& nodes, const Run& run) {
    std::size_t length = 1;
    while (length < run.length && !nodes[run.start + length]->isGap())
        ++length;
    return length;
}

// Gives the node the type and the parts of the meaning that go with it.
void retype(EPExpressionTreeNode& node, TBFNamespaceType type, WordMeaning meaning, bool isBeforeGroup,
            PassContext& context) {
    // A word such as "min" is a time in "5 min" and a function in "min(3;4)".
    if (type == TBFNamespaceTypeUnit && isBeforeGroup && meaning.function) type = TBFNamespaceTypeFunction;
    WordMeaning& target = node.meaning();
    switch (type) {
    case TBFNamespaceTypeFunction:
        node.setType(TBFTokenTypeFunction);
        target.function = std::move(meaning.function);
        break;
    case TBFNamespaceTypeVariable:
        node.setType(TBFTokenTypeVariable);
        target.variable = std::move(meaning.variable);
        break;
    case TBFNamespaceTypeUnit:
        node.setType(TBFTokenTypeUnit);
        target.unitFraction = std::move(meaning.unitFraction);
        target.unitContainer = std::move(meaning.unitContainer);
        target.ambiguousUnit = std::move(meaning.ambiguousUnit);
        target.unitNameFormat = meaning.unitNameFormat;
        context.add(LineTraitUnits);
        break;
    case TBFNamespaceTypeWordOperator:
        node.setTypes(TBFTokenTypeOperator, TBFTokenSubTypeWordOperator);
        node.setRepresentedSubType(
            static_cast<TBFTokenSubType>(meaning.wordOperator->representedTokenSubType()));
        target.wordOperator = std::move(meaning.wordOperator);
        context.add(LineTraitCheckedOperators);
        break;
    case TBFNamespaceTypeNone:
        break;
    }
}

class Recognition {
public:
    Recognition(PassContext& passContext, bool takeWordOperators)
        : context(passContext)
        , acceptWordOperators(takeWordOperators) {}

    void walk(EPExpressionTreeNode& parent) {
        const bool hasWords = [&parent] {
            for (const Ref<EPExpressionTreeNode>& node : parent.children()) {
                if (node->is(TBFTokenTypeWord)) return true;
            }
            return false;
        }();
        if (!hasWords) return;
        Children nodes = parent.takeChildren();
        Children output;
        output.reserve(nodes.size());
        for (std::size_t index = 0; index < nodes.size();) {
            if (nodes[index]->is(TBFTokenTypeWord) && nodes[index]->isMutable()) {
                index += resolve(nodes, runAt(nodes, index), output);
            } else {
                output.push_back(std::move(nodes[index++]));
            }
        }
        parent.replaceChildren(std::move(output));
    }

private:
    // Moves the node for the beginning of the run to the output; answers how many children went into it.
    std::size_t resolve(Children& nodes, const Run& run, Children& output) {
        std::size_t length = run.length;
        // Most words begin no longer name, which is quickly known.
        const std::size_t firstWord = lengthOfFirstWord(nodes, run);
        bool mayBeUnit = true;
        if (length > firstWord &&
            !context.names->mayBeginLongerName(RunWords(nodes, run, firstWord).views().front(), &mayBeUnit)) {
            length = firstWord;
        }
        for (; length > 0; --length) {
            if (nodes[run.start + length - 1]->isGap()) continue;
            WordMeaning meaning;
            const RunWords words(nodes, run, length);
            const TBFNamespaceType type =
                context.names->lookUp(words.views(), context.scope, meaning, mayBeUnit || length < firstWord);
            if (type == TBFNamespaceTypeNone) continue;
            if (type == TBFNamespaceTypeWordOperator && !acceptWordOperators) continue;
            Ref<EPExpressionTreeNode> node = takeBeginning(nodes, run.start, length);
            retype(*node, type, std::move(meaning), run.isBeforeGroup, context);
            output.push_back(std::move(node));
            return length;
        }
        output.push_back(std::move(nodes[run.start]));
        return 1;
    }

    static Ref<EPExpressionTreeNode> takeBeginning(Children& nodes, std::size_t start, std::size_t length) {
        if (length == 1) return std::move(nodes[start]);
        Children parts;
        for (std::size_t index = start; index < start + length; ++index) {
            if (!nodes[index]->isGap()) parts.push_back(std::move(nodes[index]));
        }
        return EPExpressionTreeNode::createJoining(std::move(parts));
    }

    PassContext& context;
    bool acceptWordOperators;
};

} // namespace

void pass_recognize_words_crawler(PassContext& context, bool acceptWordOperators) {
    if (!context.names) return;
    Recognition recognition(context, acceptWordOperators);
    crawlGroups(context.root(), [&recognition](EPExpressionTreeNode& parent) { recognition.walk(parent); });
}

void pass_recognize_words_with_operators(PassContext& context) {
    pass_recognize_words_crawler(context, true);
}

void pass_recognize_words_without_operators(PassContext& context) {
    pass_recognize_words_crawler(context, false);
}

} // namespace TBF
