#include "lines/LineCollectionTesting.h"
#include "lines/TCDeclaredNames.h"
#include "lines/TCLineCollectionDelegate.h"
#include "lines/TCLineCollectionVariable.h"
#include "results/Result.h"
#include "results/TCResult.h"
#include "units/TCNewUnitManager.h"
#include "units/Unit.h"
#include "units/UnitCollection.h"
#include "units/UnitContainer.h"
#include "units/UnitFraction.h"
#include "units/UnitFractionBuilder.h"
#include "variables/TCVariableList.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numeric>
#include <random>
#include <set>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::string answerOf(const TCLine& line) {
    const auto result = line._resultAlongPath(nullptr, nullptr);
    return result ? TBF::utf8(result->completeStringValue().value_or(u"")) : "not evaluated";
}

std::vector<std::string> answersOf(const TCLineCollection& collection) {
    std::vector<std::string> answers;
    for (const auto& line : collection)
        answers.push_back(answerOf(*line));
    return answers;
}

std::vector<std::string> answersOf(const std::vector<std::string>& texts) {
    TCLineCollection collection;
    fill(collection, texts);
    return answersOf(collection);
}

void setText(TCLineCollection& collection, std::size_t index, std::string_view text) {
    collection.lineAtIndex(index)->setExpressionString(TBF::utf16(text));
}

