// A host that calls the public functions in any order, with null and foreign handles, counts and indexes out
// of range, and lets go of handles while others still hold them. What is looked for are reads of freed
// memory, leaks and endless walks, which the sanitizers and the time limit report; a seed makes the same
// calls each time.

#include "document/DependencyGraph.h"
#include "face/document/TBFDependencyGraph.h"
#include "face/names/variables/TBFVariableList.h"
#include "face/names/wordoperators/TBFWordOperatorList.h"
#include "face/runtime/TBFArray.h"
#include "face/runtime/TBFCaseInsensitiveDictionary.h"
#include "face/runtime/TBFDictionary.h"
#include "face/runtime/TBFIndexRangeMap.h"
#include "face/runtime/TBFQueue.h"
#include "face/runtime/TBFStack.h"
#include "face/runtime/TBFString.h"
#include "face/units/TBFAmbiguousUnit.h"
#include "face/units/TBFUnit.h"
#include "face/units/TBFUnitCollection.h"
#include "face/units/TBFUnitContainer.h"
#include "face/units/TBFUnitFraction.h"
#include "face/units/TBFUnitFractionBuilder.h"
#include "face/units/TBFUnitFractionFactorizer.h"
#include "face/units/TBFUnitFractionSimplifier.h"
#include "face/units/TBFUnitSearchIndex.h"
#include "face/units/TBFUnitStringFormatter.h"
#include "names/functions/FunctionList.h"
#include "names/variables/ScopedVariable.h"
#include "names/variables/VariableList.h"
#include "names/wordoperators/WordOperatorList.h"
#include "runtime/Array.h"
#include "runtime/Dictionary.h"
#include "runtime/IndexRangeMap.h"
#include "runtime/Queue.h"
#include "runtime/TBFLog.h"
#include "units/AmbiguousUnit.h"
#include "units/UnitCollection.h"
#include "units/UnitContainer.h"
#include "units/UnitFraction.h"
#include "units/UnitFractionBuilder.h"
#include "units/UnitFractionFactorizer.h"
#include "units/UnitFractionSimplifier.h"
#include "units/UnitStringFormatter.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <random>

using namespace TBF;

namespace {

constexpr int32_t numbers[] = {INT32_MIN, -70000, -2, -1, 0, 1, 2, 3, 5, 20, 21, 22, 300, 70000, INT32_MAX};

// Takes over what a Create or Copy gave, and lets go of it.
template <typename T>
void drop(T* owned) {
    const Ref<T> held = adopt(owned);
}

class Host {
public:
    explicit Host(uint32_t seed)
        : random(seed) {}

    std::size_t below(std::size_t end) {
        return std::uniform_int_distribution<std::size_t>(0, end - 1)(random);
    }
    bool coin() { return below(2) == 0; }
    int32_t number() { return numbers[below(std::size(numbers))]; }
    uint32_t index() { return below(8) == 0 ? UINT32_MAX : static_cast<uint32_t>(below(12)); }
    TBFRange range() { return {number(), number()}; }

    template <typename T>
    T* any(const std::vector<Ref<T>>& pool) {
        return below(8) == 0 ? nullptr : pool[below(pool.size())].get();
    }

    String* word() {
        static const std::vector<Ref<String>> words = [] {
            std::vector<Ref<String>> made;
            for (const char* text : {"", "a", "A", "b", "B", "ab", "aB", "AB", "π", "pi", "a b", "\xff"})
                made.push_back(String::createWithUTF8(text));
            return made;
        }();
        return any(words);
    }

