#pragma once

// The record of what an evaluation knows: units, variables, word operators, functions, and the shared
// evaluator. One is current for the process, made when a host starts; each document has one of its own, which
// shares most of it. Set up and used on one thread at a time.

#include "environment/TCSimpleLocale.h"
#include "runtime/Ref.h"

#include <memory>

namespace TBF {
class Namespace;
}

class TCEvaluator;
class TCFunctionList;
class TCUnitCollection;
class TCVariableList;
class TCWordOperatorList;

class TCEnvironment : public std::enable_shared_from_this<TCEnvironment> {
public:
    static std::shared_ptr<TCEnvironment> make();

    // Null until one is set.
    static std::shared_ptr<TCEnvironment> current();

    // Makes this one current instead of an earlier one.
    void set();

    // While this is true, the other setters do nothing. False at first.
    bool isSet() const { return sealed; }
    void setIsSet(bool isSet) { sealed = isSet; }

    // All may be null.
    const std::shared_ptr<TCEvaluator>& sharedEvaluator() const { return evaluator; }
    const std::shared_ptr<TCUnitCollection>& unitManager() const { return units; }
    const std::shared_ptr<TCVariableList>& variables() const { return variableList; }
    const std::shared_ptr<TCWordOperatorList>& wordOperators() const { return wordOperatorList; }
    const std::shared_ptr<TCFunctionList>& functions() const { return functionList; }
    TCSimpleLocale locale() const { return textLocale; }

    // What words mean here: units, variables, word operators and functions, as whoever reads a text takes
    // them. Put together in this place alone, and kept up to date by the setters. Never null.
    const TBF::Ref<TBF::Namespace>& names() const { return space; }

    void setSharedEvaluator(std::shared_ptr<TCEvaluator> newEvaluator);
    void setUnitManager(std::shared_ptr<TCUnitCollection> newUnits);
    void setVariables(std::shared_ptr<TCVariableList> newVariables);
    void setWordOperators(std::shared_ptr<TCWordOperatorList> newWordOperators);
    void setFunctions(std::shared_ptr<TCFunctionList> newFunctions);
    void setLocale(TCSimpleLocale newLocale);

private:
    struct Passkey {};

public:
    explicit TCEnvironment(Passkey);
    ~TCEnvironment();

private:
    std::shared_ptr<TCEvaluator> evaluator;
    std::shared_ptr<TCUnitCollection> units;
    std::shared_ptr<TCVariableList> variableList;
    std::shared_ptr<TCWordOperatorList> wordOperatorList;
    std::shared_ptr<TCFunctionList> functionList;
    TBF::Ref<TBF::Namespace> space; // of the four lists
    TCSimpleLocale textLocale = kTCSimpleLocalDefault;
    bool sealed = false;
};
