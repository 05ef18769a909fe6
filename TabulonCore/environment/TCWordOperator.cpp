#include "environment/TCWordOperator.h"

#include "names/wordoperators/WordOperator.h"
#include "runtime/TBFLog.h"

#include <algorithm>

namespace {

struct Kind {
    int32_t type;
    const char* expression;
    int32_t precedence; // a TBFOperatorPrecedence class
};

constexpr Kind kinds[] = {
    {TCWordOperatorTypeAdd, "${1}+${2}", 2},
    {TCWordOperatorTypeSubtract, "(${1})-(${2})", 2},
    {TCWordOperatorTypeMultiply, "${1}*${2}", 6},
    {TCWordOperatorTypeDivide, "${1}/${2}", 7},
    {TCWordOperatorTypeReverseSubtract, "(${2})-(${1})", 2},
    {TCWordOperatorTypeReverseDivide, "${2}/${1}", 7},
};

constexpr Kind unknownKind = {0, "", 1};

constexpr int32_t infix = 3;
constexpr uint32_t options = 28;
constexpr uint32_t preConditions = 41;
constexpr uint32_t argumentConditions = 31;

} // namespace

TCWordOperator TCWordOperator::wordOperatorOfType(int32_t type, std::u16string_view word) {
    const auto* kind =
        std::find_if(std::begin(kinds), std::end(kinds), [&](const Kind& each) { return each.type == type; });
    if (kind == std::end(kinds)) {
        TBFErrorLog("Unexpected type %d", type);
        kind = &unknownKind;
    }
    const TBF::Ref<TBF::WordOperator> op =
        TBF::WordOperator::create(TBF::String::create(word), infix,
                                  TBF::String::createWithUTF8(kind->expression), kind->precedence, options);
    op->setPreConditions({preConditions, false});
    op->setArgumentConditions(argumentConditions);
    return TCWordOperator(op);
}

TCWordOperator::TCWordOperator(TBF::Ref<TBF::WordOperator> foundationOperator)
    : op(std::move(foundationOperator)) {}

TCWordOperator::TCWordOperator(const TCWordOperator&) = default;
TCWordOperator& TCWordOperator::operator=(const TCWordOperator&) = default;
TCWordOperator::~TCWordOperator() = default;
