#include "units/UnitCollection.h"

#include "numbers/Decimal.h"
#include "runtime/Unicode.h"

#include "units/UnitVocabulary.h"

#include <gtest/gtest.h>

#include <sstream>
#include <vector>

using namespace UnitTesting;
using TBF::adopt;
using TBF::Ref;
using TBF::UnitCollection;
using TBF::UnitContainer;

namespace {

using Names = std::map<TBFUnitNameType, std::string>;
using Aliases = std::multimap<TBFUnitNameType, std::string>;

Ref<UnitContainer> named(const char* identifier, const Names& names, const Aliases& aliases = {},
                         const std::set<std::string>& caseSensitive = {}) {
    return UnitTesting::container(identifier, names, aliases, caseSensitive);
}

Ref<UnitContainer> scaled(const char* identifier, TBFUnitType type, const char* factor) {
    const auto container = named(identifier, {{TBFUnitNameTypeSingular, identifier}});
    const auto unit = TBF::Unit::create(type, factor, TBF::String::createWithUTF8(identifier));
    container->setUnitFraction(TBF::UnitFractionBuilder::create(unit.get())->unitFraction());
    return container;
}

// What a search for words separated by spaces finds: "metre:1 mile:2 exact longer", with the format of each.
std::string found(const UnitCollection& collection, const char* query) {
    std::vector<std::u16string> words;
    std::istringstream stream(query);
    for (std::string word; stream >> word;)
        words.push_back(TBF::utf16(word));
    const std::vector<std::u16string_view> views(words.begin(), words.end());
    bool hasLongerNames = false;
    bool exactMatch = true;
    std::string text;
    for (const auto& result : collection.findUnitsMatchingWords(views, &hasLongerNames, &exactMatch)) {
        text += result.unit->identifier() + ':' + std::to_string(result.formatType) + ' ';
    }
    if (exactMatch) text += "exact ";
    if (hasLongerNames) text += "longer ";
    if (!text.empty()) text.pop_back();
    return text;
}

} // namespace

TEST(UnitCollectionTests, wordsFindTheUnitsTheyName) {
    const auto collection = UnitCollection::create();
    collection->addUnit(*named("metre", {{TBFUnitNameTypeSingular, "metre"}, {TBFUnitNameTypeVeryShort, "m"}},
                               {{TBFUnitNameTypeSingular, "Meter"}}));
    collection->addUnit(
        *named("area", {{TBFUnitNameTypeSingular, "square  metre"}, {TBFUnitNameTypeVeryShort, "m m"}}));
    collection->addUnit(
        *named("minute", {{TBFUnitNameTypeSingular, "minute"}, {TBFUnitNameTypeVeryShort, "M"}}));
    collection->addUnit(*named("kilometre", {{TBFUnitNameTypeVeryShort, "km"}}));
    collection->addUnit(
        *named("kelvin", {{TBFUnitNameTypeVeryShort, "K"}}, {{TBFUnitNameTypeSymbol, "°K"}}, {"K"}));
    collection->addUnit(
        *named("street", {{TBFUnitNameTypeSingular, "STRASSE"}, {TBFUnitNameTypePlural, "Ångström"}}));
    const std::pair<const char*, const char*> cases[] = {
        {"metre", "metre:1 exact"},
        {"METRE", "metre:1"},
        {"meter", "metre:1"},
        {"Meter", "metre:1 exact"},
        {"square", "longer"},
        {"square metre", "area:1 exact"},
        {"Square Metre", "area:1"},
        {"square metre x", ""},
        // An exact name wins over other spellings of the same word.
        {"m", "metre:2 exact longer"},
        {"M", "minute:2 exact longer"},
        {"m m", "area:2 exact"},
        {"km", "kilometre:2 exact"},
        {"KM", "kilometre:2"},
        // A case-sensitive name has one spelling only.
        {"K", "kelvin:2 exact"},
        {"k", ""},
        {"°k", "kelvin:3"},
        {"strasse", "street:1"},
        {"ångström", "street:1"},
        {"", ""},
        {"nothing", ""},
    };
    for (const auto& [query, expected] : cases)
        EXPECT_EQ(found(*collection, query), expected) << query;
}

TEST(UnitCollectionTests, aWordThatNamesSeveralUnitsFindsThemInOrderOfAddition) {
    const auto collection = UnitCollection::create();
    for (const char* identifier : {"b", "a", "c"}) {
        collection->addUnit(*named(identifier, {{TBFUnitNameTypeVeryShort, "x"}}));
    }
    EXPECT_EQ(found(*collection, "x"), "b:2 a:2 c:2 exact");
    EXPECT_EQ(found(*collection, "X"), "b:2 a:2 c:2");
}

