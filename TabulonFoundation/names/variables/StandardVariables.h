#pragma once

// The variables that every environment has, as data. For VariableList alone.

#include "runtime/Ref.h"

namespace TBF {

class VariableList;

Ref<VariableList> makeStandardVariables();

} // namespace TBF