    // One of the calls each time; a handle of each kind is let go and replaced now and then.
    void play(int calls, const std::vector<std::function<void()>>& operations) {
        for (int i = 0; i < calls; ++i)
            operations[below(operations.size())]();
    }

private:
    std::mt19937 random;
};

class HostileEmbedder : public testing::TestWithParam<uint32_t> {
protected:
    HostileEmbedder() { TBFErrorLogEnabled = 0; }
    ~HostileEmbedder() override { TBFErrorLogEnabled = 1; }
    Host host{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Seeds, HostileEmbedder, testing::Range(1u, 25u));

TEST_P(HostileEmbedder, OfVariables) {
    std::vector<Ref<Variable>> variables(6);
    std::vector<Ref<VariableList>> lists(4);
    std::vector<Ref<ScopedVariable>> scoped(4);
    for (auto& variable : variables)
        variable = Variable::create();
    for (auto& list : lists)
        list = VariableList::create();
    const auto variable = [&] { return host.any(variables); };
    const auto list = [&] { return host.any(lists); };
    host.play(
        4000,
        {
            [&] { TBFVariableSetName(variable(), host.word()); },
            [&] { TBFVariableAddAlias(variable(), host.word()); },
            [&] { TBFVariableRemoveAlias(variable(), host.word()); },
            [&] { TBFVariableGetAliasArrayReference(variable()); },
            [&] { TBFVariableSetValueForScopeRange(variable(), host.word(), 1, nullptr, host.range()); },
            [&] { TBFVariableSetValue(variable(), nullptr, 7, nullptr); },
            [&] { TBFVariableListAddVariable(list(), variable()); },
            [&] { TBFVariableListAddVariable(list(), variable()); },
            [&] { TBFVariableListRemoveVariable(list(), variable()); },
            [&] { TBFVariableListSetParentList(list(), list()); },
            [&] { TBFVariableListRemoveAll(host.below(6) == 0 ? list() : nullptr); },
            [&] {
                scoped[host.below(4)] = adopt(TBFVariableListResolveScope(list(), variable(), host.number()));
            },
            [&] { TBFScopedVariableGetValue(host.any(scoped)); },
            [&] { lists[host.below(4)] = VariableList::create(); },
            [&] { variables[host.below(6)] = Variable::create(); },
            [&] {
                for (Variable* const held : TBFVariableListCopyTopLevelVariables(list()))
                    ASSERT_TRUE(TBFVariableGetNameReference(held));
            },
            [&] {
                const auto* const asked = list();
                const String* const name = host.word();
                bool exact = false, fromParent = false;
                const Variable* const found =
                    TBFVariableListFindVariableByName(asked, name, &exact, &fromParent);
                if (found && exact && !fromParent) {
                    ASSERT_TRUE(TBFVariableListContainsVariable(asked, found));
                }
            },
            [&] { TBFVariableListGetCountOfVariables(list()); },
        });
}

void touch(void*) {}
void touchKey(String* key, void*, void*) {
    TBFStringLength(key);
}

TEST_P(HostileEmbedder, OfContainers) {
    int items[3];
    const auto item = [&]() -> void* { return host.coin() ? nullptr : &items[host.below(3)]; };
    std::vector<Ref<Array>> arrays{Array::create(), Array::create()};
    std::vector<Ref<Dictionary>> dictionaries{Dictionary::create(), Dictionary::create()};
    std::vector<Ref<CaseInsensitiveDictionary>> anyCase{CaseInsensitiveDictionary::create()};
    std::vector<Ref<IndexRangeMap>> maps{IndexRangeMap::create()};
    const auto array = [&] { return host.any(arrays); };
    const auto dictionary = [&] { return host.any(dictionaries); };
    const auto names = [&] { return host.any(anyCase); };
    const auto map = [&] { return host.any(maps); };
    std::array<void*, 64> out{};
    const auto few = [&] { return static_cast<int32_t>(host.below(64)); };
    host.play(
        4000,
        {
            [&] { TBFArrayAddItem(array(), item()); },
            [&] { TBFArraySetItemAtIndex(array(), host.number(), item()); },
            [&] { TBFArrayInsertItemAtIndex(array(), host.number(), item()); },
            [&] { TBFArrayRemoveItemAtIndex(array(), host.number()); },
            [&] { TBFArrayRemoveItemsInRange(array(), host.range()); },
            [&] { TBFArrayAddItems(array(), nullptr, host.number()); },
            [&] { TBFArrayAddItemsFromArray(host.below(9) == 0 ? arrays[0].get() : nullptr, array()); },
            [&] { TBFArrayGetItems(array(), out.data(), few()); },
            [&] { TBFArrayGetItems(array(), nullptr, host.number()); },
            [&] { TBFArrayGetItems(array(), out.data(), -5); },
            [&] {
                TBFArrayGetItemsInRange(array(), {host.number(), few()}, out.data());
            },
            [&] { TBFArrayGetItemsInRange(array(), host.range(), nullptr); },
            [&] { TBFArrayApplyItemFunctionInRange(array(), host.coin() ? touch : nullptr, host.range()); },
            [&] { TBFArrayRemoveAllItems(host.below(4) == 0 ? array() : nullptr); },
            [&] { TBFDictionarySetValue(dictionary(), item(), host.word()); },
            [&] { TBFDictionaryRemoveValue(dictionary(), host.word()); },
            [&] { TBFDictionaryGetKeys(dictionary(), nullptr); },
            [&] { TBFDictionaryApplyFunction(dictionary(), host.coin() ? touchKey : nullptr); },
            [&] {
                TBFCaseInsensitiveDictionarySetItemForKeyAndLowercaseKey(names(), item(), host.word(),
                                                                         host.word(), host.coin());
            },
            [&] { TBFCaseInsensitiveDictionarySetItemForKey(names(), item(), host.word(), host.coin()); },
            [&] { TBFCaseInsensitiveDictionaryApplyFunction(names(), host.coin() ? touch : nullptr); },
            [&] { TBFCaseInsensitiveDictionaryGetItemForKey(names(), host.word()); },
            [&] { TBFIndexRangeMapSetValueForRange(map(), item(), host.range()); },
            [&] { TBFIndexRangeMapGetValueForIndex(map(), host.number()); },
            [&] { TBFIndexRangeMapAddValueInstance(map(), item()); },
            [&] { TBFIndexRangeMapRemoveValueInstance(map(), item()); },
            [&] { TBFIndexRangeMapApplyItemFunction(map(), host.coin() ? touch : nullptr); },
            [&] { TBFIndexRangeMapFindRangesForValue(map(), item(), nullptr, host.number()); },
        });
}

TEST_P(HostileEmbedder, OfStringsQueuesAndStacks) {
    std::vector<Ref<String>> texts(4);
    const TBFQueueRef queue = TBFQueueCreate();
    const TBFStackRef stack = TBFStackCreateBucketed(static_cast<uint32_t>(host.below(3)));
    std::array<char16_t, 32> buffer{};
    const auto text = [&] { return host.coin() ? host.any(texts) : host.word(); };
    host.play(
        2000,
        {
            [&] { texts[host.below(4)] = adopt(TBFStringSubString(text(), host.number(), host.number())); },
            [&] {
                Ref<String> joined = adopt(TBFStringConcatenate(text(), text()));
                if (TBFStringLength(joined.get()) < 100) texts[host.below(4)] = joined;
            },
            [&] { texts[host.below(4)] = adopt(TBFStringLowercaseString(text())); },
            [&] { texts[host.below(4)] = adopt(TBFStringCreateWithCharacters(nullptr, host.number())); },
            [&] { TBFStringGetCharAtIndex(text(), host.number()); },
            [&] { TBFStringGetChars(text(), buffer.data(), std::min(host.number(), 32)); },
            [&] { TBFStringGetChars(text(), nullptr, host.number()); },
            [&] { std::free(TBFStringGetUTF8(text(), nullptr)); },
            [&] { std::free(TBFCharGetUTF8(static_cast<TBFChar>(0xD7FE + host.below(4)))); },
            [&] { TBFCharFromUTF8(host.coin() ? nullptr : "\xf0\x9f"); },
            [&] { TBFQueuePut(queue, &buffer); },
            [&] { TBFQueueGet(queue); },
            [&] { TBFQueueGetTail(queue); },
            [&] { TBFQueueLookContents(queue, nullptr, UINT32_MAX); },
            [&] { TBFQueueLookContentsTail(queue, nullptr, UINT32_MAX); },
            [&] { TBFQueueGetContents(host.below(9) == 0 ? queue : nullptr, nullptr, 3); },
            [&] { TBFStackPush(stack, &buffer); },
            [&] { TBFStackPop(stack); },
            [&] { TBFStackLook(host.coin() ? stack : nullptr); },
        });
    TBFQueueFree(queue);
    TBFStackFree(stack);
}

TEST_P(HostileEmbedder, OfUnits) {
    std::vector<Ref<Unit>> units(5);
    std::vector<Ref<UnitContainer>> containers(5);
    std::vector<Ref<UnitFraction>> fractions(5);
    std::vector<Ref<UnitFractionBuilder>> builders{UnitFractionBuilder::create()};
    std::vector<Ref<UnitCollection>> collections{UnitCollection::create()};
    const auto unit = [&] { return host.any(units); };
    const auto container = [&] { return host.any(containers); };
    const auto fraction = [&] { return host.any(fractions); };
    const auto builder = [&] { return host.any(builders); };
    const auto collection = [&] { return host.any(collections); };
    const auto type = [&] { return static_cast<TBFUnitType>(host.number()); };
    const auto slot = [&] { return static_cast<TBFUnitNameType>(host.below(5)); };
    const auto words = [&] { return std::vector<String*>{host.word(), host.word()}; };
    const auto factor = [&] { return String::createWithUTF8(host.coin() ? "0" : "2.5"); };
    host.play(
        2500,
        {
            [&] {
                units[host.below(5)] =
                    adopt(TBFUnitCreate(type(), host.coin() ? factor().get() : host.word(), host.word()));
            },
            [&] {
                units[host.below(5)] = adopt(TBFUnitCreateWithSingularName(host.word(), type(), host.word()));
            },
            [&] { TBFUnitSetName(unit(), host.word(), slot()); },
            [&] { TBFUnitAddAlias(unit(), host.word(), slot()); },
            [&] { TBFUnitSetIdentifier(unit(), host.word()); },
            [&] { TBFUnitSetBaseFactor(unit(), host.word()); },
            [&] { TBFUnitSetOffset(unit(), host.word()); },
            [&] { TBFUnitGetOffsetMAPMReference(unit()); },
            [&] { drop(TBFUnitCopyBaseFactor(unit())); },
            [&] { TBFUnitIsEqualToUnit(unit(), unit()); },
            [&] { TBFUnitIsSIBaseUnit(unit()); },
            [&] {
                containers[host.below(5)] = adopt(TBFUnitContainerCreate(
                    host.coin() ? "m" : "",
                    {{slot(), "a"}, {static_cast<TBFUnitNameType>(host.number()), "b"}},
                    {{static_cast<TBFUnitNameType>(host.number()), "A b"}}, {"a"}));
            },
            [&] { TBFUnitContainerSetUnitFraction(container(), fraction()); },
            [&] { TBFUnitContainerGetNameForType(container(), static_cast<TBFUnitNameType>(host.number())); },
            [&] { TBFUnitContainerIsBaseUnit(container()); },
            [&] { TBFUnitFractionBuilderAddUnit(builder(), unit(), host.number() % 4); },
            [&] { TBFUnitFractionBuilderAddUnit(builder(), container(), host.number() % 4); },
            [&] { TBFUnitFractionBuilderAddUnit(builder(), fraction(), host.number() % 4); },
            [&] { TBFUnitFractionBuilderSetExtraMultiplierString(builder(), host.coin() ? nullptr : "x"); },
            [&] {
                TBFUnitFractionBuilderSetExtraMultiplierMAPM(builder(),
                                                             TBFUnitFractionGetMultiplier(fraction()));
            },
            [&] { TBFUnitFractionBuilderInvert(builder()); },
            [&] { fractions[host.below(5)] = adopt(TBFUnitFractionBuilderCreateUnitFraction(builder())); },
            [&] { builders[0] = UnitFractionBuilder::create(); },
            [&] { fractions[host.below(5)] = adopt(TBFUnitFractionCopy(fraction())); },
            [&] { TBFUnitFractionGetUnitDegree(fraction(), type()); },
            [&] { TBFUnitFractionGetOnlyNumeratorUnitOfType(fraction(), type()); },
            [&] { TBFUnitFractionTypesCompare(fraction(), fraction(), nullptr); },
            [&] { TBFUnitFractionIsEqualToUnitFraction(fraction(), fraction()); },
            [&] { TBFUnitFractionGetStringRepresentation(fraction()); },
            [&] { TBFUnitFractionGetOffsetMAPMReference(fraction()); },
            [&] { TBFUnitCollectionAddUnit(collection(), container()); },
            [&] { TBFUnitCollectionAddUnits(collection(), nullptr, host.number()); },
            [&] { TBFUnitCollectionRemoveUnit(collection(), container()); },
            [&] { TBFUnitCollectionSetBaseUnit(collection(), type(), container()); },
            [&] { TBFUnitCollectionGetBaseUnit(collection(), type()); },
            [&] { TBFUnitCollectionGetCountOfUnitsWithType(collection(), type()); },
            [&] { TBFUnitCollectionFindUnitsMatchingWords(collection(), words()); },
            [&] { TBFUnitCollectionFindTopUnitMatchingWords(collection(), {}); },
            [&] { TBFUnitCollectionAddSIExponentLink(collection(), container(), container(), -3); },
            [&] { TBFUnitCollectionAddNonSILink(collection(), container(), container()); },
            [&] { TBFUnitCollectionGetSIExponentUnit(collection(), container(), 3); },
            [&] {
                TBFUnitCollectionFindFirstLinkedUnitWithScalarLessThanOrEqualToMAPM(
                    collection(), container(), TBFUnitContainerGetScalarMAPM(container()));
            },
            [&] {
                const auto ambiguous = adopt(TBFAmbiguousUnitCreate({container(), container()}));
                TBFAmbiguousUnitGetUnambiguousUnit(ambiguous.get(), UINT64_MAX, host.word());
            },
            [&] {
                const auto formatter = adopt(
                    TBFUnitStringFormatterCreate(static_cast<TBFUnitStringConnectiveType>(host.number())));
                TBFUnitStringFormatterSetNameFormatForUnitType(
                    formatter.get(), static_cast<TBFUnitFormatType>(host.number()), type());
                drop(TBFUnitStringFormatterCreateFormattedString(
                    formatter.get(), container(), static_cast<TBFUnitFormatType>(host.number()),
                    static_cast<TBFUnitStringForm>(host.number())));
            },
            [&] {
                const auto simplifier = adopt(TBFUnitFractionSimplifierCreate(collection()));
                drop(TBFUnitFractionSimplifierSimplifyUnitFraction(simplifier.get(), fraction()));
            },
            [&] {
                const auto factorizer = adopt(TBFUnitFractionFactorizerCreate(collection()));
                drop(TBFUnitFractionFactorizerUndecompose(factorizer.get(), fraction(),
                                                          TBFUnitFractionGetUnitsByType(fraction()), {}));
            },
        });
}

TEST_P(HostileEmbedder, OfDependencies) {
    std::vector<Ref<DependencyGraph>> graphs{DependencyGraph::create(), DependencyGraph::create()};
    std::vector<Ref<DependencyGraphNode>> nodes(5);
    const TBFDependencyExtentsRef extents = TBFDependencyExtentsCreate();
    const auto graph = [&] { return host.any(graphs); };
    const auto node = [&] { return host.any(nodes); };
    std::array<uint32_t, 64> out{};
    host.play(
        3000,
        {
            [&] { TBFDependencyGraphAddDependency(graph(), host.index(), host.index(), host.index()); },
            [&] { TBFDependencyGraphRemoveAllDependenciesForLine(graph(), host.index()); },
            [&] {
                if (host.below(5) == 0)
                    TBFDependencyGraphRemoveAllDependenciesForLinesOnAndAfterIndex(graph(), host.index());
            },
            [&] { TBFDependencyGraphGetDirectDependents(graph(), host.index(), out.data(), nullptr, 64); },
            [&] {
                TBFDependencyGraphGetDirectDependents(graph(), host.index(), nullptr, nullptr, UINT32_MAX);
            },
            [&] {
                TBFDependencyGraphGetIndexesWithDependenciesCrossingIndex(
                    graph(), host.index(), out.data(), nullptr, static_cast<uint32_t>(host.below(64)));
            },
            [&] {
                TBFDependencyGraphGetEvaluationOrderForNodeIndexes(graph(), {host.index(), 3}, host.coin());
            },
            [&] {
                TBFDependencyGraphGetDependentEvaluationOrderForNodeIndexeBuf(graph(), out.data(), 8,
                                                                              out.data(), 64);
            },
            [&] { nodes[host.below(5)] = adopt(TBFDependencyGraphNodeCreate(host.index())); },
            [&] { TBFDependencyGraphNodeAddDependency(node(), node(), host.index()); },
            [&] { TBFDependencyGraphNodeRemoveAllDependencies(node()); },
            [&] {
                for (DependencyGraphNode* const user : TBFDependencyGraphNodeGetDirectDependents(node()))
                    TBFDependencyGraphNodeGetIndex(user);
            },
            [&] { TBFDependencyExtentsAddDependency(extents, host.index(), host.index()); },
            [&] { TBFDependencyExtentsRemoveAllDependenciesForLine(extents, host.index()); },
            [&] { TBFDependencyExtentsGetDependenciesCrossingIndex(extents, host.index()); },
        });
    TBFDependencyExtentsFree(extents);
}

TEST(ListsWithParents, ListsBehindEachOtherEndTheWalk) {
    const auto a = FunctionList::create(), b = FunctionList::create();
    a->setParentList(b);
    b->setParentList(a);
    EXPECT_EQ(b->find(*String::create(u"nothing")).function, nullptr);
    const auto first = WordOperatorList::create(), second = WordOperatorList::create();
    first->setAuxiliaryList(second.get());
    second->setAuxiliaryList(first.get());
    EXPECT_EQ(second->find(u"nothing"), nullptr);
}

} // namespace
