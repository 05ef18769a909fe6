// A host that calls the operations of documents and lists of variables in any order, with null and foreign
// objects and indexes out of range, and whose delegates edit what they hear of. What is looked for are reads
// of freed memory, leaks and endless walks, which the sanitizers and the time limit report; a seed makes the
// same calls each time.

#include "document/DependencyGraph.h"
#include "environment/TCEvaluator.h"
#include "lines/LineCollectionTesting.h"
#include "lines/TCDeclaredNames.h"
#include "lines/TCLineCollectionStatistics.h"
#include "lines/TCLineCollectionVariable.h"
#include "lines/TCLineDependencies.h"
#include "lines/TCLineIndexSet.h"
#include "names/variables/Variable.h"
#include "results/TCResult.h"
#include "runtime/String.h"
#include "runtime/TBFLog.h"
#include "units/TCBasicUnit.h"
#include "units/TCUnit.h"
#include "units/TCUnitCollection.h"
#include "units/UnitContainer.h"
#include "variables/TCVariable.h"
#include "variables/TCVariableList.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <random>

namespace {

class Host {
public:
    explicit Host(uint32_t seed)
        : random(seed) {}

    std::size_t below(std::size_t end) {
        return std::uniform_int_distribution<std::size_t>(0, end - 1)(random);
    }
    bool coin() { return below(2) == 0; }
    std::size_t index() { return below(10) == 0 ? SIZE_MAX - below(2) : below(9); }
    int64_t place() {
        return below(10) == 0 ? (coin() ? INT64_MIN : INT64_MAX) : static_cast<int64_t>(below(12)) - 2;
    }

    // Null now and then.
    template <typename T>
    std::shared_ptr<T> any(const std::vector<std::shared_ptr<T>>& pool) {
        return below(8) == 0 ? nullptr : pool[below(pool.size())];
    }

    std::u16string name() {
        static constexpr std::u16string_view names[] = {u"", u"a", u"A", u"b", u"x", u"pi", u"Pi", u"ab"};
        return std::u16string(names[below(std::size(names))]);
    }

    std::string text() {
        static constexpr std::string_view texts[] = {"",      "1",  "a = 2", "A = 3",  "b = a + 1", "a * 2",
                                                     "x = x", "pi", "1/0",   "# note", "a: 5%",     "((("};
        const std::size_t which = below(std::size(texts) + 2);
        if (which == std::size(texts)) return relative(static_cast<int>(below(5)) - 1) + " + 1";
        if (which > std::size(texts)) return absolute(static_cast<int>(below(9)) - 1) + " * 2";
        return std::string(texts[which]);
    }

