#include "environment/TCEnvironment.h"

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
    if (!sealed) units = std::move(newUnits);
}

void TCEnvironment::setVariables(std::shared_ptr<TCVariableList> newVariables) {
    if (!sealed) variableList = std::move(newVariables);
}

void TCEnvironment::setWordOperators(std::shared_ptr<TCWordOperatorList> newWordOperators) {
    if (!sealed) wordOperatorList = std::move(newWordOperators);
}

void TCEnvironment::setFunctions(std::shared_ptr<TCFunctionList> newFunctions) {
    if (!sealed) functionList = std::move(newFunctions);
}

void TCEnvironment::setLocale(TCSimpleLocale newLocale) {
    if (!sealed) textLocale = newLocale;
}
