#include "environment/TCBuiltins.h"

#include "environment/TCEnvironment.h"
#include "environment/TCEvaluator.h"
#include "environment/TCFunctionList.h"
#include "environment/TCWordOperatorList.h"
#include "expressions/TCLineReferenceType.h"
#include "lines/TCLineReferenceFunctions.h"
#include "names/functions/FunctionImplementation.h"
#include "names/functions/FunctionList.h"
#include "runtime/String.h"
#include "variables/TCVariableList.h"

#include <memory>

namespace {

using Body = TBF::FunctionImplementationTBFEvaluatedValue::Body;

// What a kind of reference does as a call in an expression.
constexpr Body bodyOfReference(TCLineReferenceType type) {
    switch (type) {
    case TCLineReferenceTypeRelative:
    case TCLineReferenceTypeFixedRelative:
        return TCLineReferenceFunction_relative;
    case TCLineReferenceTypeAbsolute:
        return TCLineReferenceFunction_absolute;
    case TCLineReferenceTypeAbsoluteByLineNumber:
        return TCLineReferenceFunction_absolute_line_number;
    default:
        return TCLineReferenceFunction_null;
    }
}

constexpr uint8_t argumentCount = 1;

} // namespace

std::shared_ptr<TCWordOperatorList> TCBuiltins::wordOperators() {
    return TCWordOperatorList::listWithStandardWordOperators();
}

std::shared_ptr<TCVariableList> TCBuiltins::variables() {
    return TCVariableList::listWithStandardVariables();
}

std::shared_ptr<TCFunctionList> TCBuiltins::functions() {
    auto list = TBF::FunctionList::create();
    list->setParentList(TBF::retain(&TBF::FunctionList::standard()));
    for (const auto& [type, name] : TCLineReferenceFunctionNames) {
        const auto function = TBF::Function::create(TBF::String::create(name), {}, argumentCount);
        function->setImplementation(
            std::make_unique<TBF::FunctionImplementationTBFEvaluatedValue>(bodyOfReference(type)));
        list->add(function);
    }
    return std::make_shared<TCFunctionList>(std::move(list));
}

std::shared_ptr<TCEnvironment> TCBuiltins::environment() {
    const auto made = TCEnvironment::make();
    made->setVariables(variables());
    made->setWordOperators(wordOperators());
    made->setFunctions(functions());
    made->setSharedEvaluator(
        std::make_shared<TCEvaluator>(made->unitManager(), made->variables(), made->wordOperators()));
    return made;
}
