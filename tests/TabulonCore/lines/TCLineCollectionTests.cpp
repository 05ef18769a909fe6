#include "lines/TCLineCollection.h"

#include "LineCollectionTesting.h"
#include "environment/TCEnvironment.h"
#include "environment/TCWarnLog.h"
#include "lines/TCLineCollectionReading.h"
#include "results/TCResultFormattingOptions.h"

#include <gmock/gmock.h>

#include <functional>
#include <random>
#include <set>
#include <string>
#include <vector>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

void expectOrderly(const TCLineCollection& collection) {
    std::size_t index = 0;
    for (const auto& line : collection) {
        EXPECT_EQ(line->index(), index++);
        EXPECT_EQ(line->_lineCollection(), &collection);
        EXPECT_TRUE(collection.containsLine(line));
        EXPECT_EQ(collection.lineWithIdentifier(line->uniqueIdentifier()), line);
    }
}

TEST(TCLineCollection, EditsKeepPlacesAndIdentities) {
    struct Row {
        const char* name;
        std::function<void(TCLineCollection&)> edit;
        std::vector<std::string> texts;
    };
    const std::vector<Row> rows = {
        {"add", [](auto& c) { c.addLine(lineOf("x")); }, {"a", "b", "c", "d", "x"}},
        {"insert first", [](auto& c) { c.insertLine(lineOf("x"), 0); }, {"x", "a", "b", "c", "d"}},
        {"insert at the end", [](auto& c) { c.insertLine(lineOf("x"), 4); }, {"a", "b", "c", "d", "x"}},
        {"insert beyond", [](auto& c) { c.insertLine(lineOf("x"), 5); }, {"a", "b", "c", "d"}},
        {"insert null", [](auto& c) { c.insertLine(nullptr, 0); }, {"a", "b", "c", "d"}},
        {"add null", [](auto& c) { c.addLine(nullptr); }, {"a", "b", "c", "d"}},
        {"remove", [](auto& c) { c.removeLineAtIndex(1); }, {"a", "c", "d"}},
        {"remove beyond", [](auto& c) { c.removeLineAtIndex(4); }, {"a", "b", "c", "d"}},
        {"remove by text", [](auto& c) { c.removeLine(lineOf("c")); }, {"a", "b", "d"}},
        {"remove foreign", [](auto& c) { c.removeLine(lineOf("x")); }, {"a", "b", "c", "d"}},
        {"move down", [](auto& c) { c.moveLineAtIndex(0, 2); }, {"b", "c", "a", "d"}},
        {"move up", [](auto& c) { c.moveLineAtIndex(3, 1); }, {"a", "d", "b", "c"}},
        {"move nowhere", [](auto& c) { c.moveLineAtIndex(2, 2); }, {"a", "b", "c", "d"}},
        {"move beyond", [](auto& c) { c.moveLineAtIndex(2, 4); }, {"a", "b", "c", "d"}},
        {"remove all", [](auto& c) { c.removeAllLines(); }, {}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        TCLineCollection collection;
        fill(collection, {"a", "b", "c", "d"});
        row.edit(collection);
        EXPECT_EQ(textsOf(collection), row.texts);
        expectOrderly(collection);
    }
}

TEST(TCLineCollection, RemovesTheEarlierOfTwoLinesWithEqualTexts) {
    TCLineCollection collection;
    fill(collection, {"1", "2", "1"});
    const auto first = collection.lineAtIndex(0);
    collection.removeLine(collection.lineAtIndex(2));
    EXPECT_THAT(textsOf(collection), ElementsAre("2", "1"));
    EXPECT_FALSE(collection.containsLine(first));
    EXPECT_EQ(first->_lineCollection(), &collection);
}

TEST(TCLineCollection, LookupsOutsideGiveNothing) {
    TCLineCollection collection;
    fill(collection, {"a", "b"});
    EXPECT_EQ(collection.lineAtIndex(2), nullptr);
    EXPECT_EQ(collection.indexOfLine(nullptr), -1);
    EXPECT_FALSE(collection.lineIndexIsValid(-1));
    EXPECT_TRUE(collection.lineIndexIsValid(1));
    EXPECT_EQ(collection.lineWithIdentifier(u"no such"), nullptr);
    EXPECT_EQ(collection.linesWithIndexes(TCLineIndexSet{1, 9}).size(), 1u);
}

TEST(TCLineCollection, WarnsOnlyAtTheLevelOfWarnings) {
    TCLineCollection collection;
    testing::internal::CaptureStderr();
    collection.removeLineAtIndex(3);
    EXPECT_THAT(testing::internal::GetCapturedStderr(), IsEmpty());
    TCWarnLogLevel = TCWarnLogLevelWarnings;
    testing::internal::CaptureStderr();
    collection.insertLine(lineOf("x"), 7);
    collection.moveLineAtIndex(1, 1);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Warning: insert index (7) out of range\nWarning: no-op line move (1 -> 1)\n");
    TCWarnLogLevel = 2;
}

TEST(TCLineCollection, LinesOutliveTheirCollection) {
    std::shared_ptr<TCLine> kept, removed;
    {
        TCLineCollection collection;
        fill(collection, {"1", "2"});
        kept = collection.lineAtIndex(0);
        removed = collection.lineAtIndex(1);
        collection.removeLineAtIndex(1);
    }
    EXPECT_EQ(kept->_lineCollection(), nullptr);
    removed->setExpressionString(u"3");
    EXPECT_EQ(removed->expressionString(), u"3");
}

TEST(TCLineCollection, LinesTakeTheCollectionsTrigonometryModeOnce) {
    TCLineCollection collection;
    const auto own = lineOf("1");
    const auto plain = lineOf("2");
    own->setTrigonometryMode(2);
    EXPECT_EQ(plain->trigonometryMode(), 0);
    collection.addLine(own);
    collection.addLine(plain);
    EXPECT_EQ(own->trigonometryMode(), 2);
    EXPECT_EQ(plain->trigonometryMode(), 1);
    collection.setTrigonometryMode(2);
    own->setTrigonometryMode(1);
    collection.setTrigonometryMode(1);
    EXPECT_EQ(own->trigonometryMode(), 1);
    EXPECT_EQ(plain->trigonometryMode(), 1);
    EXPECT_FALSE(plain->needsEvaluation()); // a mode is followed at once
}

TEST(TCLineCollection, LocaleIsTheDocumentsOwn) {
    TCLineCollection collection;
    fill(collection, {"1.5 + 2", "2.25"});
    collection.setLocaleWithDecimalPoint(u',', u',');
    EXPECT_EQ(collection.decimalPlaceCharacter(), u'.');
    collection.convertToLocaleWithDecimalPoint(u',', u'.');
    EXPECT_THAT(textsOf(collection), ElementsAre("1,5 + 2", "2,25"));
    EXPECT_EQ(collection.decimalPlaceCharacter(), u',');
    EXPECT_EQ(collection.thousandsSeparatorCharacter(), u'.');
    collection.setLocaleWithDecimalPoint(u'.', u',');
    EXPECT_THAT(textsOf(collection), ElementsAre("1,5 + 2", "2,25"));

    collection.setLocaleWithDecimalPoint(u',', u'.');
    const auto late = lineOf("7");
    collection.addLine(late);
    EXPECT_EQ(late->customFormattingOptions()->decimalPlaceCharacter(), u',');
}

TEST(TCLineCollection, SharedOptionsDontKeepLinesFromTheirLocale) {
    TCLineCollection collection;
    collection.setDefaultResultFormattingOptions(std::make_shared<TCResultFormattingOptions>());
    fill(collection, {"1.5", "2.5"});
    EXPECT_EQ(collection.lineAtIndex(0)->customFormattingOptions(),
              collection.lineAtIndex(1)->customFormattingOptions());
    collection.convertToLocaleWithDecimalPoint(u',', u'.');
    EXPECT_THAT(textsOf(collection), ElementsAre("1,5", "2,5"));
}

TEST(TCLineCollection, ReadsAsAWhole) {
    TCLineCollection empty, collection;
    fill(empty, {"", "", ""});
    fill(collection, {"one", "", "two", ""});
    EXPECT_TRUE(TCLineCollectionReading::isEmpty(empty));
    EXPECT_FALSE(TCLineCollectionReading::isEmpty(collection));
    EXPECT_EQ(TCLineCollectionReading::fullPreview(collection), u"one, two, ");
    EXPECT_EQ(TCLineCollectionReading::stringOfAllExpressionsSeperatedByDivider(collection, u"|"),
              u"one||two|");
    collection.lineAtIndex(0)->setExpressionString(std::u16string(200, u'a'));
    EXPECT_EQ(TCLineCollectionReading::fullPreview(collection), std::u16string(100, u'a'));
    EXPECT_EQ(TCLineCollectionReading::fullPreview(empty), u"");
}

TEST(TCLine, KindsOfLines) {
    struct Row {
        std::string text;
        int32_t type;
    };
    for (const Row& row : std::vector<Row>{{"5 + 3", TCLineTypeNormal},
                                           {"", TCLineTypeNormal},
                                           {"x = 5", TCLineTypeVariableDeclaration},
                                           {"x =", TCLineTypeVariableDeclaration},
                                           {"= 5", TCLineTypePlainText},
                                           {"a = b = 3", TCLineTypePlainText}})
        EXPECT_EQ(lineOf(row.text)->lineType(), row.type) << row.text;
    EXPECT_EQ(TCLine::make()->lineType(), TCLineTypePlainText);
    EXPECT_EQ(TCLine::lineWithPlainText(u"5 + 3")->lineType(), TCLineTypePlainText);
    EXPECT_EQ(TCLine::lineWithPlainText(u"5 + 3")->evaluableExpression(), nullptr);
}

TEST(TCLine, IdentifiersAreUniqueAndStay) {
    std::set<std::u16string> identifiers;
    const auto line = lineOf("1");
    const std::u16string identifier = line->uniqueIdentifier();
    for (int i = 0; i < 70000; ++i)
        identifiers.insert(TCLine::make()->uniqueIdentifier());
    EXPECT_EQ(identifiers.size(), 70000u);
    line->setExpressionString(u"2");
    line->setIndex(9);
    EXPECT_EQ(line->uniqueIdentifier(), identifier);
}

TEST(TCLine, ComparesByText) {
    EXPECT_TRUE(lineOf("1")->isEqual(*lineOf("1")));
    EXPECT_FALSE(lineOf("1")->isEqual(*lineOf("1 ")));
    EXPECT_FALSE(lineOf("")->isEqual(*TCLine::make()));
    EXPECT_EQ(lineOf("1")->hash(), lineOf("1")->hash());
}

TEST(TCLine, ReadsItsReferences) {
    const auto line = lineOf("(___rel_line(-1)) + (___abs_line(4)) + (___rel_line(-2))");
    TCLineCollection collection;
    fill(collection, {"1", "2", "3"});
    collection.addLine(line);
    EXPECT_EQ(line->directRelativeLineReferenceIndexes(), (TCIndexSet{-1, -2}));
    EXPECT_EQ(line->directAbsoluteLineReferenceIndexes(), TCIndexSet{4});
    EXPECT_EQ(line->directLineReferenceIndexes(), (TCIndexSet{1, 2, 4}));
    collection.insertLine(lineOf("0"), 0);
    EXPECT_EQ(line->directLineReferenceIndexes(), (TCIndexSet{2, 3, 4}));
    EXPECT_FALSE(collection.lineAtIndex(0)->directLineReferenceIndexes());
    EXPECT_FALSE(collection.lineAtIndex(0)->directAbsoluteLineReferenceIndexes());
}

} // namespace
