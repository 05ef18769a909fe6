// Answers with units, from the line to the text: a small set of units, made by hand.

#include "bundle/LocalizedStrings.h"
#include "environment/TCBuiltins.h"
#include "environment/TCEnvironment.h"
#include "environment/TCEvaluator.h"
#include "environment/TCSettings.h"
#include "lines/TCLine.h"
#include "lines/TCLineCollection.h"
#include "lines/TCLineCollectionStatistics.h"
#include "results/TCResult.h"
#include "results/TCResultFormatter.h"
#include "results/TCResultFormattingOptionsContextualizer.h"
#include "runtime/Unicode.h"
#include "units/TCBasicUnit.h"
#include "units/TCUnitCollection.h"
#include "variables/TCVariableList.h"

#include <gtest/gtest.h>

namespace {

TCUnitNames names(std::u16string singular, std::u16string plural, std::u16string veryShort,
                  std::optional<std::u16string> symbol = {}) {
    TCUnitNames named;
    named.singular = std::move(singular);
    named.plural = std::move(plural);
    named.veryShort = std::move(veryShort);
    named.symbol = std::move(symbol);
    return named;
}

std::shared_ptr<TCUnitCollection> units() {
    const auto collection = TCUnitCollection::create();
    const auto add = [&](const char16_t* identifier, TCUnitType type, const char16_t* factor,
                         const TCUnitNames& named) {
        std::shared_ptr<TCUnit> unit;
        if (type == TCUnitTypeMoney)
            unit = TCMutableBasicUnit::unitWithIdentifier(identifier, type, factor, named);
        else
            unit = TCBasicUnit::unitWithIdentifier(identifier, type, factor, named);
        collection->addUnit(unit);
        if (std::u16string_view(factor) == u"1") collection->setDefaultUnitForType(unit, type);
    };
    add(u"metre", TCUnitTypeLength, u"1", names(u"metre", u"metres", u"m"));
    add(u"kilometre", TCUnitTypeLength, u"1000", names(u"kilometre", u"kilometres", u"km"));
    add(u"second", TCUnitTypeTime, u"1", names(u"second", u"seconds", u"s"));
    add(u"hour", TCUnitTypeTime, u"3600", names(u"hour", u"hours", u"h"));
    add(u"gram", TCUnitTypeMass, u"0.001", names(u"gram", u"grams", u"g"));
    add(u"kilogram", TCUnitTypeMass, u"1", names(u"kilogram", u"kilograms", u"kg"));
    add(u"USD", TCUnitTypeMoney, u"1", names(u"dollar", u"dollars", u"USD", u"$"));
    add(u"EUR", TCUnitTypeMoney, u"1.25", names(u"euro", u"euros", u"EUR", u"€"));
    return collection;
}

class ResultUnits : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        if (!TCSettings::isSet()) TCSettings::make()->set();
    }

    void SetUp() override {
        before = TCEnvironment::current();
        const auto environment = TCBuiltins::environment();
        environment->setUnitManager(units());
        environment->setSharedEvaluator(std::make_shared<TCEvaluator>(
            environment->unitManager(), environment->variables(), environment->wordOperators()));
        environment->set();
        TCResultFormatter::sharedInstance().setLocale("en_US");
    }

    void TearDown() override {
        if (before) before->set();
        TCResultFormatter::sharedInstance().setLocale({});
    }

    static std::shared_ptr<TCLineCollection> document(std::initializer_list<const char*> texts) {
        auto collection = std::make_shared<TCLineCollection>();
        collection->beginBatchUpdate();
        for (const char* const text : texts)
            collection->addLine(TCLine::lineWithExpressionString(TBF::utf16(text)));
        collection->endBatchUpdate();
        return collection;
    }

    static std::string answer(TCLine& line) {
        const auto result = line.result();
        if (result && result->resultType() == TCResultTypeError)
            return TBF::utf8(errorStringForTCResultErrorType(result->errorType()));
        return TBF::utf8(line.formattedResult().value_or(u""));
    }

private:
    std::shared_ptr<TCEnvironment> before;
};