TEST(UnitCollectionTests, aNameIsThereOnceForAUnitAndFormat) {
    const auto collection = UnitCollection::create();
    const auto unit = named("u", {{TBFUnitNameTypeSingular, "name"}},
                            {{TBFUnitNameTypePlural, "name"}, {TBFUnitNameTypeSymbol, "name"}});
    collection->addUnit(*unit);
    collection->addUnit(*unit);
    EXPECT_EQ(found(*collection, "name"), "u:1 u:3 exact");
    EXPECT_EQ(collection->countOfUnits(), 2);
    EXPECT_EQ(collection->searchIndex().size(), 2);
}

TEST(UnitCollectionTests, aRemovedUnitLeavesNoResultBehind) {
    const auto collection = UnitCollection::create();
    const auto a = named("a", {{TBFUnitNameTypeSingular, "long Name"}, {TBFUnitNameTypeVeryShort, "n"}});
    const auto b = named("b", {{TBFUnitNameTypeSingular, "long name"}, {TBFUnitNameTypeVeryShort, "n"}});
    for (int round = 0; round < 3; ++round) {
        collection->addUnit(*a);
        collection->addUnit(*b);
        EXPECT_EQ(collection->searchIndex().size(), 4);
        collection->removeUnit(*a);
        EXPECT_EQ(found(*collection, "n"), "b:2 exact");
        EXPECT_EQ(found(*collection, "long"), "longer");
        collection->removeUnit(*b);
        EXPECT_EQ(found(*collection, "n"), "");
        EXPECT_EQ(found(*collection, "long"), "");
        EXPECT_EQ(collection->countOfUnits(), 0);
        EXPECT_EQ(collection->searchIndex().size(), 0);
    }
    collection->removeUnit(*a);
    EXPECT_EQ(collection->countOfUnits(), 0);
}

TEST(UnitCollectionTests, theFirstUnitOfScalarOneIsTheBaseUnitOfItsType) {
    const auto collection = UnitCollection::create();
    const auto km = scaled("km", TBFUnitTypeLength, "1000");
    const auto m = scaled("m", TBFUnitTypeLength, "1.0");
    const auto metre = scaled("metre", TBFUnitTypeLength, "1");
    for (const auto& unit : {km, m, metre})
        collection->addUnit(*unit);
    EXPECT_EQ(collection->baseUnit(TBFUnitTypeLength), m.get());
    EXPECT_EQ(collection->baseUnit(TBFUnitTypeMass), nullptr);
    EXPECT_EQ(collection->countOfUnitsWithType(TBFUnitTypeLength), 3);
    collection->removeUnit(*km);
    EXPECT_EQ(collection->baseUnit(TBFUnitTypeLength), m.get());
    collection->setBaseUnit(TBFUnitTypeLength, km.get());
    EXPECT_EQ(collection->baseUnit(TBFUnitTypeLength), km.get());
    // A unit of scalar 1 takes the base unit with it, whichever that is.
    collection->removeUnit(*metre);
    EXPECT_EQ(collection->baseUnit(TBFUnitTypeLength), nullptr);
    EXPECT_EQ(collection->countOfUnitsWithType(TBFUnitTypeLength), 1);
}

TEST(UnitCollectionTests, linkedUnitsAreFoundBySize) {
    const auto collection = UnitCollection::create();
    const auto m = scaled("m", TBFUnitTypeLength, "1");
    const auto km = scaled("km", TBFUnitTypeLength, "1000");
    const auto cm = scaled("cm", TBFUnitTypeLength, "0.01");
    const auto mile = scaled("mile", TBFUnitTypeLength, "1609.344");
    EXPECT_EQ(collection->largestLinkedUnitWithin(*m, TBF::Decimal(5)), nullptr);
    collection->addSIExponentLink(*m, *km, 3);
    collection->addSIExponentLink(*m, *cm, -2);
    collection->addNonSILink(*m, *mile);
    const std::pair<const char*, UnitContainer*> cases[] = {
        {"0.001", nullptr}, {"0.01", cm.get()},       {"0.5", cm.get()},
        {"1", m.get()},     {"999", m.get()},         {"1000", km.get()},
        {"1609", km.get()}, {"1609.344", mile.get()}, {"1E9", mile.get()},
    };
    for (const auto& [scalar, expected] : cases) {
        EXPECT_EQ(collection->largestLinkedUnitWithin(*m, TBF::Decimal(scalar)), expected) << scalar;
    }
    EXPECT_EQ(collection->siExponentUnit(*m, 3), km.get());
    EXPECT_EQ(collection->siExponentUnit(*m, 6), nullptr);
    EXPECT_EQ(collection->siExponentUnit(*mile, 0), mile.get());
    EXPECT_EQ(collection->siExponentUnit(*mile, 3), nullptr);
    EXPECT_EQ(collection->unityLinkedUnit(*mile), m.get());
    EXPECT_EQ(collection->unityLinkedUnit(*m), m.get());
}
