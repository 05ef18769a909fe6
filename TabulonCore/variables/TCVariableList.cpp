#include "variables/TCVariableList.h"

#include "environment/TCEnvironment.h"
#include "eval/variables/VariableList.h"
#include "units/UnitContainer.h"

TCVariableList::TCVariableList()
    : list(TBF::VariableList::create()) {}

TCVariableList::~TCVariableList() = default;

std::shared_ptr<TCVariableList> TCVariableList::listWithStandardVariables() {
    auto variables = std::make_shared<TCVariableList>();
    TBFVariableListSetParentList(variables->tbfVariableList(), TBFVariableListGetStandardList());
    return variables;
}

std::shared_ptr<TCVariableList> TCVariableList::sharedList() {
    const std::shared_ptr<TCEnvironment> environment = TCEnvironment::current();
    return environment ? environment->variables() : nullptr;
}

void TCVariableList::setParentList(std::shared_ptr<TCVariableList> newParent) {
    parent = std::move(newParent);
    TBFVariableListSetParentList(list.get(), parent ? parent->tbfVariableList() : nullptr);
    registerStateChange();
}

int32_t TCVariableList::countOfTopLevelVariables() const {
    return TBFVariableListGetCountOfTopLevelVariables(list.get());
}

int32_t TCVariableList::countOfAllVariables() const {
    return TBFVariableListGetCountOfVariables(list.get());
}

void TCVariableList::removeAllVariables() {
    TBFVariableListRemoveAll(list.get());
}
