#include "analysis/ContextualAnalyzer.h"

#include "analysis/PlainCalculation.h"
#include "analysis/passes/AssignUnitRoles.h"
#include "analysis/passes/BuildTree.h"
#include "analysis/passes/CheckFactorials.h"
#include "analysis/passes/CheckOperatorArguments.h"
#include "analysis/passes/DemoteOrphanNumbers.h"
#include "analysis/passes/Flatten.h"
#include "analysis/passes/FreezeDeclaredWords.h"
#include "analysis/passes/GroupBrackets.h"
#include "analysis/passes/JoinAdjacentWords.h"
#include "analysis/passes/JoinCompoundWords.h"
#include "analysis/passes/JoinSpacedNumbers.h"
#include "analysis/passes/PromoteHighPriorityOperators.h"
#include "analysis/passes/RecognizeImportantWords.h"
#include "analysis/passes/RecognizeWords.h"
#include "runtime/Settings.h"

#include <iterator>
#include <utility>

namespace TBF {

namespace {

constexpr int32_t scopeOfLastValue = 2147483647;

// Every pass relies on what those above it have done. The names are for those who look on from outside: no
// two are the same, and they stay.
constexpr ContextualAnalyzer::Pass passTable[] = {
    {"build the tree", pass_build_tree, LineTraitAny},

    // Numbers are whole before anything is asked of them.
    {"join spaced numbers", pass_join_spaced_numbers, LineTraitSeveralNumbers},
    {"group brackets", pass_group_brackets, LineTraitBrackets},

    // The language's own words come before all names, and a name being declared is none yet.
    {"recognize special words", pre_pass_5a_recognize_important_word_types_crawler, LineTraitWords},
    {"freeze declared words", pass_freeze_declared_words, LineTraitEquals},
    {"recognize words", pass_recognize_words_with_operators, LineTraitWords},

    // With the names known, what is left is prose: its numbers don't count, its hyphens don't subtract.
    {"demote orphan numbers", pass_demote_orphan_numbers_crawler, LineTraitSeveralNumbers | LineTraitWords},
    {"join compound words", pass_join_compound_words_crawler, LineTraitWords},

    // Words that weren't joined have been looked up before, with the same outcome.
    {"recognize joined words", pass_recognize_words_without_operators, LineTraitJoinedWords},

    // Operators look at the units beside them, so units have their roles by then.
    {"assign unit roles", pass_assign_unit_roles_crawler, LineTraitUnits},
    {"check operator arguments", pass_check_operator_arguments_crawler, LineTraitCheckedOperators},
    {"check factorials", pass_check_factorials_crawler, LineTraitFactorials},
    {"promote high-priority operators", pass_promote_high_priority_operators,
     LineTraitUnits | LineTraitConversions | LineTraitMarkedSigns},

    // Operators that turned out to be words are prose too.
    {"assign unit roles again", pass_assign_unit_roles_crawler, LineTraitUnits},
    {"demote orphan numbers again", pass_demote_orphan_numbers_crawler,
     LineTraitSeveralNumbers | LineTraitWords},
    {"join compound words again", pass_join_compound_words_crawler, LineTraitWords},
    {"join adjacent words", pass_join_adjacent_words_crawler, LineTraitWords},
    {"flatten", pass_flatten, LineTraitAny},
};
static_assert(std::size(passTable) == 18);

int32_t scopeOf(int32_t lineIndex, const Settings& settings) {
    return settings.allowsVariableRedefinitions() ? lineIndex : scopeOfLastValue;
}

} // namespace

Ref<ContextualAnalyzer> ContextualAnalyzer::create() {
    return make<ContextualAnalyzer>();
}

void ContextualAnalyzer::setNamespace(Ref<Namespace> space) {
    names = std::move(space);
}

std::span<const ContextualAnalyzer::Pass> ContextualAnalyzer::passes() {
    return passTable;
}

ExpressionTokenList ContextualAnalyzer::analyze(const TokenizedExpression& expression,
                                                int32_t lineIndex) const {
    return run(expression, lineIndex, Sharing::None, nullptr);
}

ExpressionTokenList ContextualAnalyzer::analyze(const TokenizedExpression& expression, int32_t lineIndex,
                                                const PassObserver& observer) const {
    return run(expression, lineIndex, Sharing::None, observer ? &observer : nullptr);
}

ExpressionTokenList ContextualAnalyzer::analyzeForReading(const TokenizedExpression& expression,
                                                          int32_t lineIndex, bool takesShortcuts) const {
    const Settings& settings = Settings::current();
    ExpressionTokenList plain;
    if (takesShortcuts && settings.usesNewEvaluatorImpl() &&
        analyzePlainCalculation(expression.tokens(), names.get(), scopeOf(lineIndex, settings), plain))
        return plain;
    return run(expression, lineIndex, Sharing::UnchangedTokens, nullptr);
}

ExpressionTokenList ContextualAnalyzer::run(const TokenizedExpression& expression, int32_t lineIndex,
                                            Sharing sharing, const PassObserver* observer) const {
    const Settings& settings = Settings::current();
    PassContext context{.input = expression.tokens()};
    context.names = names.get();
    context.scope = scopeOf(lineIndex, settings);
    context.usesMatcher = settings.usesNewEvaluatorImpl();
    context.sharesTokens = sharing == Sharing::UnchangedTokens;
    for (const Pass& pass : passTable) {
        if (pass.traits != LineTraitAny && !context.has(pass.traits)) continue;
        pass.run(context);
        if (observer) (*observer)(pass, context.tree ? flattened(context) : context.output);
    }
    return std::move(context.output);
}

} // namespace TBF
