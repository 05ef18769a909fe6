#include "LineCollectionTesting.h"
#include "document/DependencyGraph.h"
#include "document/TBFDependencyType.h"
#include "lines/TCDeclaredNames.h"
#include "lines/TCLine.h"
#include "lines/TCLineCollection.h"
#include "lines/TCLineCollectionReading.h"
#include "lines/TCLineDependencies.h"
#include "results/TCResult.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <optional>
#include <random>
#include <string>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Indexes = std::vector<std::size_t>;

TEST(Recalculation, AnEditEvaluatesWhatItTouchesInOrder) {
    struct Row {
        const char* name;
        std::vector<std::string> texts;
        std::function<void(TCLineCollection&)> edit;
        Indexes evaluated;
    };
    const auto edit = [](std::size_t index, std::string text) {
        return [=](TCLineCollection& c) { c.lineAtIndex(index)->setExpressionString(TBF::utf16(text)); };
    };
    const auto insert = [](std::size_t index, std::string text) {
        return [=](TCLineCollection& c) { c.insertLine(lineOf(text), index); };
    };
    const auto remove = [](std::size_t index) {
        return [=](TCLineCollection& c) { c.removeLineAtIndex(index); };
    };
    const auto move = [](std::size_t from, std::size_t to) {
        return [=](TCLineCollection& c) { c.moveLineAtIndex(from, to); };
    };
    const std::vector<Row> rows = {
        {"nothing depends on it", {"1", "2", "3"}, edit(1, "5"), {1}},
        {"a chain follows", {"1", relative(-1), relative(-1), "4"}, edit(0, "5"), {0, 1, 2}},
        {"what it uses stays", {"1", relative(-1), relative(-1)}, edit(1, "5"), {1, 2}},
        {"users above follow", {absolute(2), "2", "3"}, edit(2, "5"), {2, 0}},
        {"a diamond is walked once",
         {"1", absolute(0), absolute(0), absolute(1) + "+" + absolute(2)},
         edit(0, "2"),
         {0, 1, 2, 3}},
        {"a user that lets go isn't asked again",
         {"1", relative(-1), relative(-1)},
         edit(1, "5 + " + relative(-1)),
         {1, 2}},
        {"a cycle ends", {relative(1), relative(-1), "3"}, edit(0, relative(1) + " + 1"), {1, 0}},
        {"a self reference ends", {absolute(0), "2"}, edit(0, absolute(0) + " + 1"), {0}},
        {"appending", {"1", "2"}, insert(2, "3"), {2}},
        {"appending the target of a reference", {absolute(1)}, insert(1, "3"), {1, 0}},
        {"inserting above an absolute target", {"1", "2", absolute(1)}, insert(1, "9"), {1, 3}},
        {"inserting inside of a relative span", {"1", "2", relative(-2)}, insert(1, "9"), {1, 3}},
        {"inserting above a relative span", {"1", "2", relative(-1)}, insert(0, "9"), {0}},
        {"inserting under everything that refers", {"1", relative(-1), "3"}, insert(3, "9"), {3}},
        {"removing inside of a relative span", {"1", "2", "3", "4", relative(-3)}, remove(2), {2, 3}},
        {"removing a target", {"1", "2", relative(-1)}, remove(1), {1}},
        {"removing the last line", {"1", "2", absolute(1)}, remove(2), {}},
        {"removing the last line of which others speak", {absolute(2), "2", "3"}, remove(2), {0}},
        {"moving a target away", {"1", absolute(0), "3"}, move(0, 2), {0, 2}},
        {"a line that comes to stand on its target", {"1", "2", absolute(1)}, remove(0), {0, 1}},
        {"a line whose target falls off the beginning", {"1", "2", relative(-2)}, remove(1), {1}},
        {"removing everything", {"1", relative(-1)}, [](TCLineCollection& c) { c.removeAllLines(); }, {}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        TCLineCollection collection;
        fill(collection, row.texts);
        EvaluationRecord record;
        row.edit(collection);
        EXPECT_EQ(record.take(), row.evaluated);
    }
}

TEST(Recalculation, TheDelegateHearsOfAllAndThenOfThoseThatFollowed) {
    TCLineCollection collection;
    RecordingDelegate delegate;
    collection.setDelegate(&delegate);
    fill(collection, {"1", relative(-1), "3"});
    EXPECT_THAT(delegate.take(), ElementsAre("updated 0 1 2"));
    collection.lineAtIndex(0)->setExpressionString(u"2");
    EXPECT_THAT(delegate.take(), ElementsAre("updated 0 1", "followed 1"));
    collection.lineAtIndex(2)->setExpressionString(u"2");
    EXPECT_THAT(delegate.take(), ElementsAre("updated 2"));
    collection.registerChange(TCLineCollectionChangeTypeExternal, 0);
    EXPECT_THAT(delegate.take(), ElementsAre("updated 0 1", "followed 0 1"));
    collection.reevaluateLinesDependingOnUnit();
    EXPECT_THAT(delegate.take(), ElementsAre("updated 0 1 2", "followed 0 1 2"));
    collection.evaluateAllLinesWithReportingMode(TCEvaluationReportingModeExplicit);
    EXPECT_THAT(delegate.take(), ElementsAre("updated 0 1 2"));
    collection.removeLineAtIndex(2); // no line took its place
    EXPECT_THAT(delegate.take(), IsEmpty());
}

TEST(Recalculation, BatchesHoldEverythingBack) {
    TCLineCollection collection;
    EvaluationRecord record;
    RecordingDelegate delegate;
    collection.setDelegate(&delegate);
    collection.beginBatchUpdate();
    collection.addLine(lineOf("1"));
    EXPECT_EQ(collection.lineAtIndex(0)->result(), nullptr);
    collection.addLine(lineOf("2"));
    EXPECT_THAT(record.take(), IsEmpty());
    collection.endBatchUpdate();
    EXPECT_THAT(record.take(), ElementsAre(0, 1));
    EXPECT_TRUE(collection.lineAtIndex(0)->hasResult());
    EXPECT_THAT(delegate.take(), ElementsAre("updated 0 1"));

    collection.beginBatchUpdate();
    collection.endBatchUpdate();
    EXPECT_THAT(record.take(), IsEmpty());

    collection.beginBatchUpdate(); // a single change stays precise
    collection.insertLine(lineOf("3"), 1);
    collection.endBatchUpdate();
    EXPECT_THAT(record.take(), ElementsAre(1));

    collection.beginBatchUpdate();
    collection.beginBatchUpdate(); // batches don't nest
    collection.lineAtIndex(0)->setExpressionString(u"5");
    collection.endBatchUpdate();
    collection.lineAtIndex(1)->setExpressionString(u"6");
    EXPECT_THAT(record.take(), ElementsAre(0, 1));
}

TEST(Recalculation, AResultIsAskedForOnce) {
    TCLineCollection collection;
    fill(collection, {"1", relative(-1)});
    EvaluationRecord record;
    const auto line = collection.lineAtIndex(0);
    line->invalidateResult();
    EXPECT_FALSE(line->hasResult());
    EXPECT_NE(line->result(), nullptr);
    EXPECT_THAT(record.take(), ElementsAre(0, 1));
    line->setResult(nullptr); // evaluated, without an answer
    EXPECT_EQ(line->result(), nullptr);
    EXPECT_THAT(record.take(), IsEmpty());
    line->setTrigonometryMode(2);
    EXPECT_NE(line->result(), nullptr);
    EXPECT_THAT(record.take(), ElementsAre(0, 1));
}

TEST(Recalculation, ClearCachesReadsTheSameTextAnew) {
    TCLineCollection collection;
    fill(collection, {"1 + 2"});
    EvaluationRecord record;
    const auto line = collection.lineAtIndex(0);
    const auto before = line->lineExpression();
    line->clearCaches();
    EXPECT_NE(line->lineExpression(), before);
    EXPECT_EQ(line->expressionString(), u"1 + 2");
    EXPECT_THAT(record.take(), ElementsAre(0));
}

TEST(Recalculation, ReferencesReachAThousandLinesPastTheEnd) {
    TCLineCollection collection;
    fill(collection, {absolute(1001), absolute(1002), "3"});
    EXPECT_EQ(collection.dependencies().graph().directDependents(1001).size(), 1u);
    EXPECT_EQ(collection.dependencies().graph().directDependents(1002).size(), 1u);
    collection.lineAtIndex(0)->setExpressionString(TBF::utf16(absolute(1003)));
    EXPECT_EQ(collection.dependencies().graph().directDependents(1003).size(), 0u);
    EXPECT_EQ(collection.dependencies().graph().directDependents(1001).size(), 0u);
    collection.addLine(lineOf("4")); // the document grows, and its reach with it
    EXPECT_EQ(collection.dependencies().graph().directDependents(1003).size(), 1u);
}

TEST(Recalculation, EdgesTellTheKindOfReference) {
    TCLineCollection collection;
    fill(collection, {"1", relative(-1), absolute(0), relative(-3) + " + " + absolute(0), relative(-9)});
    EXPECT_THAT(collection.dependencies().graph().directDependents(0),
                ElementsAre(TBF::DependencyEdge{1, TBFDependencyTypeRelativeLineReference},
                            TBF::DependencyEdge{2, TBFDependencyTypeAbsoluteLineReference},
                            TBF::DependencyEdge{3, TBFDependencyTypeAnyLineReference}));
    EXPECT_EQ(
        collection.dependencies().lineIndexesWithDependenciesMatchingTypeMask(TBFDependencyMaskRelative, 1),
        TCLineIndexSet{3});
    EXPECT_EQ(collection.dependencies().lineIndexesWithDependenciesMatchingTypeMask(TBFDependencyMaskAbsolute,
                                                                                    TCLineIndexSet({1, 2})),
              (TCLineIndexSet{2, 3}));
    EXPECT_EQ(collection.dependencies().linesWithDependenciesCrossingLineIndex(1).size(), 2u);
    EXPECT_EQ(collection.dependencies().indexesOfLinesDependingOnLineAtIndex(0), (TCLineIndexSet{1, 2, 3}));
    EXPECT_EQ(collection.dependencies().lineIndexesDirectlyDependingOnIndexesInRange(
                  0, 1, TBFDependencyMaskRelative),
              (TCLineIndexSet{1, 3}));
}

TEST(Recalculation, DeclaringLinesAreFoundInDocumentOrder) {
    TCLineCollection collection;
    fill(collection, {"x = 1", "y = 2", "x = 3", "X = 4"});
    const auto declaring = [&](const std::u16string& name) {
        Indexes indexes;
        for (const auto& line : collection.declaredNames().linesDeclaringVariableWithName(name))
            indexes.push_back(line->index());
        return indexes;
    };
    EXPECT_THAT(declaring(u"x"), ElementsAre(0, 2));
    EXPECT_THAT(declaring(u"X"), ElementsAre(3));
    collection.moveLineAtIndex(0, 3);
    EXPECT_THAT(declaring(u"x"), ElementsAre(1, 3));
    collection.lineAtIndex(1)->setExpressionString(u"z = 3");
    EXPECT_THAT(declaring(u"x"), ElementsAre(3));
    collection.removeLineAtIndex(3);
    EXPECT_THAT(declaring(u"x"), IsEmpty());
    collection.removeAllLines();
    EXPECT_THAT(declaring(u"z"), IsEmpty());
}

// A document under random edits, beside one that is loaded afresh after each of them.
class RandomDocument {
public:
    explicit RandomDocument(uint32_t seed)
        : random(seed) {}

    TCLineCollection collection;

    void edit() {
        const std::size_t count = collection.countOfLines();
        switch (count == 0 ? 0 : random() % 6) {
        case 0:
            collection.insertLine(lineOf(anyText()), random() % (count + 1));
            break;
        case 1:
            if (count > 3) collection.removeLineAtIndex(random() % count);
            break;
        case 2:
            collection.moveLineAtIndex(random() % count, random() % count);
            break;
        case 3:
            collection.beginBatchUpdate();
            for (std::size_t i = random() % 3; i > 0; --i)
                collection.insertLine(lineOf(anyText()), random() % count);
            collection.endBatchUpdate();
            break;
        default:
            collection.lineAtIndex(random() % count)->setExpressionString(TBF::utf16(anyText()));
        }
    }

private:
    std::string anyText() {
        switch (random() % 7) {
        case 0:
            return absolute(static_cast<int>(random() % 12));
        case 1:
            return relative(static_cast<int>(random() % 9) - 7) + " + " +
                   absolute(static_cast<int>(random() % 12));
        case 2:
        case 3:
            return relative(-1 - static_cast<int>(random() % 5)) + " + 1";
        case 4:
            return absolute(static_cast<int>(1005 + random() % 8));
        default:
            return std::to_string(random() % 100);
        }
    }

    std::mt19937 random;
};

// Without those to lines that are far from existing: a document that shrinks keeps them.
std::vector<std::vector<TBF::DependencyEdge>> edgesOf(const TCLineCollection& collection) {
    std::vector<std::vector<TBF::DependencyEdge>> edges;
    for (uint32_t i = 0; i < 1000; ++i)
        edges.push_back(collection.dependencies().graph().directDependents(i));
    return edges;
}

// Answers on a cycle depend on what was there before.
bool hasCycle(const TCLineCollection& collection) {
    std::vector<uint32_t> all;
    for (uint32_t i = 0; i < collection.countOfLines(); ++i)
        all.push_back(i);
    const std::vector<uint32_t> order = collection.dependencies().graph().evaluationOrder(all);
    std::vector<std::size_t> place(1100);
    for (std::size_t i = 0; i < order.size(); ++i)
        place[order[i]] = i;
    for (const uint32_t used : all)
        for (const TBF::DependencyEdge& user : collection.dependencies().graph().directDependents(used))
            if (place[user.lineIndex] < place[used]) return true;
    return false;
}

std::vector<std::optional<std::u16string>> answersOf(TCLineCollection& collection) {
    std::vector<std::optional<std::u16string>> answers;
    for (const auto& line : collection) {
        const auto result = line->_resultAlongPath(nullptr, nullptr);
        answers.push_back(result ? result->completeStringValue() : u"not evaluated");
    }
    return answers;
}

TEST(Recalculation, AnswersFollowTheirReferences) {
    useEvaluatingEnvironment();
    TCLineCollection collection;
    fill(collection, {"2 + 3", relative(-1) + " * 2", absolute(0) + " + " + relative(-1), relative(-9)});
    EXPECT_THAT(answersOf(collection), ElementsAre(u"5", u"10", u"15", std::nullopt));
    collection.lineAtIndex(0)->setExpressionString(u"1");
    EXPECT_THAT(answersOf(collection), ElementsAre(u"1", u"2", u"3", std::nullopt));
    collection.insertLine(lineOf("100"), 1);
    EXPECT_THAT(answersOf(collection), ElementsAre(u"1", u"100", u"200", u"201", std::nullopt));
    EXPECT_EQ(TCLineCollectionReading::results(collection).size(), 5u);
    EXPECT_EQ(TCLineCollectionReading::expressionAndResultOnLineIndex(collection, 1, u"="), u"100=100");
}

TEST(Recalculation, AnAngleModeReachesTheUsersOfItsLines) {
    useEvaluatingEnvironment();
    TCLineCollection collection;
    RecordingDelegate delegate;
    collection.setDelegate(&delegate);
    fill(collection, {absolute(2) + " + 1", "7", "cos(180)", relative(-1) + " * 2"});
    EXPECT_THAT(answersOf(collection), ElementsAre(u"0", u"7", u"-1", u"-2"));
    const auto rounded = [&] {
        std::vector<std::string> answers;
        for (const auto& answer : answersOf(collection))
            answers.push_back(TBF::utf8(answer.value_or(u"")).substr(0, 5));
        return answers;
    };
    delegate.take();
    EvaluationRecord record;
    collection.lineAtIndex(2)->setTrigonometryMode(2);
    EXPECT_THAT(rounded(), ElementsAre("0.401", "7", "-0.59", "-1.19"));
    EXPECT_THAT(record.take(), ElementsAre(2, 0, 3));
    EXPECT_THAT(delegate.take(), ElementsAre("updated 0 2 3", "followed 0 3"));
    collection.lineAtIndex(2)->setTrigonometryMode(1);
    EXPECT_THAT(rounded(), ElementsAre("0", "7", "-1", "-2"));
    record.take();
    delegate.take();

    collection.setTrigonometryMode(2); // each line once, and its users after it
    EXPECT_THAT(rounded(), ElementsAre("0.401", "7", "-0.59", "-1.19"));
    EXPECT_THAT(record.take(), ElementsAre(2, 0, 1, 3));
    EXPECT_THAT(delegate.take(), ElementsAre("updated 0 1 2 3"));

    collection.beginBatchUpdate();
    collection.reevaluateLinesDependingOnUnit();
    collection.setTrigonometryMode(1);
    collection.lineAtIndex(0)->setTrigonometryMode(2);
    EXPECT_THAT(record.take(), IsEmpty());
    collection.endBatchUpdate();
    EXPECT_THAT(rounded(), ElementsAre("0", "7", "-1", "-2"));
    collection.setDelegate(nullptr);
}

TEST(Recalculation, RandomEditsEqualAFreshLoad) {
    useEvaluatingEnvironment();
    for (uint32_t seed = 1; seed <= 12; ++seed) {
        RandomDocument document(seed);
        for (int step = 0; step < 60; ++step) {
            document.edit();
            TCLineCollection fresh;
            fill(fresh, textsOf(document.collection));
            ASSERT_EQ(edgesOf(document.collection), edgesOf(fresh)) << "seed " << seed << " step " << step;
            if (hasCycle(fresh)) continue;
            ASSERT_EQ(answersOf(document.collection), answersOf(fresh))
                << "seed " << seed << " step " << step;
        }
    }
}

} // namespace
