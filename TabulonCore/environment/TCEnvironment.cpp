#include "environment/TCEnvironment.h"

#include "environment/TCFunctionList.h"
#include "environment/TCWordOperatorList.h"
#include "names/Namespace.h"
#include "names/functions/FunctionList.h"
#include "names/variables/VariableList.h"
#include "names/wordoperators/WordOperatorList.h"
#include "units/TCUnitCollection.h"
#include "units/UnitCollection.h"
#include "variables/TCVariableList.h"

#include <utility>

namespace {

std::shared_ptr<TCEnvironment>& currentEnvironment() {
    static auto* const current = new std::shared_ptr<TCEnvironment>();
    return *current;
}

} // namespace

std::shared_ptr<TCEnvironment> TCEnvironment::make() {
    return std::make_shared<TCEnvironment>(Passkey{});
}

TCEnvironment::TCEnvironment(Passkey)
    : space(TBF::Namespace::create()) {}

TCEnvironment::~TCEnvironment() = default;

std::shared_ptr<TCEnvironment> TCEnvironment::current() {
    return currentEnvironment();
}

void TCEnvironment::set() {
    currentEnvironment() = shared_from_this();
}

void TCEnvironment::setSharedEvaluator(std::shared_ptr<TCEvaluator> newEvaluator) {
    if (!sealed) evaluator = std::move(newEvaluator);
}

void TCEnvironment::setUnitManager(std::shared_ptr<TCUnitCollection> newUnits) {
    if (sealed) return;
    units = std::move(newUnits);
    space->setUnitCollection(units ? TBF::retain(units->tbfUnitCollection()) : nullptr);
}

void TCEnvironment::setVariables(std::shared_ptr<TCVariableList> newVariables) {
    if (sealed) return;
    variableList = std::move(newVariables);
    space->setVariableList(variableList ? TBF::retain(variableList->tbfVariableList()) : nullptr);
}

void TCEnvironment::setWordOperators(std::shared_ptr<TCWordOperatorList> newWordOperators) {
    if (sealed) return;
    wordOperatorList = std::move(newWordOperators);
    space->setWordOperatorList(wordOperatorList ? TBF::retain(wordOperatorList->tbfWordOperatorList())
                                                : nullptr);
}

void TCEnvironment::setFunctions(std::shared_ptr<TCFunctionList> newFunctions) {
    if (sealed) return;
    functionList = std::move(newFunctions);
    space->setFunctionList(functionList ? TBF::retain(functionList->tbfFunctionList()) : nullptr);
}

void TCEnvironment::setLocale(TCSimpleLocale newLocale) {
    if (!sealed) textLocale = newLocale;
}
