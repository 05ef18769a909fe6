#include "document/DependencyGraph.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>
#include <vector>

using namespace TBF;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Indexes = std::vector<uint32_t>;
using Pair = std::pair<uint32_t, uint32_t>; // source, destination

Ref<DependencyGraph> graphOf(const std::vector<Pair>& edges) {
    auto graph = DependencyGraph::create();
    for (const auto& [source, destination] : edges)
        graph->addDependency(source, destination, 1);
    return graph;
}

TEST(DependencyGraph, OrdersAChangedLineAndItsDependentsAfterWhatTheyUse) {
    struct Row {
        std::vector<Pair> edges;
        Indexes asked;
        Indexes order;
    };
    const std::vector<Row> rows = {
        {{}, {7}, {7}},
        {{}, {9, 2, 2, 5}, {2, 5, 9}},
        {{{3, 2}, {2, 1}}, {1}, {1, 2, 3}},
        {{{3, 2}, {2, 1}}, {2}, {2, 3}}, // what a line uses stays out
        {{{3, 2}, {2, 1}}, {3, 1}, {1, 2, 3}},
        {{{1, 2}, {2, 3}}, {3}, {3, 2, 1}}, // upwards
        {{{4, 2}, {4, 3}, {2, 1}, {3, 1}}, {1}, {1, 2, 3, 4}},
        {{{0, 2}, {0, 3}, {2, 5}, {3, 5}}, {5}, {5, 2, 3, 0}},
        {{{1, 2}, {2, 1}}, {1}, {2, 1}}, // cycles: the entry comes last
        {{{1, 2}, {2, 1}}, {2}, {2, 1}},
        {{{1, 2}, {2, 3}, {3, 1}, {9, 3}}, {2}, {3, 2, 1, 9}},
    };
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const auto graph = graphOf(rows[i].edges);
        Indexes order = graph->evaluationOrder(rows[i].asked);
        EXPECT_EQ(order.size(), rows[i].order.size()) << "row " << i;
        EXPECT_EQ(order, rows[i].order) << "row " << i;
    }
}

TEST(DependencyGraph, KeepsAnEdgeOnceWithItsFirstType) {
    const auto graph = DependencyGraph::create();
    EXPECT_FALSE(graph->addDependency(3, 3, 1));
    EXPECT_EQ(graph->nodeCount(), 0u);
    EXPECT_TRUE(graph->addDependency(3, 1, 1));
    EXPECT_FALSE(graph->addDependency(3, 1, 8));
    EXPECT_THAT(graph->directDependents(1), ElementsAre(DependencyEdge{3, 1}));
}

TEST(DependencyGraph, RemovalClearsWhatALineUsesAndKeepsWhoUsesIt) {
    const auto graph = graphOf({{5, 2}, {2, 0}, {2, 1}, {7, 5}});
    graph->removeAllDependenciesForLine(2);
    EXPECT_THAT(graph->evaluationOrder(Indexes{0}), ElementsAre(0));
    EXPECT_THAT(graph->evaluationOrder(Indexes{2}), ElementsAre(2, 5, 7));
    EXPECT_TRUE(graph->addDependency(2, 0, 6));
    EXPECT_THAT(graph->directDependents(0), ElementsAre(DependencyEdge{2, 6}));

    graph->removeAllDependenciesForLinesOnAndAfterIndex(5);
    EXPECT_THAT(graph->evaluationOrder(Indexes{0}), ElementsAre(0, 2));
    EXPECT_EQ(graph->countOfDependenciesCrossingIndex(4), 0u);
}

TEST(DependencyGraph, CountsEveryIndexThatWasNamed) {
    const auto graph = DependencyGraph::create();
    graph->removeAllDependenciesForLine(4);
    EXPECT_EQ(graph->nodeCount(), 1u);
    graph->evaluationOrder(Indexes{4, 9});
    EXPECT_EQ(graph->nodeCount(), 2u);
    graph->removeAllDependenciesForLine(9);
    EXPECT_EQ(graph->nodeCount(), 2u);
}

TEST(DependencyGraph, AnEdgeCrossesTheIndexesBetweenItsEnds) {
    for (const Pair& edge : {Pair{2, 5}, Pair{5, 2}}) {
        const auto graph = graphOf({edge, {8, 9}});
        for (uint32_t i = 0; i < 12; ++i)
            EXPECT_EQ(graph->countOfDependenciesCrossingIndex(i), i == 3 || i == 4 ? 1u : 0u) << i;
        EXPECT_THAT(graph->indexesWithDependenciesCrossingIndex(4),
                    ElementsAre(DependencyEdge{edge.first, 1}));
    }
}

