#pragma once

// Turns the template of a word operator into a tree. The compiler's namespace holds functions alone: the
// standard ones, and "_op1" and "_op2", which answer the operands of the word operator that runs. So a
// template can use numbers, operators and functions, and no words of the user's.

#include "runtime/Object.h"
#include "runtime/Ref.h"

namespace TBF {

class CompiledWordOperator;
class FunctionList;
class String;

class WordOperatorCompiler final : public Object<WordOperatorCompiler> {
public:
    // `functions` stand behind the two operand functions.
    static Ref<WordOperatorCompiler> create(FunctionList* functions);

    // The compiler of the process, over the functions that the first of these calls names: the given ones, or
    // the standard ones.
    static WordOperatorCompiler& sharedOver(FunctionList& functions);
    static WordOperatorCompiler& shared();

    // Never null; a template that doesn't parse gives an operator without a tree.
    Ref<CompiledWordOperator> compile(const String& expression) const;

private:
    friend class Object<WordOperatorCompiler>;

    explicit WordOperatorCompiler(FunctionList* functions);
    ~WordOperatorCompiler() override;

    Ref<FunctionList> operandFunctions;
};

} // namespace TBF
