#include "names/Namespace.h"

#include "analysis/AnalysisVocabulary.h"
#include "names/functions/FunctionList.h"
#include "names/variables/ScopedVariable.h"
#include "names/variables/VariableList.h"
#include "names/wordoperators/WordOperatorList.h"
#include "runtime/Unicode.h"
#include "units/AmbiguousUnit.h"
#include "units/UnitCollection.h"
#include "units/UnitContainer.h"
#include "units/UnitFraction.h"

#include <gtest/gtest.h>

namespace TBFTests {

namespace {

// A namespace in which each list has at most one name; empty for none.
struct Names {
    const char* variable = "";
    const char* unit = "";
    const char* function = "";
    const char* wordOperator = "";
};

TBF::Ref<TBF::Namespace> namespaceOf(const Names& names) {
    const auto string = [](const char* text) { return TBF::String::createWithUTF8(text); };
    auto space = TBF::Namespace::create();
    const auto variables = TBF::VariableList::create();
    const auto functions = TBF::FunctionList::create();
    const auto units = TBF::UnitCollection::create();
    const auto operators = TBF::WordOperatorList::create();
    if (*names.variable) {
        const auto variable = TBF::Variable::create();
        variable->setName(string(names.variable));
        variables->add(variable);
    }
    if (*names.function) functions->add(TBF::Function::create(string(names.function)));
    if (*names.unit) {
        TBF::UnitContainer::Names unitNames;
        unitNames.byType[TBFUnitNameTypeVeryShort] = string(names.unit);
        units->addUnit(*TBF::UnitContainer::create("id", std::move(unitNames)));
    }
    if (*names.wordOperator) {
        operators->add(TBF::WordOperator::create(string(names.wordOperator), 3, string("1"), 1, 0));
    }
    space->setVariableList(variables);
    space->setFunctionList(functions);
    space->setUnitCollection(units);
    space->setWordOperatorList(operators);
    return space;
}

TBFNamespaceType typeOf(const TBF::Namespace& space, std::u16string_view word, TBF::WordMeaning& meaning) {
    return space.lookUp(std::span(&word, 1), 0, meaning);
}

} // namespace

TEST(Namespace, exactSpellingsWinInAFixedOrder) {
    struct Row {
        Names names;
        TBFNamespaceType type;
    };
    // The word is always "ab".
    const Row rows[] = {
        {{}, TBFNamespaceTypeNone},
        {{"ab", "ab", "ab", "ab"}, TBFNamespaceTypeVariable},
        {{"AB", "ab", "ab", "ab"}, TBFNamespaceTypeUnit},
        {{"", "ab", "ab", "ab"}, TBFNamespaceTypeUnit},
        {{"AB", "AB", "ab", "ab"}, TBFNamespaceTypeFunction},
        {{"AB", "AB", "AB", "ab"}, TBFNamespaceTypeNone},
        {{"AB", "AB", "", "ab"}, TBFNamespaceTypeVariable},
        {{"", "AB", "AB", "ab"}, TBFNamespaceTypeFunction},
        {{"", "AB", "", "ab"}, TBFNamespaceTypeWordOperator},
        {{"", "AB", "", "AB"}, TBFNamespaceTypeUnit},
        {{"", "", "", "AB"}, TBFNamespaceTypeNone},
    };
    for (const Row& row : rows) {
        TBF::WordMeaning meaning;
        EXPECT_EQ(typeOf(*namespaceOf(row.names), u"ab", meaning), row.type)
            << row.names.variable << ' ' << row.names.unit << ' ' << row.names.function << ' '
            << row.names.wordOperator;
    }
}

TEST(Namespace, everyCandidateComesAlong) {
    TBF::WordMeaning meaning;
    typeOf(*namespaceOf({"", "ab", "ab", "ab"}), u"ab", meaning);
    EXPECT_TRUE(meaning.unitContainer && meaning.function && meaning.wordOperator);
    EXPECT_EQ(meaning.unitNameFormat, TBFUnitFormatTypeVeryShortName);

    // But no unit in another case beside a variable, and nothing at all where there is no answer.
    TBF::WordMeaning withVariable;
    typeOf(*namespaceOf({"ab", "AB", "", ""}), u"ab", withVariable);
    EXPECT_TRUE(withVariable.variable && !withVariable.unitContainer);
    TBF::WordMeaning undecided;
    typeOf(*namespaceOf({"AB", "", "AB", "ab"}), u"ab", undecided);
    EXPECT_FALSE(undecided.variable || undecided.function || undecided.wordOperator);
}

} // namespace TBFTests