TEST(DependencyGraph, CrossingSourcesComeOnceWithTheTypeOfTheirFirstEdge) {
    const auto graph = DependencyGraph::create();
    graph->addDependency(10, 2, 1);
    graph->addDependency(10, 3, 6);
    graph->addDependency(4, 6, 8);
    EXPECT_THAT(graph->indexesWithDependenciesCrossingIndex(5),
                ElementsAre(DependencyEdge{4, 8}, DependencyEdge{10, 1}));
    // A mask finds a source by any of its edges.
    EXPECT_THAT(graph->indexesWithDependenciesCrossingIndex(5, TBFDependencyMaskRelative), ElementsAre(10));
    EXPECT_THAT(graph->indexesWithDependenciesCrossingIndex(5, TBFDependencyTypeVariable), ElementsAre(4));
    EXPECT_THAT(graph->indexesWithDependenciesCrossingIndex(3, TBFDependencyMaskRelative), IsEmpty());
}

TEST(DependencyGraph, DependentsOfARangeMeetTheMask) {
    const auto graph = DependencyGraph::create();
    graph->addDependency(0, 4, 1);
    graph->addDependency(9, 5, 7);
    graph->addDependency(9, 4, 7);
    graph->addDependency(8, 5, 6);
    graph->addDependency(7, 6, 1);
    EXPECT_THAT(graph->directDependentsInRange(4, 6, TBFDependencyMaskAbsolute), ElementsAre(0, 9));
    EXPECT_THAT(graph->directDependentsInRange(5, 5, TBFDependencyMaskAll), IsEmpty());
}

TEST(DependencyGraph, LongChainsAndStarsAreOrdinary) {
    constexpr uint32_t size = 100000;
    const auto chain = DependencyGraph::create();
    for (uint32_t i = 1; i < size; ++i)
        chain->addDependency(i - 1, i, 6); // each uses the line below
    const Indexes order = chain->evaluationOrder(Indexes{size - 1});
    ASSERT_EQ(order.size(), size);
    EXPECT_TRUE(std::is_sorted(order.rbegin(), order.rend()));

    const auto star = DependencyGraph::create();
    for (uint32_t i = 1; i <= 50000; ++i)
        star->addDependency(i, 0, 1);
    EXPECT_EQ(star->countOfDependenciesCrossingIndex(10), 49990u);
    EXPECT_EQ(star->countOfDependenciesCrossingIndex(49999), 1u);
    EXPECT_EQ(star->indexesWithDependenciesCrossingIndex(49990, TBFDependencyMaskAll).size(), 10u);
    star->addDependency(0xFFFFFFFE, 0xFFFFFFF0, 1); // indexes need not be dense
    EXPECT_EQ(star->countOfDependenciesCrossingIndex(0xFFFFFFF5), 1u);
}

// What the graph should answer, from the plain set of edges.
class Model {
public:
    void add(uint32_t source, uint32_t destination) {
        if (source != destination) edges.insert({source, destination});
    }
    void remove(uint32_t source) {
        std::erase_if(edges, [&](const Pair& edge) { return edge.first == source; });
    }
    std::set<uint32_t> closure(uint32_t start) const {
        std::set<uint32_t> found{start};
        for (std::size_t before = 0; before != found.size();) {
            before = found.size();
            for (const auto& [source, destination] : edges)
                if (found.contains(destination)) found.insert(source);
        }
        return found;
    }
    std::size_t crossing(uint32_t index) const {
        return static_cast<std::size_t>(std::count_if(edges.begin(), edges.end(), [&](const Pair& edge) {
            return std::min(edge.first, edge.second) < index && index < std::max(edge.first, edge.second);
        }));
    }
    std::set<Pair> edges;
};

TEST(DependencyGraph, AgreesWithAPlainSetOfEdgesThroughRandomEdits) {
    for (uint32_t seed = 1; seed <= 20; ++seed) {
        std::mt19937 random(seed);
        const auto any = [&] { return static_cast<uint32_t>(random() % 24); };
        const bool acyclic = seed % 2 == 0;
        const auto graph = DependencyGraph::create();
        Model model;
        for (int step = 0; step < 200; ++step) {
            uint32_t source = any(), destination = any();
            if (acyclic && source < destination) std::swap(source, destination);
            if (random() % 4) {
                const bool isNew = source != destination && !model.edges.contains({source, destination});
                EXPECT_EQ(graph->addDependency(source, destination, 1), isNew);
                model.add(source, destination);
            } else {
                graph->removeAllDependenciesForLine(source);
                model.remove(source);
            }
            const uint32_t probe = any();
            ASSERT_EQ(graph->countOfDependenciesCrossingIndex(probe), model.crossing(probe))
                << "seed " << seed;
            const Indexes order = graph->evaluationOrder(Indexes{probe});
            ASSERT_EQ(std::set<uint32_t>(order.begin(), order.end()), model.closure(probe))
                << "seed " << seed;
            ASSERT_EQ(order.size(), model.closure(probe).size());
            if (!acyclic) continue;
            std::map<uint32_t, std::size_t> place;
            for (std::size_t i = 0; i < order.size(); ++i)
                place[order[i]] = i;
            for (const auto& [user, used] : model.edges) {
                if (place.contains(user) && place.contains(used)) {
                    ASSERT_LT(place[used], place[user])
                        << "seed " << seed << ": " << user << " uses " << used;
                }
            }
        }
    }
}

} // namespace
