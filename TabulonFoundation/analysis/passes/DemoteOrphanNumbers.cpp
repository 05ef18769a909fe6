#include "analysis/passes/DemoteOrphanNumbers.h"

namespace TBF {

namespace {

// Reads the children of one group from left to right and demotes values on the way.
class OrphanSearch {
public:
    // True if the node made an earlier value a word.
    bool read(EPExpressionTreeNode& node) {
        switch (node.type()) {
        case TBFTokenTypeNumber:
        case TBFTokenTypeVariable:
            return readValue(node);
        case TBFTokenTypeOperator:
            readOperator(node);
            break;
        case TBFTokenTypeFunction:
            seeOperator(true);
            break;
        case TBFTokenTypeGroup:
        case TBFTokenTypeSeparator:
        case TBFTokenTypeEquals:
            *this = OrphanSearch();
            break;
        case TBFTokenTypeUnit:
            if (wordSeen) break;
            candidate = nullptr;
            afterNumber = false;
            break;
        case TBFTokenTypeWord:
            wordSeen = true;
            break;
        default:
            break;
        }
        return false;
    }

private:
    bool readValue(EPExpressionTreeNode& value) {
        const bool isNumber = value.is(TBFTokenTypeNumber);
        // A variable right behind a number is its factor.
        const bool isFactor = !isNumber && afterNumber;
        const bool demotes = !isFactor && candidate && !operatorSeen && candidate->isMutable();
        if (demotes) {
            candidate->setTypes(TBFTokenTypeWord, TBFTokenSubTypeNone);
            candidate->setMutable(false);
        }
        candidate = &value;
        operatorSeen = false;
        wordSeen = false;
        afterNumber = isNumber;
        return demotes;
    }

    void readOperator(const EPExpressionTreeNode& node) {
        const bool isSign =
            node.isOperator(TBFTokenSubTypeUnaryPlus) || node.isOperator(TBFTokenSubTypeUnaryMinus);
        seeOperator(!isSign);
    }

    void seeOperator(bool protectsCandidate) {
        if (protectsCandidate) operatorSeen = true;
        afterNumber = false;
        wordSeen = false;
    }

    EPExpressionTreeNode* candidate = nullptr; // the last value, as long as it may turn out an orphan
    bool operatorSeen = false;                 // between two values, or behind the first one
    bool afterNumber = false;
    bool wordSeen = false;
};

} // namespace

void pass_demote_orphan_numbers_crawler(PassContext& context) {
    crawlGroups(context.root(), [&context](EPExpressionTreeNode& parent) {
        OrphanSearch search;
        for (const Ref<EPExpressionTreeNode>& node : parent.children()) {
            if (search.read(*node)) context.add(LineTraitWords);
        }
    });
}

} // namespace TBF