    void play(int calls, const std::vector<std::function<void()>>& operations) {
        for (int i = 0; i < calls; ++i)
            operations[below(operations.size())]();
    }

private:
    std::mt19937 random;
};

class HostileEmbedder : public testing::TestWithParam<uint32_t> {
protected:
    HostileEmbedder() {
        useEvaluatingEnvironment();
        TBFErrorLogEnabled = 0;
    }
    ~HostileEmbedder() override { TBFErrorLogEnabled = 1; }
    Host host{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Seeds, HostileEmbedder, testing::Range(1u, 13u));

// Takes out, renames or disables what it hears of, now and then.
class MeddlingListDelegate : public TCVariableListDelegate {
public:
    explicit MeddlingListDelegate(Host& chance)
        : host(chance) {}
    void variableDidUpdateInVariableList(TCVariable& variable, TCVariableList& list) override {
        if (depth > 2) return;
        ++depth;
        switch (host.below(6)) {
        case 0:
            list.removeVariableWithName(variable.name().value_or(u""));
            break;
        case 1:
            variable.changeName(host.name());
            break;
        case 2:
            variable.setEnabled(!variable.enabled());
            break;
        case 3:
            list.removeAllVariables();
            break;
        default:
            break;
        }
        --depth;
    }

private:
    Host& host;
    int depth = 0;
};

TEST_P(HostileEmbedder, OfListsOfVariables) {
    MeddlingListDelegate delegate(host);
    std::vector<std::shared_ptr<TCVariableList>> lists;
    std::vector<std::shared_ptr<TCVariable>> variables;
    for (int i = 0; i < 4; ++i) {
        lists.push_back(i % 2 ? std::make_shared<TCVariableList>()
                              : TCVariableList::listWithStandardVariables());
        variables.push_back(TCVariable::variableWithName(host.name(), std::u16string(u"1")));
    }
    std::vector<std::shared_ptr<TCVariable>> kept;
    const auto list = [&](const std::function<void(TCVariableList&)>& use) {
        if (const auto one = host.any(lists)) use(*one);
    };
    const auto variable = [&](const std::function<void(TCVariable&)>& use) {
        if (const auto one = host.any(variables)) use(*one);
    };
    host.play(
        1500,
        {
            [&] { list([&](auto& one) { one.addVariable(host.any(variables)); }); },
            [&] {
                list([&](auto& one) { one.addVariableWithoutAddingToTBFVariableList(host.any(variables)); });
            },
            [&] { list([&](auto& one) { one.addVariableWithName(host.name(), host.name()); }); },
            [&] { list([&](auto& one) { one.addAliasForVariableWithName(host.name(), host.name()); }); },
            [&] { list([&](auto& one) { one.setValueForVariableWithName(u"3", host.name()); }); },
            [&] { list([&](auto& one) { one.removeVariable(host.any(variables)); }); },
            [&] { list([&](auto& one) { one.removeVariableWithName(host.name()); }); },
            [&] { list([&](auto& one) { one.setParentList(host.any(lists)); }); },
            [&] { list([&](auto& one) { one.setDelegate(host.coin() ? &delegate : nullptr); }); },
            [&] { list([&](auto& one) { kept = one.allVariables(); }); },
            [&] { list([&](auto& one) { one.valueOfVariableWithName(host.name()); }); },
            [&] {
                list([&](auto& one) {
                    const std::u16string name = host.name();
                    const auto found = one.variableWithExactCaseName(name);
                    if (found && found->name() == name) {
                        ASSERT_TRUE(one.containsVariableWithName(name));
                    }
                });
            },
            [&] {
                list([&](auto& one) {
                    if (host.below(8) == 0) one.removeAllVariables();
                });
            },
            [&] { variable([&](auto& one) { one.changeName(host.name()); }); },
            [&] { variable([&](auto& one) { one.tbfVariable()->setName(nullptr); }); },
            [&] { variable([&](auto& one) { one.addAlias(host.name()); }); },
            [&] { variable([&](auto& one) { one.setEnabled(host.coin()); }); },
            [&] { variable([&](auto& one) { one.setValue(host.name()); }); },
            [&] { variable([&](auto& one) { one.setResultValue(nullptr); }); },
            [&] { variable([&](auto& one) { one.setUnit(nullptr); }); },
            [&] {
                variable([&](auto& one) {
                    one.setDelocalizedValue(u"2", 7, nullptr, TCRange{host.place(), host.place()});
                });
            },
            [&] { variable([&](auto& one) { one.convertToLocaleWithDecimalPoint(u',', u'.'); }); },
            [&] { variable([&](auto& one) { one.copy()->displayValue(); }); },
            [&] { variable([&](auto& one) { one.dictionaryRepresentation(); }); },
            [&] { lists[host.below(4)] = TCVariableList::listWithStandardVariables(); },
            [&] { variables[host.below(4)] = TCVariable::variableWithName(host.name()); },
            [&] {
                variables[host.below(4)] =
                    TCVariable::variableWithTBFVariable(TBF::retain(variables[host.below(4)]->tbfVariable()));
            },
        });
}

// Edits the document that it hears of.
class MeddlingDocumentDelegate : public TCLineCollectionDelegate {
public:
    explicit MeddlingDocumentDelegate(Host& chance)
        : host(chance) {}
    void lineCollectionDidUpdateLinesAtIndexes(TCLineCollection& collection, const TCLineIndexSet&) override {
        meddle(collection);
    }
    void lineCollectionDidAutomaticallyUpdateLinesAtIndexes(TCLineCollection& collection,
                                                            const TCLineIndexSet&) override {
        meddle(collection);
    }
    bool respondsToDidNoticeThatLineReferenceOnLines() const override { return true; }

private:
    void meddle(TCLineCollection& collection) {
        if (depth > 1) return;
        ++depth;
        switch (host.below(8)) {
        case 0:
            collection.removeLineAtIndex(host.index());
            break;
        case 1:
            collection.addLine(lineOf(host.text()));
            break;
        case 2:
            if (const auto line = collection.lineAtIndex(host.index())) line->setExpressionString(u"a = 9");
            break;
        case 3:
            collection.setDelegate(nullptr);
            break;
        case 4:
            collection.removeAllLines();
            break;
        default:
            break;
        }
        --depth;
    }

