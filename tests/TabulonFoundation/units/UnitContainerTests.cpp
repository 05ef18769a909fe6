#include "units/UnitContainer.h"

#include "units/UnitVocabulary.h"

#include <gtest/gtest.h>

using TBF::UnitContainer;

TEST(UnitContainerTests, anAnonymousContainerHasNoNames) {
    const auto container = UnitContainer::create();
    for (int type = 0; type <= 5; ++type) {
        EXPECT_FALSE(container->hasNameForType(static_cast<TBFUnitNameType>(type))) << type;
    }
    EXPECT_EQ(container->unitType(), TBFUnitTypeNone);
    EXPECT_EQ(container->scalar(), nullptr);
}

TEST(UnitContainerTests, namesAreFoundByTypeAndTypesByName) {
    const auto container = UnitTesting::container(
        "kilometre", {{TBFUnitNameTypeSingular, "kilometre"}, {TBFUnitNameTypeVeryShort, "km"}},
        {{TBFUnitNameTypePlural, "klicks"},
         {TBFUnitNameTypeSymbol, "km"},
         {TBFUnitNameTypeSingular, "klick"}},
        {"km"});
    EXPECT_EQ(container->nameForType(TBFUnitNameTypeIdentifier), "kilometre");
    EXPECT_EQ(container->nameForType(TBFUnitNameTypeVeryShort), "km");
    EXPECT_EQ(container->nameForType(TBFUnitNameTypePlural), "");
    const std::pair<const char16_t*, int> cases[] = {
        {u"kilometre", TBFUnitNameTypeSingular},
        {u"klick", TBFUnitNameTypeSingular},
        {u"klicks", TBFUnitNameTypePlural},
        {u"km", TBFUnitNameTypeSymbol}, // the alias wins over the name
        {u"KM", TBFUnitNameTypeNone},
        {u"", TBFUnitNameTypeNone},
    };
    for (const auto& [name, type] : cases)
        EXPECT_EQ(container->nameTypeForName(name), type);
    EXPECT_TRUE(container->isNameCaseSensitive(u"km"));
    EXPECT_FALSE(container->isNameCaseSensitive(u"KM"));
    EXPECT_FALSE(container->isNameCaseSensitive(u"klick"));
}

TEST(UnitContainerTests, aliasesAreListedByTypeAndThenInOrderOfAddition) {
    TBF::UnitContainer::Names names;
    names.byType[TBFUnitNameTypePlural] = TBF::String::create(u"exes");
    for (const auto& [type, text] : {std::pair{TBFUnitNameTypeSymbol, u"c"},
                                     {TBFUnitNameTypeSingular, u"b"},
                                     {TBFUnitNameTypeSingular, u"a"}})
        names.aliases.push_back({type, TBF::String::create(text)});
    const auto container = UnitContainer::create("x", std::move(names));
    std::u16string listed;
    for (const auto& alias : container->aliases())
        listed += alias.text->view();
    EXPECT_EQ(listed, u"bac");
}