TEST(DeclaredNames, AnswersOfWholeDocuments) {
    useEvaluatingEnvironment();
    const struct {
        std::vector<std::string> texts;
        std::vector<std::string> answers;
    } rows[] = {
        {{"price = 45", "price * 3"}, {"45", "135"}},
        {{"x + 1", "x = 5"}, {"6", "5"}},                     // a declaration rules the lines above it, too
        {{"x = 5", "x + 1", "x = 7"}, {"5", "8", "7"}},       // the last one is read everywhere
        {{"x = 5", "X + 1"}, {"5", "6"}},                     // in any case
        {{"x = 5", "X = 7", "x", "X"}, {"5", "7", "5", "7"}}, // unless both are declared
        {{"a = 2", "b = a * 3", "c = b + a", "c"}, {"2", "6", "8", "8"}},
        {{"d = c + 1", "c = b + 1", "b = 1"}, {"3", "2", "1"}},
        {{"tax = 5%", "100 + tax"}, {"5", "105"}},
        {{"v =", "v", "v + 1"}, {"", "", "1"}}, // a name without a value counts for nothing in a sum
        {{"v = 1 / 0", "v"}, {"", ""}},
        {{"pi = 3", "2 * pi"}, {"3", "6"}}, // hides the standard one
        {{"x = 4", "(___rel_line(-1)) * 2", "y = (___rel_line(-1)) + x", "y"}, {"4", "8", "12", "12"}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(answersOf(row.texts), row.answers) << testing::PrintToString(row.texts);
}

TEST(DeclaredNames, CyclesEndInEmptyAnswers) {
    useEvaluatingEnvironment();
    const struct {
        std::vector<std::string> texts;
        std::vector<std::string> answers;
    } rows[] = {
        {{"x = x + 1"}, {""}},
        {{"x = x"}, {""}},
        {{"x = 5", "x = x + 1"}, {"5", ""}},
        {{"x = x + 1", "x = 5"}, {"6", "5"}}, // reads the last declaration, which isn't itself
        {{"a = b + 1", "b = a + 1"}, {"", ""}},
        {{"a = b", "b = c", "c = a", "4"}, {"", "", "", "4"}},
        {{"y = x", "x = y", "x = 7"}, {"7", "7", "7"}}, // only the last declaration feeds y
        {{"(___rel_line(0)) + 1"}, {""}},
        {{"(___abs_line_numbered(2)) + 1", "(___abs_line_numbered(1)) + 1"}, {"", ""}},
        {{"x = (___rel_line(1)) + 1", "x + 1"}, {"", ""}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(answersOf(row.texts), row.answers) << testing::PrintToString(row.texts);
}

TEST(DeclaredNames, CyclesLeaveNothingBehind) {
    useEvaluatingEnvironment();
    TCLineCollection collection;
    fill(collection, {"a = b + 1", "b = 1", "a * 10"});
    EXPECT_THAT(answersOf(collection), ElementsAre("2", "1", "20"));
    setText(collection, 1, "b = a + 1");
    EXPECT_THAT(answersOf(collection), ElementsAre("", "", ""));
    setText(collection, 1, "b = a + 2");
    EXPECT_THAT(answersOf(collection), ElementsAre("", "", ""));
    setText(collection, 1, "b = 4");
    EXPECT_THAT(answersOf(collection), ElementsAre("5", "4", "50"));
}

TEST(DeclaredNames, ReadersFollowEveryKindOfEdit) {
    useEvaluatingEnvironment();
    TCLineCollection collection;
    fill(collection, {"x = 2", "x * 10", "7"});
    setText(collection, 0, "x = 3");
    EXPECT_THAT(answersOf(collection), ElementsAre("3", "30", "7"));
    collection.insertLine(lineOf("x = 5"), 2); // a later declaration
    EXPECT_THAT(answersOf(collection), ElementsAre("3", "50", "5", "7"));
    collection.moveLineAtIndex(0, 2); // now the first one is the last
    EXPECT_THAT(answersOf(collection), ElementsAre("30", "5", "3", "7"));
    collection.removeLineAtIndex(2);
    EXPECT_THAT(answersOf(collection), ElementsAre("50", "5", "7"));
    EXPECT_EQ(collection.variables()->count(), 1);
    setText(collection, 1, "y = 5"); // the only declaration is renamed: x is a plain word now
    EXPECT_THAT(answersOf(collection), ElementsAre("10", "5", "7"));
    EXPECT_THAT(collection.variables()->variableNames(), ElementsAre(u"y"));
    setText(collection, 0, "y * 10");
    EXPECT_EQ(answerOf(*collection.lineAtIndex(0)), "50");
    collection.removeLineAtIndex(1);
    EXPECT_THAT(answersOf(collection), ElementsAre("10", "7"));
    EXPECT_THAT(collection.variables()->variableNames(), IsEmpty());
    collection.addLine(lineOf("y = 6"));
    EXPECT_THAT(answersOf(collection), ElementsAre("60", "7", "6"));
    collection.removeAllLines();
    EXPECT_EQ(collection.variables()->count(), 0);
}

TEST(DeclaredNames, AnotherSpellingChangesWhatAThirdOneMeans) {
    useEvaluatingEnvironment();
    TCLineCollection collection;
    fill(collection, {"rate = 5", "RATE * 2"});
    EXPECT_THAT(answersOf(collection), ElementsAre("5", "10"));
    collection.addLine(lineOf("Rate = 3"));
    EXPECT_EQ(answersOf(collection), answersOf(textsOf(collection)));
    collection.removeLineAtIndex(2);
    EXPECT_THAT(answersOf(collection), ElementsAre("5", "10"));
}

TEST(DeclaredNames, OnlyWhatDependsOnAnEditIsEvaluated) {
    useEvaluatingEnvironment();
    TCLineCollection collection;
    fill(collection, {"x = 2", "x = 3", "x + 1", "9", "y = 1"});
    EvaluationRecord record;
    setText(collection, 3, "8");
    EXPECT_THAT(record.take(), ElementsAre(3));
    setText(collection, 0, "x = 4"); // readers depend on all declarations
    EXPECT_THAT(record.take(), ElementsAre(0, 2));
    setText(collection, 4, "y = 2");
    EXPECT_THAT(record.take(), ElementsAre(4));
}

TEST(DeclaredNames, LongChainsAndCrowdedNamesEvaluate) {
    useEvaluatingEnvironment();
    constexpr int count = 50000;
    std::vector<std::string> chain;
    for (int i = 1; i < count; ++i)
        chain.push_back("a" + std::to_string(i - 1) + " = a" + std::to_string(i) + " + 1");
    chain.push_back("a" + std::to_string(count - 1) + " = 1");
    EXPECT_EQ(answersOf(chain).front(), std::to_string(count));

    // Each line uses the name that all of them declare.
    EXPECT_EQ(answersOf(std::vector<std::string>(5000, "x = x + 1")).back(), "");
}

// A document under random edits: declarations of few names, in two spellings, that use each other and lines.
class RandomNamesDocument {
public:
    explicit RandomNamesDocument(uint32_t seed)
        : random(seed)
        , nameCount(1 + seed % 5) {}

    std::string text() {
        switch (random() % 6) {
        case 0:
            return std::to_string(random() % 50);
        case 1:
            return name() + " + " + name();
        case 2:
            return name() + " = " + std::to_string(random() % 50);
        case 3:
            return name() + " = " + name() + " + " + relative(static_cast<int>(random() % 7) - 3);
        case 4:
            return absolute(static_cast<int>(random() % 10)) + " * 2 + " + name();
        default:
            return name() + " = " + name();
        }
    }

    void edit(TCLineCollection& collection) {
        const std::size_t count = collection.countOfLines();
        switch (count == 0 ? 0 : random() % 6) {
        case 0:
            collection.insertLine(lineOf(text()), random() % (count + 1));
            break;
        case 1:
            collection.removeLineAtIndex(random() % count);
            break;
        case 2:
            collection.moveLineAtIndex(random() % count, random() % count);
            break;
        default:
            setText(collection, random() % count, text());
        }
    }

    std::mt19937 random;

private:
    std::string name() {
        static constexpr const char* names[] = {"a", "b", "c", "B", "d"};
        return names[random() % nameCount];
    }

    std::size_t nameCount;
};

TEST(DeclaredNames, RandomEditsEqualAFreshLoad) {
    useEvaluatingEnvironment();
    for (uint32_t seed = 1; seed <= 25; ++seed) {
        RandomNamesDocument document(seed);
        TCLineCollection collection;
        std::vector<std::string> start(seed % 3 * 20); // with enough declarations of a name to crowd it
        for (std::string& text : start)
            text = document.text();
        fill(collection, start);
        for (int step = 0; step < 80; ++step) {
            document.edit(collection);
            ASSERT_EQ(answersOf(collection), answersOf(textsOf(collection)))
                << "seed " << seed << " step " << step << testing::PrintToString(textsOf(collection));
        }
    }
}

TEST(DeclaredNames, LineByLineInAnyOrderEqualsAFreshLoad) {
    useEvaluatingEnvironment();
    for (uint32_t seed = 1; seed <= 60; ++seed) {
        RandomNamesDocument document(seed);
        std::vector<std::string> texts(12);
        std::vector<std::size_t> order(texts.size());
        for (std::string& text : texts)
            text = document.text();
        std::iota(order.begin(), order.end(), 0);
        std::shuffle(order.begin(), order.end(), document.random);

        TCLineCollection typed; // into empty lines
        fill(typed, std::vector<std::string>(texts.size()));
        TCLineCollection inserted; // each at its place among those that are there
        std::set<std::size_t> present;
        for (const std::size_t index : order) {
            setText(typed, index, texts[index]);
            present.insert(index);
            inserted.insertLine(lineOf(texts[index]), static_cast<std::size_t>(std::distance(
                                                          present.begin(), present.find(index))));
        }
        ASSERT_EQ(answersOf(typed), answersOf(texts)) << testing::PrintToString(texts);
        ASSERT_EQ(answersOf(inserted), answersOf(texts)) << testing::PrintToString(texts);
    }
}

// Makes an environment current that knows the metre and the kilometre.
void useEnvironmentWithLengths() {
    useEvaluatingEnvironment();
    const auto units = TBF::UnitCollection::create();
    for (const auto& [symbol, factor] : {std::pair("m", "1"), std::pair("km", "1000")}) {
        const auto name = TBF::String::createWithUTF8(symbol);
        TBF::UnitContainer::Names names;
        names.byType[TBFUnitNameTypeVeryShort] = name;
        const auto container = TBF::UnitContainer::create(symbol, std::move(names));
        container->setUnitFraction(
            TBF::UnitFractionBuilder::create(TBF::Unit::create(TBFUnitTypeLength, factor, name).get())
                ->unitFraction());
        units->addUnit(*container);
    }
    TCEnvironment::current()->setUnitManager(std::make_shared<TCNewUnitManager>(units));
}

TEST(DeclaredNames, UnitsTravelWithValues) {
    useEnvironmentWithLengths();
    TCLineCollection collection;
    fill(collection, {"way = 3 km", "way + 500 m", relative(-1) + " * 2", "way / 1 m"});
    std::vector<std::string> answers;
    for (const auto& line : collection) {
        TBF::Result* const result = line->result()->tbfResult();
        std::string answer = result->string()->utf8();
        if (const TBF::UnitFraction* const fraction = result->unitFraction())
            for (const auto& entry : fraction->unitDegrees())
                answer += " " + entry.unit->identifierString()->utf8();
        answers.push_back(std::move(answer));
    }
    EXPECT_THAT(answers, ElementsAre("3 km", "3500 m", "7000 m", "3000"));
}

std::string displayValueOf(const TCLineCollection& collection, const std::u16string& name) {
    return TBF::utf8(collection.declaredNames().lineCollectionVariableWithName(name, true)->displayValue());
}

// `x = 5 m` and `x = 5 km` are of one text.
TEST(DeclaredNames, TheUnitIsThatOfTheValueWhichRules) {
    useEnvironmentWithLengths();
    TCLineCollection collection;
    fill(collection, {"x * 2 / 1 m", "x = 5 m", "x = 5 km"});
    EXPECT_EQ(answerOf(*collection.lineAtIndex(0)), "10000");
    collection.lineAtIndex(1)->evaluate(); // sets a value that doesn't rule
    EXPECT_EQ(answerOf(*collection.lineAtIndex(0)), "10000");
    EXPECT_EQ(displayValueOf(collection, u"x"), "5 km");
    collection.removeLineAtIndex(2);
    EXPECT_EQ(answerOf(*collection.lineAtIndex(0)), "10");
    EXPECT_EQ(displayValueOf(collection, u"x"), "5 m");
}

TEST(DeclaredNames, LinesThatReadDifferentlyWithANameAreEvaluated) {
    useEvaluatingEnvironment();
    struct Row {
        std::string text;
        std::string declaration;
        std::string without;
        std::string with;
    };
    const Row rows[] = {
        {"Lunch 12 x 5", "x = 7", "60", "5"},
        {"2 * pi", "PI = 4", "6.28318530717958647692", "8"},
        {"3 tax", "tax = 2", "3", "6"},
    };
    for (const Row& row : rows) {
        TCLineCollection collection;
        RecordingDelegate delegate;
        collection.setDelegate(&delegate);
        fill(collection, {row.text, "1"});
        const auto answer = [&] {
            return answerOf(*collection.lineAtIndex(0)).substr(0, row.without.size());
        };
        EXPECT_EQ(answer(), row.without) << row.text;
        delegate.take();
        collection.addLine(lineOf(row.declaration));
        EXPECT_EQ(answersOf(collection), answersOf(textsOf(collection))) << row.text;
        EXPECT_EQ(answerOf(*collection.lineAtIndex(0)), row.with) << row.text;
        EXPECT_THAT(delegate.take(), ElementsAre("updated 0 2", "followed 0")) << row.text;
        setText(collection, 2, "other = 1");
        EXPECT_EQ(answer(), row.without) << row.text;
        EXPECT_THAT(delegate.take(), ElementsAre("updated 0 2", "followed 0")) << row.text;
        collection.setDelegate(nullptr);
    }
}

TEST(DeclaredNames, ALineThatComesBackKnowsTheNamesOfNow) {
    useEvaluatingEnvironment();
    TCLineCollection collection;
    fill(collection, {"2 * rate", "1"});
    const auto away = collection.lineAtIndex(0);
    EXPECT_THAT(away->usedVariableNames(), IsEmpty());
    collection.removeLineAtIndex(0);
    collection.addLine(lineOf("rate = 5"));
    collection.insertLine(away, 0);
    EXPECT_EQ(answerOf(*away), "10");
    setText(collection, 2, "rate = 6");
    EXPECT_EQ(answerOf(*away), "12");
}

TEST(DeclaredNames, ANameThatALocaleBringsIsKnown) {
    useEvaluatingEnvironment();
    TCLineCollection collection;
    fill(collection, {"x = 1,5", "x * 2"});
    collection.beginBatchUpdate();
    setText(collection, 0, "y = 1,5");
    collection.setLocaleWithDecimalPoint(u',', u'.');
    setText(collection, 1, "y * 2");
    collection.endBatchUpdate();
    EXPECT_THAT(answersOf(collection), ElementsAre("1.5", "3"));
}

// A delegate that is told of shifted references writes a declaration instead.
class DeclaringDelegate : public TCLineCollectionDelegate {
public:
    bool respondsToDidNoticeThatLineReferenceOnLines() const override { return true; }
    void lineCollectionDidNoticeThatLineReferenceOnLinesShouldShiftBy(
        TCLineCollection& collection, const std::vector<std::shared_ptr<TCLine>>&,
        const std::vector<TCLineReferenceShifts>&) override {
        setText(collection, 0, "rate = 4");
    }
};

TEST(DeclaredNames, ANameThatADelegateDeclaresIsKnown) {
    useEvaluatingEnvironment();
    TCLineCollection collection;
    fill(collection, {"1", "2", relative(-1), "3 * rate"});
    DeclaringDelegate delegate;
    collection.setDelegate(&delegate);
    collection.insertLine(lineOf("9"), 2);
    EXPECT_THAT(answersOf(collection), ElementsAre("4", "2", "9", "9", "12"));
    collection.setDelegate(nullptr);
}

TEST(LineCollectionVariable, EachDeclarationRulesItsRange) {
    useEvaluatingEnvironment();
    TCLineCollection collection;
    fill(collection, {"1", "2", "x = 5", "3", "4", "x = 8"});
    const auto valuesOfX = [&] {
        const auto variable = collection.declaredNames().lineCollectionVariableWithName(u"x", true);
        std::vector<std::string> values;
        for (const std::size_t index : {0, 2, 4, 5, 9})
            values.push_back(TBF::utf8(variable->delocalizedValueForLineAtIndex(index).value_or(u"none")));
        return values;
    };
    EXPECT_THAT(valuesOfX(), ElementsAre("5", "5", "5", "8", "8"));
    collection.insertLine(lineOf("0"), 0); // the ranges move with the lines
    EXPECT_THAT(valuesOfX(), ElementsAre("5", "5", "5", "5", "8"));
    collection.moveLineAtIndex(6, 0);
    EXPECT_THAT(valuesOfX(), ElementsAre("8", "8", "5", "5", "5"));
    setText(collection, 0, "x = 5");
    setText(collection, 4, "x =");
    EXPECT_THAT(valuesOfX(), ElementsAre("5", "5", "none", "none", "none"));
    collection.removeLineAtIndex(4);
    EXPECT_THAT(valuesOfX(), ElementsAre("5", "5", "5", "5", "5"));
}

TEST(LineCollectionVariable, OwnersAndTheirValues) {
    useEvaluatingEnvironment();
    const auto first = lineOf("x = 1");
    const auto second = lineOf("x = 2");
    const auto variable = TCLineCollectionVariable::variableWithName(u"x", first);
    EXPECT_EQ(variable->indexRangeForOwnerLine(first), (TCRange{0, -1}));
    variable->addOwnerLine(second, {4, -1});
    variable->addOwnerLine(nullptr, {0, -1});
    EXPECT_EQ(variable->countOfOwnerLines(), 2u);
    EXPECT_EQ(variable->indexRangeForOwnerLine(first), (TCRange{0, 4}));
    EXPECT_EQ(variable->lastOwnerLine(), second);

    variable->setValueResult(TCResult::resultWithRawResultString(u"10"), first);
    variable->setValueResult(TCResult::resultWithRawResultString(u"20", nullptr, 1), second);
    EXPECT_EQ(variable->delocalizedValueForLineAtIndex(3), u"10");
    EXPECT_EQ(variable->delocalizedValue(), u"20");
    EXPECT_EQ(variable->resultFlags(), 1u);

    variable->beginBatchOwnerLinesChange();
    variable->removeAllOwnerLines();
    variable->addOwnerLine(first, {0, -1});
    variable->endBatchOwnerLineChange();
    EXPECT_TRUE(variable->previousOwnerLines().contains(second));
    EXPECT_EQ(variable->delocalizedValue(), u"10");
    EXPECT_EQ(variable->resultFlags(), 0u);
}

} // namespace
