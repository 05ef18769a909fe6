#include "document/DependencyGraph.h"
#include "document/FileLinesNode.h"
#include "face/document/TBFDependencyGraph.h"
#include "face/document/TBFFileLinesNode.h"
#include "face/document/TBFFileSettingsNode.h"
#include "runtime/String.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

TEST(TBFDependencyGraph, NullHandlesGiveNothing) {
    uint32_t out = 0;
    EXPECT_FALSE(TBFDependencyGraphAddDependency(nullptr, 1, 2, 1));
    EXPECT_EQ(TBFDependencyGraphGetNodeCount(nullptr), 0u);
    EXPECT_EQ(TBFDependencyGraphGetDirectDependents(nullptr, 1, &out, nullptr, 1), 0u);
    EXPECT_THAT(TBFDependencyGraphGetEvaluationOrderForNodeIndexes(nullptr, {1}, false), IsEmpty());
    TBFDependencyGraphRemoveAllDependenciesForLine(nullptr, 1);
    TBFDependencyGraphFree(nullptr);
    TBFDependencyExtentsFree(nullptr);
    TBFDependencyFree(nullptr);
    EXPECT_FALSE(TBFDependencyGraphNodeAddDependency(nullptr, nullptr, 1));
}

TEST(TBFDependencyGraph, ArrayFormsStopAtTheirCapacity) {
    TBFDependencyGraphRef graph = TBFDependencyGraphCreate();
    for (uint32_t i = 1; i <= 4; ++i)
        TBFDependencyGraphAddDependency(graph, i * 10, 5, i);
    uint32_t indexes[3] = {};
    uint32_t masks[3] = {};
    EXPECT_EQ(TBFDependencyGraphGetDirectDependents(graph, 5, indexes, masks, 3), 3u);
    EXPECT_THAT(indexes, ElementsAre(10, 20, 30));
    EXPECT_THAT(masks, ElementsAre(1, 2, 3));
    EXPECT_EQ(TBFDependencyGraphGetDirectDependents(graph, 5, nullptr, masks, 3), 0u);
    EXPECT_EQ(TBFDependencyGraphGetIndexesWithDependenciesCrossingIndex(graph, 25, indexes, nullptr, 3), 2u);
    const uint32_t asked = 5;
    EXPECT_EQ(TBFDependencyGraphGetDependentEvaluationOrderForNodeIndexeBuf(graph, &asked, 1, indexes, 2),
              2u);
    EXPECT_THAT(indexes, ElementsAre(5, 10, testing::_));
    TBFDependencyGraphFree(graph);
}

TEST(TBFDependencyGraph, ANodeThatEndsTakesItsEdgesAlong) {
    TBFDependencyGraphNodeRef user = TBFDependencyGraphNodeCreate(1);
    TBFDependencyGraphNodeRef used = TBFDependencyGraphNodeCreate(2);
    EXPECT_TRUE(TBFDependencyGraphNodeAddDependency(user, used, 8));
    EXPECT_FALSE(TBFDependencyGraphNodeAddDependency(user, used, 1));
    EXPECT_EQ(TBFDependencyGraphNodeGetDependencyTypeMask(user, used), 8u);
    EXPECT_EQ(TBFDependencyGraphNodeGetDependentTypeMask(used, user), 8u);
    EXPECT_THAT(TBFDependencyGraphNodeGetDirectDependents(used), ElementsAre(user));
    TBFDependencyGraphNodeRelease(used);
    EXPECT_THAT(TBFDependencyGraphNodeGetDirectDependencies(user), IsEmpty());
    TBFDependencyGraphNodeRelease(user);
}

TEST(TBFFileNodes, WhatADocumentLacksHasItsDefaults) {
    EXPECT_EQ(TBFFileSettingsNodeGetTrigonometryMode(nullptr), 1u);
    EXPECT_EQ(TBFFileLinesNodeGetFileLineNumber(nullptr, 0), 0xFFFFFFFF);
}

// An index from a host, however large, takes no memory past what a document may have.
TEST(TBFFileLinesNode, HasNoLinesPastWhatADocumentMayHave) {
    TBF::FileLinesNode lines;
    TBFFileLinesNodeSetExpressionUTF8(&lines, 1, "1 + 1");
    for (const uint32_t index : {uint32_t{TBF::FileLinesNode::mostLines}, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
        TBFFileLinesNodeSetExpressionUTF8(&lines, index, "2");
        TBFFileLinesNodeSetFormattingAttribute(&lines, index, TBF::String::create(u"0").get(),
                                               TBF::String::create(u"sn_mode").get());
        TBFFileLinesNodeSetFormattingAttributesDictionary(&lines, index, {});
        TBFFileLinesNodeSetFileLineNumber(&lines, index, 3);
        lines.setDecimalPlaces_0_5(index, 2);
        lines.setTrigonometryMode_0_5(index, 1);
        EXPECT_EQ(TBFFileLinesNodeGetExpression(&lines, index), nullptr);
    }
    EXPECT_EQ(lines.count(), 2u);
}

} // namespace
