#pragma once

// The lists that an environment starts from, each made anew: the standard word operators and variables, and
// the standard functions with those behind which references to other lines stand. No state.

#include <memory>

class TCEnvironment;
class TCFunctionList;
class TCVariableList;
class TCWordOperatorList;

class TCBuiltins {
public:
    static std::shared_ptr<TCWordOperatorList> wordOperators();
    static std::shared_ptr<TCVariableList> variables();
    static std::shared_ptr<TCFunctionList> functions();

    // An environment of these lists, without units, with an evaluator over them. Not current until it is set.
    static std::shared_ptr<TCEnvironment> environment();
};
