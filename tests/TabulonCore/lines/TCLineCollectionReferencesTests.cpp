#include "expressions/TCExpression.h"
#include "lines/LineCollectionTesting.h"
#include "lines/TCLineReferenceIndex.h"
#include "lines/TCLineReferenceSubstituter.h"
#include "results/TCResult.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <random>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr int32_t allTypes = 31;

// Rewrites the references that a report asks to move, and writes the reports down.
class FollowingDelegate : public TCLineCollectionDelegate, private TCLineReferenceSubstituterDelegate {
public:
    bool respondsToDidNoticeThatLineReferenceOnLines() const override { return true; }

    void lineCollectionDidNoticeThatLineReferenceOnLinesShouldShiftBy(
        TCLineCollection& collection, const std::vector<std::shared_ptr<TCLine>>& lines,
        const std::vector<TCLineReferenceShifts>& shiftsOfLines) override {
        for (std::size_t i = 0; i < lines.size(); ++i) {
            for (const auto& [identifier, shift] : shiftsOfLines[i])
                reports.push_back(std::to_string(lines[i]->index()) + ": " + TBF::utf8(identifier) + " by " +
                                  std::to_string(shift));
            if (!follows) continue;
            const auto borrowed = std::shared_ptr<TCLineCollection>(std::shared_ptr<void>(), &collection);
            lines[i]->setExpressionString(TCLineReferenceSubstituter::stringByReplacingLineReferencesOfType(
                allTypes, *lines[i], borrowed, this, &shiftsOfLines[i]));
        }
    }

    std::vector<std::string> take() { return std::exchange(reports, {}); }

    bool follows = true;

private:
    std::optional<TCAttributedString> stringForLineReference(TCLineReferenceType type, int64_t number,
                                                             std::size_t, TCLineCollection&,
                                                             const std::any& contextInfo) override {
        const auto& shifts = *std::any_cast<const TCLineReferenceShifts*>(contextInfo);
        const auto shift = shifts.find(TCLineReferenceIdentifier(type, number));
        if (shift == shifts.end()) return std::nullopt;
        const std::string name = TBF::utf8(TCLineReferenceFunctionNameForType(type));
        return TCAttributedString{
            TBF::utf16("(" + name + "(" + std::to_string(number + shift->second) + "))"), {}};
    }

    std::vector<std::string> reports;
};

