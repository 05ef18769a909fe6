#include "environment/TCWordOperatorList.h"

#include "analysis/TBFOperatorOptions.h"
#include "environment/TCEnvironment.h"
#include "environment/TCWordOperator.h"
#include "names/wordoperators/WordOperatorList.h"
#include "numbers/TBFOperatorType.h"

#include <utility>

namespace {

// What the stored conditions of an operator are.
struct Conditions {
    uint32_t pre = 0;
    bool preMatchAny = true;
    uint32_t post = 0;
    bool postMatchAny = true;
};

constexpr Conditions none = {};
constexpr Conditions afterOperand = {TBFOperatorConditionAfterOperand, false, TBFOperatorConditionNone, true};

// Short, so that the table can be read in columns.
constexpr auto prefix = TBFOperatorNotationPrefix;
constexpr auto postfix = TBFOperatorNotationPostfix;
constexpr auto infix = TBFOperatorNotationInfix;
constexpr auto sum = TBFOperatorPrecedenceAddSubtract;
constexpr auto product = TBFOperatorPrecedenceMultiply;
constexpr auto quotient = TBFOperatorPrecedenceDivide;
constexpr auto percentage = TBFOperatorPrecedencePercentageWordOperator;
constexpr uint32_t noOptions = 0;
constexpr uint32_t reserved = TBFOperatorOptionReserved1;
constexpr uint32_t acrossWords = TBFOperatorOptionLookThroughWords;
constexpr uint32_t acrossWordsAndSigns = reserved | acrossWords | TBFOperatorOptionLookThroughSigns;
constexpr uint32_t unchecked = 0; // the operator stays one whatever stands beside it
constexpr uint32_t value = TBFArgumentConditionValue;
constexpr uint32_t valueOrUnit = TBFArgumentConditionValueOrUnit;

struct Row {
    const char* word;
    TBFOperatorNotation notation;
    const char* expression;
    TBFOperatorPrecedence precedence;
    uint32_t options;
    uint32_t argumentConditions;
    Conditions conditions;
};

// Words with an underscore in front are written by the engine itself, for the phrases that it recognizes.
constexpr Row table[] = {
    {"from", infix, "(${2})-(${1})", sum, reserved, value, afterOperand},
    {"into", infix, "${2}/${1}", quotient, reserved, value, afterOperand},
    {"x", infix, "(${2})*(${1})", product, acrossWordsAndSigns, valueOrUnit, none},
    {"per", infix, "${1}/${2}", quotient, acrossWords, valueOrUnit, none},
    {"_as_percent", postfix, "(${1}*100)%", sum, reserved, unchecked, none},
    {"_as_percent_of", infix, "(${1}/${2}*100)%", percentage, reserved, unchecked, none},
    {"_as_percent_off", infix, "(100-(${1})/${2}*100)%", percentage, reserved, unchecked, none},
    {"_as_percent_on", infix, "((${1}/${2}-1)*100)%", percentage, reserved, unchecked, none},
    {"_percent_of", infix, "((${1})%*${2})", percentage, reserved, unchecked, none},
    {"_percent_off_what_is", infix, "(${2}/(1-(${1})%))", percentage, reserved, unchecked, none},
    {"_percent_on_what_is", infix, "(${2}/((${1})%+1))", percentage, reserved, unchecked, none},
    {"_percent_of_what_is", infix, "(${2}/(${1}%))", percentage, reserved, unchecked, none},
    {"_percent_off", infix, "(${2}*(1 - (${1})%))", percentage, reserved, unchecked, none},
    {"_percent_on", infix, "(${2}*(1 + (${1})%))", percentage, reserved, unchecked, none},
    {"_as_percent_increase_of", infix, "((${1}/(${2})-1)*100)%", percentage, reserved, unchecked, none},
    {"_as_percent_decrease_of", infix, "((1-(${1})/${2})*100)%", percentage, reserved, unchecked, none},
    {"_reverse_as_percent_off", infix, "(100-(${2})/${1}*100)%", percentage, reserved, unchecked, none},
    {"_reverse_as_percent_on", infix, "((${2}/${1}-1)*100)%", percentage, reserved, unchecked, none},
    {"_reverse_percent_off_what_is", infix, "(${1}/(1-(${2})%))", percentage, reserved, unchecked, none},
    {"_reverse_percent_on_what_is", infix, "(${1}/((${2})%+1))", percentage, reserved, unchecked, none},
    {"_reverse_percent_of_what_is", infix, "(${1}/${2}*100)", percentage, reserved, unchecked, none},
    {"mod", infix, "(${1})__mod(${2})", sum, reserved, value, afterOperand},
    {"lsl", infix, "_lsl(${1};${2})", sum, noOptions, value, afterOperand},
    {"lsr", infix, "_lsr(${1};${2})", sum, noOptions, value, afterOperand},
    {"_bit_or", infix, "_bitwise_or(${1};${2})", sum, noOptions, value, afterOperand},
    {"_bit_and", infix, "_bitwise_and(${1};${2})", sum, noOptions, value, afterOperand},
    {"xor", infix, "_bitwise_xor(${1};${2})", sum, noOptions, value, afterOperand},
    {"_bit_not", prefix, "_bitwise_not(${1})", sum, noOptions, unchecked, none},
};

static_assert(std::size(table) == 28);

} // namespace

TCWordOperatorList::TCWordOperatorList()
    : TCWordOperatorList(TBF::WordOperatorList::create()) {}

// Here, once, since nobody may write a list that others read.
TCWordOperatorList::TCWordOperatorList(TBF::Ref<TBF::WordOperatorList> foundationList)
    : list(std::move(foundationList)) {
    if (list) list->setAuxiliaryList(&TBF::WordOperatorList::shared());
}

TCWordOperatorList::~TCWordOperatorList() = default;

std::shared_ptr<TCWordOperatorList> TCWordOperatorList::listWithStandardWordOperators() {
    auto words = std::make_shared<TCWordOperatorList>();
    for (const Row& row : table) {
        const TBF::Ref<TBF::WordOperator> op = TBF::WordOperator::create(
            TBF::String::createWithUTF8(row.word), row.notation, TBF::String::createWithUTF8(row.expression),
            row.precedence, row.options);
        op->setPreConditions({row.conditions.pre, row.conditions.preMatchAny});
        op->setPostConditions({row.conditions.post, row.conditions.postMatchAny});
        op->setArgumentConditions(row.argumentConditions);
        words->list->add(op);
    }
    return words;
}

std::shared_ptr<TCWordOperatorList> TCWordOperatorList::sharedList() {
    const std::shared_ptr<TCEnvironment> environment = TCEnvironment::current();
    return environment ? environment->wordOperators() : nullptr;
}

void TCWordOperatorList::addWordOperator(const TCWordOperator& op) {
    list->add(TBF::retain(op.tbfWordOperator()));
}
