#pragma once

// A word that acts as an operator, as localizations define it: one of six kinds with a word of its own.
// Immutable.

#include "names/wordoperators/WordOperator.h"
#include "runtime/Ref.h"

#include <cstdint>
#include <string_view>

enum TCWordOperatorType : int32_t {
    TCWordOperatorTypeAdd = 1,
    TCWordOperatorTypeSubtract = 2,
    TCWordOperatorTypeMultiply = 3,
    TCWordOperatorTypeDivide = 4,
    TCWordOperatorTypeReverseSubtract = 5,
    TCWordOperatorTypeReverseDivide = 6,
};

class TCWordOperator {
public:
    // An infix operator of a TCWordOperatorType; any other type is logged and gives an operator without a
    // template.
    static TCWordOperator wordOperatorOfType(int32_t type, std::u16string_view word);

    explicit TCWordOperator(TBF::Ref<TBF::WordOperator> foundationOperator);
    TCWordOperator(const TCWordOperator&);
    TCWordOperator& operator=(const TCWordOperator&);
    ~TCWordOperator();

    // Borrowed; never null.
    TBF::WordOperator* tbfWordOperator() const { return op.get(); }

private:
    TBF::Ref<TBF::WordOperator> op;
};
