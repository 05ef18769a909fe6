#include "analysis/passes/RecognizeImportantWords.h"

#include "analysis/SpecialWords.h"

namespace TBF {

void pre_pass_5a_recognize_important_word_types_crawler(PassContext& context) {
    crawlGroups(context.root(), [&context](EPExpressionTreeNode& parent) {
        for (const Ref<EPExpressionTreeNode>& node : parent.children()) {
            if (!node->is(TBFTokenTypeWord) || !node->isMutable()) continue;
            const SpecialWord* const special = findSpecialWord(node->text());
            if (!special) continue;
            node->setTypes(special->tokenType, special->tokenSubType);
            if (special->operatorOptions != TBFOperatorOptionsNone) {
                node->setOperatorOptions(special->operatorOptions);
                context.add(LineTraitCheckedOperators);
            }
            if (special->type == TBFSpecialWordTypeUnitConversion) context.add(LineTraitConversions);
            if (special->type == TBFSpecialWordTypeFactorial) context.add(LineTraitFactorials);
        }
    });
}

} // namespace TBF
