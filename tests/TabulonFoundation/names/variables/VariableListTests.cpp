#include "names/variables/VariableList.h"

#include "names/variables/ScopedVariable.h"
#include "names/variables/VariableList.h"
#include "numbers/TBFMAPMExtensions.h"
#include "results/TBFEvaluationError.h"
#include "units/UnitContainer.h"

#include <gtest/gtest.h>

using namespace TBF;

namespace {

Ref<String> string(const char* text) {
    return String::createWithUTF8(text);
}

Ref<Variable> variable(const char* name, const char* value = "1", uint32_t flags = 0) {
    Ref<Variable> result = Variable::create();
    result->setName(string(name));
    result->setValue(string(value), flags, nullptr);
    return result;
}

// The value that an expression on the line of that index reads; "" for not-a-number.
std::string read(Variable& variable, int32_t scope) {
    const Ref<ScopedVariable> scoped = ScopedVariable::create(retain(&variable), scope);
    const Number& number = *scoped->value()->number();
    if (number.isSpecial()) return "";
    return TBF_mapm_to_fitted_string(number.mapmRef(), 100) + (number.isPercent() ? "%" : "");
}

TEST(VariableList, FindsNamesAndAliasesInAnyCase) {
    const struct {
        const char* word;
        bool found;
        bool exact;
    } rows[] = {{"pi", true, true}, {"PI", true, false}, {"π", true, true}, {"pie", false, false}};
    const Ref<VariableList> list = VariableList::create();
    list->setParentList(retain(&VariableList::standard()));
    for (const auto& row : rows) {
        const VariableList::Match match = list->find(*string(row.word));
        EXPECT_EQ(match.variable != nullptr, row.found) << row.word;
        EXPECT_EQ(match.exactCase, row.exact) << row.word;
        EXPECT_EQ(match.fromParent, row.found) << row.word;
    }
    EXPECT_EQ(read(*list->find(*string("pi")).variable, 0).substr(0, 12), "3.1415926535");
    EXPECT_EQ(list->countOfTopLevelVariables(), 0);
    EXPECT_EQ(list->countOfVariables(), 1);
}

TEST(VariableList, AVariableHidesItsNamesakeInTheParent) {
    const Ref<VariableList> parent = VariableList::create(), list = VariableList::create();
    list->setParentList(parent);
    const Ref<Variable> outer = variable("x"), inner = variable("X");
    parent->add(outer);
    EXPECT_EQ(list->find(*string("x")).variable, outer.get());
    list->add(inner);
    EXPECT_EQ(list->find(*string("x")).variable, inner.get());
    list->remove(*inner);
    EXPECT_EQ(list->find(*string("x")).variable, outer.get());
}

TEST(VariableList, RenamingReachesTheLists) {
    const Ref<VariableList> list = VariableList::create();
    const Ref<Variable> x = variable("x"), rent = variable("rent");
    list->add(x);
    list->add(rent);
    EXPECT_FALSE(x->setName(string("rent"))) << "another variable has that name";
    EXPECT_FALSE(x->setName(string("x"))) << "an equal name in another string is refused by the list";
    EXPECT_TRUE(x->setName(string("X")));
    EXPECT_TRUE(x->setName(string("height")));
    EXPECT_EQ(list->find(*string("x")).variable, nullptr);
    EXPECT_EQ(list->find(*string("Height")).variable, x.get());
    x->addAlias(string("h"));
    EXPECT_EQ(list->find(*string("h")).variable, x.get());
    x->removeAlias(*string("h"));
    EXPECT_EQ(list->find(*string("h")).variable, nullptr);
}

TEST(VariableList, VariablesOutliveTheirListsAndListsTheirVariables) {
    const Ref<Variable> x = variable("x");
    {
        const Ref<VariableList> list = VariableList::create();
        list->add(x);
        list->add(variable("y"));
        EXPECT_EQ(read(*list->find(*string("y")).variable, 0), "1");
    }
    EXPECT_TRUE(x->setName(string("z"))) << "no list is asked any more";
}

// Each of these left a variable that knew a list which was gone, and asked it when its name changed.
TEST(VariableList, NoVariableKnowsAListThatItIsntIn) {
    const Ref<Variable> twice = variable("a"), replaced = variable("b"), nameless = variable("c");
    replaced->addAlias(string("beta"));
    {
        const Ref<VariableList> list = VariableList::create();
        list->add(twice);
        list->add(twice);
        list->remove(*twice);
        EXPECT_EQ(list->find(*string("a")).variable, nullptr);
        EXPECT_TRUE(twice->setName(string("renamed")));
        EXPECT_EQ(list->find(*string("renamed")).variable, nullptr) << "it was taken out";

        list->add(replaced);
        const Ref<Variable> namesake = variable("b");
        list->add(namesake);
        EXPECT_EQ(list->find(*string("beta")).variable, nullptr) << "its aliases went with it";
        EXPECT_TRUE(replaced->setName(string("d")));
        EXPECT_EQ(list->find(*string("b")).variable, namesake.get())
            << "not taken out by the other's renaming";
        EXPECT_EQ(list->find(*string("d")).variable, nullptr);

        list->add(nameless);
        EXPECT_TRUE(nameless->setName(nullptr));
        EXPECT_EQ(list->find(*string("c")).variable, nullptr);
        list->add(twice);
    }
    for (const Ref<Variable>& each : {twice, replaced, nameless})
        EXPECT_TRUE(each->setName(string("free")));
}

TEST(VariableList, AliasesBelongToTheVariableThatHasThem) {
    const Ref<VariableList> list = VariableList::create();
    const Ref<Variable> first = variable("first"), second = variable("second");
    list->add(first);
    list->add(second);
    first->addAlias(string("p"));
    first->addAlias(string("p"));
    first->removeAlias(*string("p"));
    EXPECT_EQ(list->find(*string("p")).variable, first.get()) << "one of the two is left";
    second->addAlias(string("P"));
    first->removeAlias(*string("p"));
    EXPECT_EQ(list->find(*string("p")).variable, second.get());
    second->addAlias(string("q"));
    first->addAlias(string("q"));
    second->removeAlias(*string("q"));
    EXPECT_EQ(list->find(*string("q")).variable, first.get());
}

TEST(VariableList, AListIsntItsOwnAncestor) {
    const Ref<VariableList> a = VariableList::create(), b = VariableList::create(),
                            c = VariableList::create();
    a->setParentList(b);
    b->setParentList(c);
    c->setParentList(a);
    EXPECT_EQ(c->find(*string("x")).variable, nullptr);
    EXPECT_EQ(a->countOfVariables(), 0);
}

TEST(Variable, ValuesDifferFromLineToLine) {
    const Ref<Variable> x = Variable::create();
    x->setValue(string("10"), 0, nullptr, {0, 5});
    x->setValue(string("20"), TBFResultFlagPercent, nullptr, {5, TBFRangeLengthMax});
    EXPECT_EQ(read(*x, 4), "10%") << "the percent sign is that of the last value";
    EXPECT_EQ(read(*x, 5), "20%");
    EXPECT_EQ(read(*x, Variable::endScope), "20%");
    EXPECT_EQ(read(*x, -1), "10%");
}

TEST(Variable, WithoutATextItReadsAsNotANumber) {
    const Ref<Variable> x = Variable::create();
    EXPECT_EQ(read(*x, 0), "");
    x->setValue(nullptr, 0, nullptr);
    EXPECT_EQ(read(*x, 0), "");
    EXPECT_EQ(x->numberAt(0).get(), nullptr);
}

} // namespace
