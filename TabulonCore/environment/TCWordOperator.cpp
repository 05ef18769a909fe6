#include "environment/TCWordOperator.h"

#include "analysis/TBFOperatorOptions.h"
#include "names/wordoperators/WordOperator.h"
#include "numbers/TBFOperatorType.h"
#include "runtime/TBFLog.h"

#include <algorithm>

namespace {

struct Kind {
    int32_t type;
    const char* expression;
    TBFOperatorPrecedence precedence;
};

constexpr Kind kinds[] = {
    {TCWordOperatorTypeAdd, "${1}+${2}", TBFOperatorPrecedenceAddSubtract},
    {TCWordOperatorTypeSubtract, "(${1})-(${2})", TBFOperatorPrecedenceAddSubtract},
    {TCWordOperatorTypeMultiply, "${1}*${2}", TBFOperatorPrecedenceMultiply},
    {TCWordOperatorTypeDivide, "${1}/${2}", TBFOperatorPrecedenceDivide},
    {TCWordOperatorTypeReverseSubtract, "(${2})-(${1})", TBFOperatorPrecedenceAddSubtract},
    {TCWordOperatorTypeReverseDivide, "${2}/${1}", TBFOperatorPrecedenceDivide},
};

constexpr Kind unknownKind = {0, "", TBFOperatorPrecedenceNone};

constexpr uint32_t options =
    TBFOperatorOptionLookThroughSigns | TBFOperatorOptionEndIsOperand | TBFOperatorOptionLookThroughWords;

} // namespace

TCWordOperator TCWordOperator::wordOperatorOfType(int32_t type, std::u16string_view word) {
    const auto* kind =
        std::find_if(std::begin(kinds), std::end(kinds), [&](const Kind& each) { return each.type == type; });
    if (kind == std::end(kinds)) {
        TBFErrorLog("Unexpected type %d", type);
        kind = &unknownKind;
    }
    const TBF::Ref<TBF::WordOperator> op =
        TBF::WordOperator::create(TBF::String::create(word), TBFOperatorNotationInfix,
                                  TBF::String::createWithUTF8(kind->expression), kind->precedence, options);
    op->setPreConditions({TBFOperatorConditionAfterOperandOrStart, false});
    op->setArgumentConditions(TBFArgumentConditionValueOrUnit);
    return TCWordOperator(op);
}

TCWordOperator::TCWordOperator(TBF::Ref<TBF::WordOperator> foundationOperator)
    : op(std::move(foundationOperator)) {}

TCWordOperator::TCWordOperator(const TCWordOperator&) = default;
TCWordOperator& TCWordOperator::operator=(const TCWordOperator&) = default;
TCWordOperator::~TCWordOperator() = default;