TEST(LineReferenceIndex, TargetsAndIdentifiers) {
    const struct {
        TCLineReferenceType type;
        int64_t number;
        int64_t owner;
        int64_t target;
        std::u16string identifier;
        std::u16string words;
    } rows[] = {
        {TCLineReferenceTypeRelative, -1, 3, 2, u"1-1", u"line 3"},
        {TCLineReferenceTypeFixedRelative, 2, 3, 5, u"8+2", u"line 6"},
        {TCLineReferenceTypeAbsolute, 7, 3, 7, u"2+7", u"line 8"},
        {TCLineReferenceTypeAbsoluteByLineNumber, 1, 3, 0, u"4+1", u"line 1"},
        {TCLineReferenceTypeNull, 9, 3, 0, u"16+9", u"line"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(TCLineReferenceIndex(row.type, row.number, row.owner), row.target);
        EXPECT_EQ(TCLineReferenceIdentifier(row.type, row.number), row.identifier);
        EXPECT_EQ(TCLineReferenceWords(row.type, row.number, row.owner), row.words);
    }
}

TEST(LineReferences, ShiftsAreReportedFromTheLastLineOn) {
    useEvaluatingEnvironment();
    const std::vector<std::string> texts = {
        "1",                             // 0
        relative(-1),                    // 1
        "2",                             // 2
        absolute(2) + "+" + absolute(0), // 3
        "(___abs_line_numbered(3))",     // 4
        "(___rel_line_fixed(-3))",       // 5
        "(___dead_line(0))",             // 6
        relative(-20) + absolute(20),    // 7: no lines
    };
    const struct {
        const char* what;
        void (*edit)(TCLineCollection&);
        std::vector<std::string> reports;
    } rows[] = {
        {"insert ahead of all",
         [](TCLineCollection& c) { c.insertLine(lineOf("0"), 0); },
         {"5: 4+3 by 1", "4: 2+0 by 1", "4: 2+2 by 1"}},
        {"insert between",
         [](TCLineCollection& c) { c.insertLine(lineOf("0"), 1); },
         {"5: 4+3 by 1", "4: 2+2 by 1", "2: 1-1 by -1"}},
        {"append", [](TCLineCollection& c) { c.addLine(lineOf("0")); }, {}},
        {"remove a target", // the references to it stay
         [](TCLineCollection& c) { c.removeLineAtIndex(2); },
         {}},
        {"remove between", [](TCLineCollection& c) { c.removeLineAtIndex(3); }, {"4: 8-3 by 1"}},
        {"move a target down",
         [](TCLineCollection& c) { c.moveLineAtIndex(2, 5); },
         {"4: 8-3 by 4", "3: 4+3 by 3", "2: 2+2 by 3"}},
        {"move an owner up",
         [](TCLineCollection& c) { c.moveLineAtIndex(5, 0); },
         {"5: 4+3 by 1", "4: 2+0 by 1", "4: 2+2 by 1", "0: 8-3 by 6"}},
        {"batch",
         [](TCLineCollection& c) {
             c.beginBatchUpdate();
             c.insertLine(lineOf("0"), 3);
             c.insertLine(lineOf("0"), 0);
             c.endBatchUpdate();
         },
         {"7: 8-3 by -1", "6: 4+3 by 1", "5: 2+0 by 1", "5: 2+2 by 1"}},
    };
    for (const auto& row : rows) {
        TCLineCollection collection;
        fill(collection, texts);
        FollowingDelegate delegate;
        delegate.follows = false;
        collection.setDelegate(&delegate);
        row.edit(collection);
        EXPECT_EQ(delegate.take(), row.reports) << row.what;
        EXPECT_EQ(collection.lineAtIndex(0)->hasResult(), true);
    }
}

TEST(LineReferences, WithoutADelegateNoTextChanges) {
    useEvaluatingEnvironment();
    TCLineCollection collection;
    fill(collection, {"1", relative(-1) + " + 1"});
    collection.insertLine(lineOf("5"), 1);
    EXPECT_THAT(textsOf(collection), ElementsAre("1", "5", relative(-1) + " + 1"));
    EXPECT_EQ(collection.lineAtIndex(2)->result()->completeStringValue(), u"6");
}

TEST(LineReferences, ADelegateThatFollowsKeepsTheAnswers) {
    useEvaluatingEnvironment();
    TCLineCollection collection;
    fill(collection, {"10", "x = " + relative(-1) + " + 1", "x * 2", absolute(0) + " + " + relative(-2)});
    FollowingDelegate delegate;
    collection.setDelegate(&delegate);
    collection.insertLine(lineOf("99"), 1);
    collection.insertLine(lineOf("98"), 0);
    collection.moveLineAtIndex(1, 5);
    EXPECT_THAT(textsOf(collection), ElementsAre("98", "99", "x = " + relative(3) + " + 1", "x * 2",
                                                 absolute(5) + " + " + relative(-2), "10"));
    std::vector<std::u16string> answers;
    for (const auto& line : collection)
        answers.push_back(line->result()->completeStringValue().value_or(u""));
    EXPECT_THAT(answers, ElementsAre(u"98", u"99", u"11", u"22", u"21", u"10"));
}

// Every relative reference of a document with the line that it was made for.
class FollowedDocument {
public:
    explicit FollowedDocument(uint32_t seed)
        : random(seed) {
        collection.setDelegate(&delegate);
    }

    // Makes one change, alone or as a part of a batch.
    void change() {
        const std::size_t count = collection.countOfLines();
        switch (count < 3 ? 0 : random() % 4) {
        case 0:
        case 1:
            insert(random() % (count + 1));
            break;
        case 2:
            collection.removeLineAtIndex(random() % count);
            break;
        default:
            collection.moveLineAtIndex(random() % count, random() % count);
        }
    }

    void step() {
        if (random() % 4 != 0) {
            change();
            return;
        }
        collection.beginBatchUpdate();
        for (std::size_t i = random() % 4; i > 0; --i)
            moveOrRemove();
        collection.endBatchUpdate();
    }

    // Whether each reference whose target is still there points to it.
    void check() {
        for (const auto& line : collection) {
            const auto known = targets.find(line);
            if (known == targets.end()) continue;
            if (!collection.containsLine(known->second)) {
                targets.erase(known); // what it points to from now on doesn't matter
                continue;
            }
            ASSERT_EQ(line->referencesToLines().size(), 1u);
            const auto& reference = line->referencesToLines().front();
            ASSERT_EQ(collection.lineAtIndex(static_cast<std::size_t>(TCLineReferenceIndex(
                          reference.type, reference.number, static_cast<int64_t>(line->index())))),
                      known->second)
                << TBF::utf8(*line->expressionString());
        }
    }

    TCLineCollection collection;

private:
    void insert(std::size_t index) {
        auto line = lineOf(std::to_string(random() % 100));
        collection.insertLine(line, index);
        if (random() % 3 == 0) return;
        const std::size_t target = random() % collection.countOfLines();
        const bool isFixed = random() % 2 == 0;
        const int offset = static_cast<int>(target) - static_cast<int>(index);
        line->setExpressionString(isFixed ? TCExpression::fixedRelativeLineReferenceToken(offset)
                                          : TCExpression::relativeLineReferenceToken(offset));
        targets[line] = collection.lineAtIndex(target);
    }

    void moveOrRemove() {
        const std::size_t count = collection.countOfLines();
        if (count < 3) return;
        if (random() % 2 == 0)
            collection.removeLineAtIndex(random() % count);
        else
            collection.moveLineAtIndex(random() % count, random() % count);
    }

    std::mt19937 random;
    FollowingDelegate delegate;
    std::map<std::shared_ptr<TCLine>, std::shared_ptr<TCLine>> targets;
};

TEST(LineReferences, RandomEditsKeepEveryRelativeReferenceOnItsTarget) {
    useEvaluatingEnvironment();
    for (uint32_t seed = 1; seed <= 25; ++seed) {
        FollowedDocument document(seed);
        for (int step = 0; step < 80; ++step) {
            document.step();
            document.check();
            ASSERT_FALSE(testing::Test::HasFatalFailure()) << "seed " << seed << " step " << step;
            TCLineCollection fresh;
            fill(fresh, textsOf(document.collection));
            ASSERT_FALSE(TCLineCollectionReading::resultsDifferFromResults(
                document.collection, TCLineCollectionReading::results(fresh)))
                << "seed " << seed << " step " << step;
        }
    }
}

} // namespace
