#include "face/names/TBFNamespace.h"
#include "names/functions/Function.h"
#include "names/functions/FunctionList.h"
#include "names/variables/ScopedVariable.h"
#include "names/variables/VariableList.h"
#include "names/wordoperators/WordOperator.h"
#include "names/wordoperators/WordOperatorList.h"
#include "numbers/TBFOperatorType.h"
#include "units/UnitCollection.h"
#include "units/UnitContainer.h"

#include <gtest/gtest.h>
#include <utility>

namespace {

TEST(TBFNamespace, GivesAReferenceToEverything) {
    const auto word = TBF::String::create(u"ab");
    const auto known = TBF::Variable::create();
    known->setName(word);
    const auto variables = TBF::VariableList::create();
    variables->add(known);
    const auto functions = TBF::FunctionList::create();
    functions->add(TBF::Function::create(word));
    TBF::UnitContainer::Names names;
    names.byType[TBFUnitNameTypeVeryShort] = word;
    const auto units = TBF::UnitCollection::create();
    units->addUnit(*TBF::UnitContainer::create("id", std::move(names)));
    const auto operators = TBF::WordOperatorList::create();
    operators->add(TBF::WordOperator::create(word, TBFOperatorNotationInfix, word, 1, 0));
    const auto space = TBF::Namespace::create();
    space->setVariableList(variables);
    space->setFunctionList(functions);
    space->setUnitCollection(units);
    space->setWordOperatorList(operators);

    const TBF::String* const words[] = {word.get(), word.get()};
    TBFNamespaceType type = TBFNamespaceTypeNone;
    bool partial = true;
    TBFNamespaceResolvedType resolved;
    EXPECT_TRUE(TBFNamespaceGetTypeForWords(space.get(), words, 1, 7, &type, &partial, &resolved));
    EXPECT_EQ(type, TBFNamespaceTypeVariable);
    EXPECT_FALSE(partial);
    const auto variable = TBF::adopt(resolved.variable);
    const auto unit = TBF::adopt(resolved.unitContainer);
    const auto function = TBF::adopt(resolved.function);
    const auto op = TBF::adopt(resolved.wordOperator);
    ASSERT_TRUE(variable && unit && function && op);
    EXPECT_EQ(variable->scope(), 7);
    EXPECT_TRUE(variable->isUnique());

    // Several words can only be a unit.
    EXPECT_FALSE(TBFNamespaceGetTypeForWords(space.get(), words, 2, 0, nullptr, nullptr, &resolved));
    EXPECT_EQ(resolved.variable, nullptr);
    EXPECT_FALSE(TBFNamespaceGetTypeForWords(nullptr, words, 1, 0, &type, nullptr, nullptr));
    EXPECT_EQ(type, TBFNamespaceTypeNone);
}

} // namespace