TEST_F(ResultUnits, AnAnswerHasItsUnitAsTheLineWroteIt) {
    const struct {
        const char* line;
        const char* answer;
    } rows[] = {
        {"5 km", "5 km"},
        {"5 kilometres", "5 kilometres"},
        {"1 kilometre", "1 kilometre"},
        {"0.5 + 0.5 kilometres", "1 kilometre"},
        {"1.5 km + 500 m", "2,000 m"},
        {"2 km in metres", "2,000 metres"},
        {"10 m / 4 s", "2.5 m/s"},
        {"10 metres / 4 seconds", "2.5 metres per second"},
        {"10% of 50 kg", "5 kg"},
        {"5 kg + 2 m", "Error: Incompatible Units"},
        {"5 km in kg", "Error: Incompatible Units"},
        {"30 km / 2 km", "15"},
        {"12345678901 m", "1.2345678901e10 m"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(answer(*document({row.line})->lineAtIndex(0)), row.answer) << row.line;
}

TEST_F(ResultUnits, MoneyHasTwoPlacesAndItsSymbol) {
    const struct {
        const char* line;
        const char* answer;
    } rows[] = {
        {"$12.50 + 8%", "$13.50"},  {"-$5", "-$5.00"},
        {"3 - $8", "-$5.00"},       {"$1234567.891", "$1,234,567.89"},
        {"12.5 dollars", "$12.50"}, {"12.5 USD", "12.50 USD"},
        {"10 EUR in $", "$12.50"},  {"10 EUR in USD", "12.50 USD"},
        {"$3 * 2 kg", "$6.00"}, // an amount of money times anything is shown as money
        {"$12 / 4 kg", "3 $/kg"},   {"$3 / kg * 5 kg", "$15.00"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(answer(*document({row.line})->lineAtIndex(0)), row.answer) << row.line;
}

TEST_F(ResultUnits, ResultsAreEqualInEqualUnits) {
    const auto lines = document({"1 km", "1 km", "1000 m", "1000", "2 km - 1 km"});
    const auto result = [&](std::size_t index) { return lines->lineAtIndex(index)->result(); };
    EXPECT_TRUE(result(0)->isEqual(result(1).get()));
    EXPECT_FALSE(result(0)->isEqual(result(2).get()));
    EXPECT_FALSE(result(2)->isEqual(result(3).get()));
    EXPECT_TRUE(result(0)->isEqual(result(4).get()));
}

TEST_F(ResultUnits, TheFormatterTakesTheUnitFromTheOptionsOrTheLine) {
    const auto result = document({"5 km"})->lineAtIndex(0)->result();
    const auto text = [&](auto change) {
        TCResultFormattingOptions options;
        change(options);
        return TBF::utf8(
            TCResultFormatter::sharedInstance().stringValueForResult(result.get(), options).value_or(u"-"));
    };
    EXPECT_EQ(text([](auto&) {}), "5 km");
    EXPECT_EQ(text([](auto& o) { o.setUnitNameFormat(TCUnitNameFormatLong); }), "5 kilometres");
    EXPECT_EQ(text([](auto& o) { o.setShowUnit(false); }), "5");
}

TEST_F(ResultUnits, ASymbolInFrontMovesTheRanges) {
    const auto result = document({"$20,000,000,000"})->lineAtIndex(0)->result();
    const auto options = TCResultFormattingOptionsContextualizer().contextualizedOptions({}, result.get());
    TCResultRanges ranges;
    const auto text =
        TCResultFormatter::sharedInstance().normalFormattedResult(result.get(), options, &ranges);
    EXPECT_EQ(text, u"$2.00e10");
    ASSERT_EQ(ranges.count, 3u);
    EXPECT_EQ(ranges.ranges[0].location, 1);
    EXPECT_EQ(ranges.ranges[2].location, 6);
}

std::string total(const std::shared_ptr<TCLineCollection>& collection, int32_t type) {
    const auto result = TCLineCollectionStatistics(collection).getStatistic(type);
    return TBF::utf8(
        TCResultFormatter::sharedInstance().stringValueForResult(result.get(), {}).value_or(u"-"));
}

TEST_F(ResultUnits, StatisticsAddWithUnits) {
    EXPECT_EQ(total(document({"2 km", "500 m", "prose"}), TCStatisticTypeTotal), "2,500 m");
    EXPECT_EQ(total(document({"2 km", "1 km"}), TCStatisticTypeAverage), "1.5 km");
    EXPECT_EQ(total(document({"2 km", "5 kg"}), TCStatisticTypeTotal), "-");
    // In an environment of its own: without units they are words.
    const auto bare = TCEnvironment::make();
    bare->setVariables(std::make_shared<TCVariableList>());
    TCLineCollectionStatistics elsewhere(document({"2 km", "3 km"}), bare);
    EXPECT_EQ(elsewhere.getStatistic(TCStatisticTypeTotal)->unit(), nullptr);
}

TEST_F(ResultUnits, PercentagesAddWhereEveryLineWithAValueIsOne) {
    EXPECT_EQ(total(document({"10%", "", "20%", "prose"}), TCStatisticTypeTotal), "30");
    EXPECT_EQ(total(document({"10%", "", "20"}), TCStatisticTypeTotal), "");
}

TEST(Statistics, TitlesFollowTheLanguage) {
    EXPECT_EQ(TCStatisticTitle(TCStatisticTypeTotal), u"Total");
    platform::setLocalizedStrings({{"Total", "Summe"}, {"Standard Deviation", "Standardabweichung"}});
    EXPECT_EQ(TCStatisticTitle(TCStatisticTypeTotal), u"Summe");
    EXPECT_EQ(TCStatisticTitle(TCStatisticTypeStandardDeviation), u"Standardabweichung");
    EXPECT_EQ(TCStatisticTitle(TCStatisticTypeAverage), u"Average");
    EXPECT_EQ(TCStatisticTitle(0), u"");
    platform::setLocalizedStrings({});
}

} // namespace
