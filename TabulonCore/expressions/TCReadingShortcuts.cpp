#include "expressions/TCReadingShortcuts.h"

#include "expressions/TCExpression.h"
#include "expressions/TCExpressionMappings.h"

bool TCReadingShortcuts::showsWhatItSays(const TCExpression& expression) {
    if (!areEnabled()) return false;
    const std::u16string& text = expression.stringForEvaluation();
    const auto& mappings = expression.expressionMappings();
    return (!mappings || mappings->mappings().empty()) && expression.originalString() == text &&
           !mayReferToLines(text);
}
