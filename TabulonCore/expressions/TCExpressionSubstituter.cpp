#include "expressions/TCExpressionSubstituter.h"

const std::shared_ptr<TCExpressionSubstituter>& TCExpressionSubstituter::defaultSubstituter() {
    static const auto shared = std::make_shared<TCExpressionSubstituter>();
    return shared;
}

// Without patterns every text stays as it is.
std::shared_ptr<const TCExpressionMappings>
TCExpressionSubstituter::applySubstitutionsToMutableString(std::u16string&) const {
    static const auto identity = std::make_shared<const TCExpressionMappings>();
    return identity;
}
