#include "environment/TCWordOperatorList.h"

#include "environment/TCEnvironment.h"
#include "environment/TCWordOperator.h"
#include "names/wordoperators/WordOperatorList.h"

namespace {

enum Notation : int32_t { prefix = 1, postfix = 2, infix = 3 };

// What the stored conditions of an operator are.
struct Conditions {
    uint32_t pre = 0;
    bool preMatchAny = true;
    uint32_t post = 0;
    bool postMatchAny = true;
};

constexpr Conditions none = {};
constexpr Conditions afterOperand = {9, false, 0, true};

struct Row {
    const char* word;
    Notation notation;
    const char* expression;
    int32_t precedence; // a TBFOperatorPrecedence class
    uint32_t options;
    uint32_t argumentConditions;
    Conditions conditions;
};

// Words with an underscore in front are written by the engine itself, for the phrases that it recognizes.
constexpr Row table[] = {
    {"from", infix, "(${2})-(${1})", 2, 1, 30, afterOperand},
    {"into", infix, "${2}/${1}", 7, 1, 30, afterOperand},
    {"x", infix, "(${2})*(${1})", 6, 21, 31, none},
    {"per", infix, "${1}/${2}", 7, 16, 31, none},
    {"_as_percent", postfix, "(${1}*100)%", 2, 1, 0, none},
    {"_as_percent_of", infix, "(${1}/${2}*100)%", 8, 1, 0, none},
    {"_as_percent_off", infix, "(100-(${1})/${2}*100)%", 8, 1, 0, none},
    {"_as_percent_on", infix, "((${1}/${2}-1)*100)%", 8, 1, 0, none},
    {"_percent_of", infix, "((${1})%*${2})", 8, 1, 0, none},
    {"_percent_off_what_is", infix, "(${2}/(1-(${1})%))", 8, 1, 0, none},
    {"_percent_on_what_is", infix, "(${2}/((${1})%+1))", 8, 1, 0, none},
    {"_percent_of_what_is", infix, "(${2}/(${1}%))", 8, 1, 0, none},
    {"_percent_off", infix, "(${2}*(1 - (${1})%))", 8, 1, 0, none},
    {"_percent_on", infix, "(${2}*(1 + (${1})%))", 8, 1, 0, none},
    {"_as_percent_increase_of", infix, "((${1}/(${2})-1)*100)%", 8, 1, 0, none},
    {"_as_percent_decrease_of", infix, "((1-(${1})/${2})*100)%", 8, 1, 0, none},
    {"_reverse_as_percent_off", infix, "(100-(${2})/${1}*100)%", 8, 1, 0, none},
    {"_reverse_as_percent_on", infix, "((${2}/${1}-1)*100)%", 8, 1, 0, none},
    {"_reverse_percent_off_what_is", infix, "(${1}/(1-(${2})%))", 8, 1, 0, none},
    {"_reverse_percent_on_what_is", infix, "(${1}/((${2})%+1))", 8, 1, 0, none},
    {"_reverse_percent_of_what_is", infix, "(${1}/${2}*100)", 8, 1, 0, none},
    {"mod", infix, "(${1})__mod(${2})", 2, 1, 30, afterOperand},
    {"lsl", infix, "_lsl(${1};${2})", 2, 0, 30, afterOperand},
    {"lsr", infix, "_lsr(${1};${2})", 2, 0, 30, afterOperand},
    {"_bit_or", infix, "_bitwise_or(${1};${2})", 2, 0, 30, afterOperand},
    {"_bit_and", infix, "_bitwise_and(${1};${2})", 2, 0, 30, afterOperand},
    {"xor", infix, "_bitwise_xor(${1};${2})", 2, 0, 30, afterOperand},
    {"_bit_not", prefix, "_bitwise_not(${1})", 2, 0, 0, none},
};

static_assert(std::size(table) == 28);

} // namespace

TCWordOperatorList::TCWordOperatorList()
    : list(TBF::WordOperatorList::create()) {}

TCWordOperatorList::TCWordOperatorList(TBF::Ref<TBF::WordOperatorList> foundationList)
    : list(std::move(foundationList)) {}

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
