#include "variables/TCVariableState.h"

#include "variables/TCVariable.h"

void TCVariableState::updateWithVariable(const TCVariable& variable) {
    oldName = variable.name();
}
