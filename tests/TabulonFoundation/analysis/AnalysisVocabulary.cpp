#include "analysis/AnalysisVocabulary.h"

#include "analysis/ContextualAnalyzer.h"
#include "analysis/ExpressionTokenizer.h"
#include "analysis/TokenDump.h"
#include "analysis/passes/Flatten.h"
#include "analysis/passes/PassContext.h"
#include "names/functions/FunctionList.h"
#include "names/variables/VariableList.h"
#include "names/wordoperators/WordOperatorList.h"
#include "runtime/Unicode.h"
#include "units/UnitCollection.h"
#include "units/UnitContainer.h"

#include <utility>

namespace TBFTests {

namespace {

using TBF::Ref;
using TBF::String;

struct UnitRow {
    const char* identifier;
    const char* singular; // null for none
    const char* shortName;
    bool canBePrefix;
};

constexpr UnitRow unitRows[] = {
    {"metre", "meter", "m", false},   {"sqm", "square meter", "m2", false},
    {"km", "kilometer", "km", false}, {"kg", "kilogram", "kg", false},
    {"h", "hour", "h", false},        {"minute", "minute", "min", false},
    {"dollar", "dollar", "$", true},  {"mega", nullptr, "M", false},
    {"mach", nullptr, "M", false},
};

struct WordOperatorRow {
    const char* word;
    int32_t argumentType;
    uint32_t options;
    uint32_t argumentConditions;
};

constexpr WordOperatorRow wordOperatorRows[] = {
    {"x", 3, 21, 31}, {"per", 3, 16, 31}, {"from", 3, 1, 30}, {"_off", 2, 1, 0}, {"_not", 1, 0, 0},
};

Ref<String> string(const char* text) {
    return text ? String::createWithUTF8(text) : nullptr;
}

Ref<TBF::UnitCollection> makeUnits() {
    Ref<TBF::UnitCollection> units = TBF::UnitCollection::create();
    for (const UnitRow& row : unitRows) {
        TBF::UnitContainer::Names names;
        names.byType[TBFUnitNameTypeSingular] = string(row.singular);
        names.byType[TBFUnitNameTypeVeryShort] = string(row.shortName);
        const Ref<TBF::UnitContainer> unit = TBF::UnitContainer::create(row.identifier, std::move(names));
        unit->setCanBePrefixUnit(row.canBePrefix);
        units->addUnit(*unit);
    }
    return units;
}

Ref<TBF::Namespace> makeVocabulary() {
    Ref<TBF::Namespace> names = TBF::Namespace::create();
    names->setUnitCollection(makeUnits());
    const auto functions = TBF::FunctionList::create();
    for (const char* name : {"min", "sin", "twice"})
        functions->add(TBF::Function::create(string(name)));
    names->setFunctionList(functions);
    const auto variables = TBF::VariableList::create();
    for (const char* name : {"rate", "x1", "km2", "twice"}) {
        const auto variable = TBF::Variable::create();
        variable->setName(string(name));
        variables->add(variable);
    }
    names->setVariableList(variables);
    const auto operators = TBF::WordOperatorList::create();
    for (const WordOperatorRow& row : wordOperatorRows) {
        const auto op =
            TBF::WordOperator::create(string(row.word), row.argumentType, string("1"), 1, row.options);
        op->setArgumentConditions(row.argumentConditions);
        operators->add(op);
    }
    names->setWordOperatorList(operators);
    return names;
}

} // namespace

Ref<TBF::Namespace> vocabulary() {
    static const Ref<TBF::Namespace>& names = *new Ref<TBF::Namespace>(makeVocabulary());
    return names;
}

TBF::ExpressionTokenList tokensOf(std::string_view line) {
    const auto expression = TBF::Expression::create(String::createWithUTF8(line).get());
    return TBF::ExpressionTokenizer::create(kTBFLocaleDefault)->tokenize(expression.get())->tokens();
}

std::string analyzed(std::string_view line) {
    const auto analyzer = TBF::ContextualAnalyzer::create();
    analyzer->setNamespace(vocabulary());
    return dump(analyzer->analyze(*TBF::TokenizedExpression::create(tokensOf(line)), 0));
}

std::string analyzedThroughStep(std::size_t stepCount, std::string_view line, bool runsAll) {
    const auto tokens = tokensOf(line);
    const auto names = vocabulary();
    TBF::PassContext context{.input = tokens};
    context.names = names.get();
    for (const auto& pass : TBF::ContextualAnalyzer::passes().first(stepCount)) {
        if (runsAll || pass.traits == TBF::LineTraitAny || context.has(pass.traits)) pass.run(context);
    }
    pass_flatten(context);
    return dump(context.output);
}

} // namespace TBFTests
