#include "names/wordoperators/WordOperator.h"

namespace TBF {

Ref<WordOperator> WordOperator::create(Ref<String> word, int32_t argumentType, Ref<String> expression,
                                       int32_t precedence, uint32_t options) {
    return make<WordOperator>(std::move(word), argumentType, std::move(expression), precedence, options);
}

WordOperator::WordOperator(Ref<String> word, int32_t argumentType, Ref<String> expression,
                           int32_t precedenceClass, uint32_t options)
    : name(word ? std::move(word) : String::empty())
    , templateText(expression ? std::move(expression) : String::empty())
    , notation(argumentType)
    , precedence(precedenceClass)
    , optionFlags(options) {}

WordOperator::~WordOperator() = default;

bool WordOperator::preConditionsMatch(uint32_t conditions) const {
    if (before.flags == 0) return true;
    const uint32_t shared = before.flags & conditions;
    return before.matchAny ? shared != 0 : shared == before.flags;
}

bool WordOperator::postConditionsMatch(uint32_t conditions) const {
    return !after.matchAny || (after.flags & conditions) != 0;
}

void WordOperator::setRepresentedTokenTypes(int32_t type, int32_t subType) {
    shownType = type;
    shownSubType = subType;
}

} // namespace TBF
