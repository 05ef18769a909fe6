#pragma once

// A variable as it stands in an expression: with the line index at which its values are read. The value is
// read again at each evaluation. Belongs to the thread that evaluates.

#include "names/variables/Variable.h"
#include "units/Value.h"

namespace TBF {

class ScopedVariable final : public Object<ScopedVariable> {
public:
    static Ref<ScopedVariable> create(Ref<Variable> variable, int32_t scope);

    Variable& variable() const { return *scopedVariable; }
    int32_t scope() const { return lineIndex; }

    // The value now, with the current factors of its units; not-a-number when no value stands there.
    // Borrowed: valid until the next read.
    Value* value();

private:
    friend class Object<ScopedVariable>;

    ScopedVariable(Ref<Variable> variable, int32_t scope);
    ~ScopedVariable() override = default;

    Ref<Variable> scopedVariable;
    int32_t lineIndex;
    Ref<Value> lastValue; // what `value` lends
};

} // namespace TBF
