#include "variables/TCVariable.h"

#include "lines/LineCollectionTesting.h"
#include "names/variables/Variable.h"
#include "results/TCResult.h"
#include "units/UnitContainer.h"
#include "variables/TCVariableList.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::UnorderedElementsAre;

namespace {

class CountingDelegate : public TCVariableListDelegate {
public:
    void variableDidUpdateInVariableList(TCVariable& variable, TCVariableList&) override {
        names.push_back(TBF::utf8(variable.name().value_or(u"")));
    }
    std::vector<std::string> names;
};

TEST(Variable, TextsInBothLocales) {
    const auto variable = TCVariable::variableWithName(u"x", std::u16string(u"1,234.5"));
    EXPECT_EQ(variable->delocalizedValue(), u"1,234.5");
    variable->setDelocalizedValue(u"1234.5", 0, nullptr);
    variable->convertToLocaleWithDecimalPoint(u',', u'.');
    EXPECT_EQ(variable->value(), u"1234,5");
    EXPECT_EQ(variable->delocalizedValue(), u"1234.5");
    variable->setLocaleWithDecimalPoint(u'.', u','); // the text stays
    EXPECT_EQ(variable->value(), u"1234,5");
    variable->setLocaleWithDecimalPoint(u';', u';');
    EXPECT_EQ(variable->value(), u"1234,5");
}

TEST(Variable, EmptyTextIsNoValue) {
    const auto variable = TCVariable::variableWithName(u"x", std::u16string(u"4"), 1, nullptr);
    EXPECT_EQ(variable->displayValue(), u"4%");
    EXPECT_EQ(variable->copy()->displayValue(), u"4%");
    variable->setDelocalizedValue(u"", 0, nullptr);
    EXPECT_FALSE(variable->value());
    EXPECT_EQ(variable->displayValue(), u"");
    variable->setResultValue(TCResult::resultWithRawResultString(u"2.50").get());
    EXPECT_EQ(variable->value(), u"2.5");
}

// The same text at the end and where the range begins says nothing of what lies between.
TEST(Variable, AValueIsSetThroughoutItsRange) {
    const auto variable = TCVariable::variableWithName(u"x", std::u16string(u"5"), 0, nullptr);
    const auto valueAt = [&](int32_t index) {
        const TBF::VariableValue* const value = variable->tbfVariable()->valueAt(index);
        return TBF::utf8(value->string()->utf16()) + (value->flags() ? "%" : "");
    };
    variable->setDelocalizedValue(u"5", 1, nullptr, {3, 2});
    EXPECT_EQ(variable->displayValue(), u"5");
    EXPECT_EQ(valueAt(2) + " " + valueAt(3) + " " + valueAt(5), "5 5% 5");
    variable->setDelocalizedValue(u"5", 0, nullptr, {0, 8});
    EXPECT_EQ(valueAt(2) + " " + valueAt(3) + " " + valueAt(5), "5 5 5");
    variable->setDelocalizedValue(u"7", 0, nullptr, {0, 4});
    EXPECT_EQ(variable->displayValue(), u"5");
}

TEST(Variable, Validation) {
    TCVariableNameError error;
    EXPECT_TRUE(TCVariable::validateName(u"rate", nullptr));
    EXPECT_FALSE(TCVariable::validateName(u"", &error));
    EXPECT_EQ(error.description, u"A variable must have a name.");
    EXPECT_FALSE(TCVariable::validateName(u"my rate", &error));
    EXPECT_EQ(error.code, 2048);
    EXPECT_EQ(error.recoverySuggestion, u"Please do not use a space in your variable name.");

    useEvaluatingEnvironment();
    const auto variable = TCVariable::variableWithName(u"x");
    const std::pair<std::optional<std::u16string>, std::u16string> rows[] = {
        {std::nullopt, u"1.0"}, {u"2*3", u"6"}, {u"1000*1000", u"1000000"}, {u"5%", u"5"}};
    for (auto [text, expected] : rows) {
        EXPECT_TRUE(variable->validateValue(text));
        EXPECT_EQ(text, expected);
    }
}

TEST(VariableList, LookupByCaseAliasAndParent) {
    useEvaluatingEnvironment();
    const auto list = TCVariableList::listWithStandardVariables();
    EXPECT_THAT(list->variableNames(), ElementsAre(u"pi"));
    EXPECT_EQ(list->count(), 0); // found in the parent
    EXPECT_TRUE(list->containsVariableWithName(u"PI"));
    EXPECT_TRUE(list->containsVariableWithName(u"π"));
    EXPECT_FALSE(list->containsVariableWithExactCaseName(u"PI"));
    EXPECT_FALSE(list->variableWithName(u"pi", true, false));

    const auto child = std::make_shared<TCVariableList>();
    child->setParentList(list);
    child->addVariableWithName(u"Rate", std::u16string(u"3"));
    child->addAliasForVariableWithName(u"r", u"rate");
    EXPECT_EQ(child->valueOfVariableWithName(u"R"), u"3");
    EXPECT_THAT(child->aliasesOfVariableWithName(u"Rate"), ElementsAre(u"r"));
    EXPECT_TRUE(child->directlyContainsVariableWithExactCaseName(u"Rate"));
    EXPECT_FALSE(child->directlyContainsVariableWithExactCaseName(u"rate"));
    EXPECT_EQ(child->allVariables().size(), 2u);
    EXPECT_EQ(child->countOfAllVariables(), 2);
    child->setValueForVariableWithName(u"4", u"rate");
    child->setValueForVariableWithName(u"9", u"fresh");
    EXPECT_THAT(child->variableNames(), UnorderedElementsAre(u"Rate", u"fresh"));
    child->removeVariableWithName(u"FRESH");
    child->removeVariableWithName(u"pi"); // not this list's
    EXPECT_EQ(child->valueOfVariableWithName(u"rate"), u"4");
    EXPECT_TRUE(child->containsVariableWithName(u"pi"));
}

TEST(VariableList, ChangesOfItsVariables) {
    TCVariableList list;
    CountingDelegate delegate;
    list.setDelegate(&delegate);
    const auto variable = TCVariable::variableWithName(u"a", std::u16string(u"1"));
    list.addVariable(variable);
    list.addVariableWithName(u"b", std::u16string(u"2"));
    uint64_t state = list.stateIndicator();
    EXPECT_FALSE(variable->changeName(u"b")); // taken
    variable->setValue(u"5");
    EXPECT_EQ(list.stateIndicator(), state);
    EXPECT_TRUE(variable->changeName(u"A"));
    EXPECT_EQ(variable->previousState().name(), u"a");
    EXPECT_NE(list.stateIndicator(), state);
    EXPECT_EQ(list.valueOfVariableWithName(u"a"), u"5");
    EXPECT_THAT(list.variableNames(), UnorderedElementsAre(u"A", u"b"));

    state = list.stateIndicator();
    variable->setEnabled(false);
    EXPECT_NE(list.stateIndicator(), state);
    EXPECT_FALSE(list.containsVariableWithName(u"A"));
    EXPECT_EQ(list.variables().size(), 2u);
    variable->setEnabled(true);
    EXPECT_TRUE(list.containsVariableWithName(u"A"));
    EXPECT_THAT(delegate.names, ElementsAre("a", "A", "A", "A"));
    list.removeAllVariables();
    EXPECT_EQ(list.count(), 0);
    EXPECT_EQ(variable->variableList(), nullptr);
}

// The variable that was renamed onto went lost, and asked its list when that was gone.
TEST(VariableList, ADisabledVariableKeepsItsPlaceWhenAnotherTakesItsName) {
    const auto first = TCVariable::variableWithName(u"a", std::u16string(u"1"));
    const auto second = TCVariable::variableWithName(u"b", std::u16string(u"2"));
    {
        TCVariableList list;
        list.addVariable(first);
        list.addVariable(second);
        second->setEnabled(false);
        EXPECT_TRUE(first->changeName(u"b"));
        EXPECT_EQ(list.variables().size(), 2u);
        EXPECT_EQ(list.valueOfVariableWithName(u"b"), u"1");
        second->setEnabled(true); // stands before the other as long as it is there
        EXPECT_EQ(list.valueOfVariableWithName(u"b"), u"2");
        second->setEnabled(false);
        EXPECT_EQ(list.valueOfVariableWithName(u"b"), u"1");
        second->setEnabled(true);
        list.removeVariable(second);
        EXPECT_EQ(list.valueOfVariableWithName(u"b"), u"1");
        EXPECT_THAT(list.variables(), ElementsAre(first));
        list.addVariable(second); // adding replaces, renaming doesn't
        EXPECT_THAT(list.variables(), ElementsAre(second));
    }
    EXPECT_EQ(second->variableList(), nullptr);
    first->setEnabled(false);
    EXPECT_TRUE(second->changeName(u"free"));
}

TEST(VariableList, AVariableIsFoundInTheListThatHoldsIt) {
    TCVariableList first, second;
    const auto shared = TCVariable::variableWithName(u"a", std::u16string(u"1"));
    first.addVariable(shared);
    first.addVariable(shared);
    second.addVariable(shared); // the one that it tells from now on
    shared->changeName(u"b");
    EXPECT_EQ(first.valueOfVariableWithName(u"b"), u"1");
    first.removeVariable(shared);
    EXPECT_TRUE(first.variables().empty());
    EXPECT_FALSE(first.containsVariableWithName(u"b"));
    EXPECT_EQ(shared->variableList(), &second);
    EXPECT_TRUE(second.containsVariableWithName(u"b"));
}

// The last list that was made had the only "pi" that could be found, and took it with it.
TEST(VariableList, EachListHasItsOwnStandardVariables) {
    useEvaluatingEnvironment();
    const auto list = TCVariableList::listWithStandardVariables();
    const auto pi = list->variableWithName(u"pi");
    auto other = TCVariableList::listWithStandardVariables();
    EXPECT_EQ(list->variableWithName(u"PI"), pi);
    EXPECT_NE(other->variableWithName(u"pi"), pi);
    other.reset();
    EXPECT_EQ(list->variableWithName(u"pi"), pi);
    EXPECT_EQ(pi->variableList(), list.get());
}

TEST(VariableList, AListIsntItsOwnAncestor) {
    const auto outer = std::make_shared<TCVariableList>(), inner = std::make_shared<TCVariableList>();
    inner->setParentList(outer);
    outer->setParentList(inner);
    outer->setParentList(outer);
    EXPECT_TRUE(outer->allVariables().empty());
    EXPECT_FALSE(inner->containsVariableWithName(u"x"));
}

// Takes a variable out as soon as it hears of it.
class RemovingDelegate : public TCVariableListDelegate {
public:
    void variableDidUpdateInVariableList(TCVariable& variable, TCVariableList& list) override {
        list.removeVariableWithName(*variable.name());
    }
};

TEST(VariableList, ADelegateMayTakeAVariableOutWhenItHearsOfIt) {
    TCVariableList list;
    RemovingDelegate delegate;
    list.setDelegate(&delegate);
    for (const auto change :
         {+[](TCVariable& variable) { variable.changeName(u"b"); },
          +[](TCVariable& variable) { variable.setValue(u"2"); },
          +[](TCVariable& variable) { variable.setLocaleWithDecimalPoint(u',', u'.'); }}) {
        list.addVariableWithName(u"a", std::u16string(u"1"));
        change(*list.variableWithName(u"a"));
        EXPECT_TRUE(list.variables().empty());
    }
}

} // namespace