    Host& host;
    int depth = 0;
};

TEST_P(HostileEmbedder, OfDocuments) {
    MeddlingDocumentDelegate delegate(host);
    std::vector<std::shared_ptr<TCLineCollection>> documents;
    std::vector<std::shared_ptr<TCLine>> lines;
    for (int i = 0; i < 3; ++i) {
        documents.push_back(std::make_shared<TCLineCollection>());
        fill(*documents.back(), {host.text(), host.text(), host.text()});
        lines.push_back(lineOf(host.text()));
    }
    const auto document = [&](const std::function<void(TCLineCollection&)>& use) {
        const auto one = documents[host.below(3)];
        if (one->countOfLines() > 30) one->removeAllLines();
        use(*one);
    };
    // A free one, one of any document, or null.
    const auto line = [&] {
        return host.coin() ? host.any(lines) : documents[host.below(3)]->lineAtIndex(host.index());
    };
    const auto set = [&] { return TCLineIndexSet{host.index(), host.index()}; };
    host.play(
        1200,
        {
            [&] { document([&](auto& one) { one.addLine(line()); }); },
            [&] { document([&](auto& one) { one.addLine(lineOf(host.text())); }); },
            [&] { document([&](auto& one) { one.insertLine(line(), host.index()); }); },
            [&] { document([&](auto& one) { one.removeLine(line()); }); },
            [&] { document([&](auto& one) { one.removeLineAtIndex(host.index()); }); },
            [&] { document([&](auto& one) { one.moveLineAtIndex(host.index(), host.index()); }); },
            [&] { document([&](auto& one) { one.setDelegate(host.coin() ? &delegate : nullptr); }); },
            [&] { document([&](auto& one) { one.beginBatchUpdate(); }); },
            [&] { document([&](auto& one) { one.endBatchUpdate(); }); },
            [&] { document([&](auto& one) { one.endBatchUpdate(); }); },
            [&] { document([&](auto& one) { one.evaluateLine(line()); }); },
            [&] { document([&](auto& one) { one.enqueEvaluationOfLine(line()); }); },
            [&] { document([&](auto& one) { one.registerExpressionChangeForLineAtIndex(host.index()); }); },
            [&] {
                document([&](auto& one) {
                    one.registerChange(static_cast<int32_t>(host.below(9)) - 1, host.place());
                });
            },
            [&] { document([&](auto& one) { one.evaluateLinesAtIndexes(set()); }); },
            [&] { document([&](auto& one) { one.evaluateAllLinesWithReportingMode(host.coin()); }); },
            [&] { document([&](auto& one) { one.unparseAllLines(); }); },
            [&] {
                document(
                    [&](auto& one) { one.dependencies().rebuildDependencyGraphForLinesAtIndexes(set()); });
            },
            [&] {
                document([&](auto& one) {
                    one.dependencies().rebuildDependencyGraphForLinesOnAndAfterIndex(host.place());
                });
            },
            [&] {
                document(
                    [&](auto& one) { one.dependencies().indexesOfLinesDependingOnLinesAtIndexes(set()); });
            },
            [&] {
                document([&](auto& one) {
                    one.dependencies().lineIndexesWithDependenciesMatchingTypeMask(7, host.index());
                });
            },
            [&] {
                document([&](auto& one) {
                    one.dependencies().lineIndexesDirectlyDependingOnIndexesInRange(host.index(),
                                                                                    host.index(), 7);
                });
            },
            [&] { document([&](auto& one) { one.linesWithIndexes(set()); }); },
            [&] {
                document([&](auto& one) { one.declaredNames().linesDeclaringVariableWithName(host.name()); });
            },
            [&] {
                document([&](auto& one) {
                    const auto variable =
                        documents[host.below(3)]->declaredNames().lineCollectionVariableWithName(host.name(),
                                                                                                 false);
                    if (!variable) return;
                    one.declaredNames().updateLineCollectionVariableOwnership(*variable);
                    one.declaredNames().removeVariableIfNeeded(variable);
                    variable->setValueResult(nullptr, line());
                    variable->valueForLineAtIndex(host.index());
                    if (host.coin()) variable->changeName(host.name());
                });
            },
            [&] { document([&](auto& one) { one.declaredNames().removeVariableIfNeeded(nullptr); }); },
            [&] {
                document([&](auto& one) {
                    if (const auto asked = line())
                        one.declaredNames().directLineCollectionVariableReferencesForLine(*asked);
                });
            },
            [&] {
                document(
                    [&](auto& one) { one.convertToLocaleWithDecimalPoint(host.coin() ? u',' : u'.', u' '); });
            },
            [&] {
                document(
                    [&](auto& one) { one.setTrigonometryMode(static_cast<int32_t>(host.below(4)) - 1); });
            },
            [&] {
                document([&](auto& one) {
                    TCLineCollectionReading::expressionAndResultOnLineIndex(one, host.index(), u"=");
                });
            },
            [&] { document([&](auto& one) { TCLineCollectionReading::description(one); }); },
            [&] {
                document([&](auto& one) {
                    if (const auto names = one.variables()) names->removeVariableWithName(host.name());
                });
            },
            [&] {
                if (const auto edited = line()) edited->setExpressionString(TBF::utf16(host.text()));
            },
            [&] {
                if (const auto asked = line()) asked->formattedResult();
            },
            [&] {
                if (const auto shown = line()) shown->setResult(nullptr);
            },
            [&] {
                const auto environment = documents[host.below(3)]->environment();
                TCLineCollectionStatistics(host.any(documents), environment)
                    .getStatistic(static_cast<int32_t>(host.below(6)), set());
            },
            [&] { lines[host.below(3)] = lineOf(host.text()); },
            [&] { documents[host.below(3)] = std::make_shared<TCLineCollection>(); },
            [&] { documents[host.below(3)] = std::make_shared<TCLineCollection>(nullptr); },
        });
}

// Lets go of the document that it hears of.
class ClosingDelegate : public TCLineCollectionDelegate {
public:
    void lineCollectionDidUpdateLinesAtIndexes(TCLineCollection&, const TCLineIndexSet&) override {
        document.reset();
    }
    std::unique_ptr<TCLineCollection> document;
};

TEST(HostileDelegate, MayCloseTheDocumentThatItHearsOf) {
    useEvaluatingEnvironment();
    const std::function<void(TCLineCollection&)> edits[] = {
        [](TCLineCollection& document) { document.addLine(lineOf("2")); },
        [](TCLineCollection& document) { document.lineAtIndex(0)->setExpressionString(u"a = 3"); },
        [](TCLineCollection& document) { document.removeLineAtIndex(0); },
        [](TCLineCollection& document) { document.moveLineAtIndex(0, 1); },
        [](TCLineCollection& document) { document.reevaluateLinesDependingOnVariables(); },
    };
    for (const auto& edit : edits) {
        ClosingDelegate delegate;
        delegate.document = std::make_unique<TCLineCollection>();
        fill(*delegate.document, {"a = 1", "a * 2", "a * 3"});
        delegate.document->setDelegate(&delegate);
        edit(*delegate.document);
        EXPECT_EQ(delegate.document, nullptr);
    }
}

TEST_P(HostileEmbedder, OfUnits) {
    const auto collection = TCUnitCollection::create();
    std::vector<std::shared_ptr<TCUnit>> units(4);
    TCUnitNames names;
    const auto type = [&] { return static_cast<TCUnitType>(static_cast<int32_t>(host.below(26)) - 2); };
    host.play(600, {
                       [&] {
                           units[host.below(4)] = TCBasicUnit::unitWithIdentifier(
                               host.name(), type(), host.coin() ? u"2" : u"x", names, u"1");
                       },
                       [&] { collection->addUnit(host.any(units)); },
                       [&] { collection->addUnits(units); },
                       [&] { collection->removeUnit(host.any(units)); },
                       [&] { collection->removeUnitWithIdentifier(host.name()); },
                       [&] { collection->setDefaultUnitForType(host.any(units), type()); },
                       [&] { collection->setDefaultUnitForClashingName(host.any(units), host.name()); },
                       [&] { collection->countUnitsOfType(type()); },
                       [&] { collection->unitWithName(host.name()); },
                       [&] { TCUnitsAreEqual(host.any(units).get(), host.any(units).get()); },
                       [&] {
                           if (const auto unit = host.any(units))
                               unit->nameForFormat(static_cast<TCUnitNameFormat>(host.below(7)),
                                                   static_cast<TCUnitNameForm>(host.below(5)));
                       },
                   });
}

} // namespace
