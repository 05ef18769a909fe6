#include "parser/ExpressionNodeTreePrinter.h"

#include "names/functions/Function.h"
#include "names/variables/ScopedVariable.h"
#include "names/wordoperators/WordOperator.h"
#include "numbers/Number.h"
#include "numbers/TBFMAPMExtensions.h"
#include "parser/OperatorTables.h"
#include "runtime/TBFLog.h"
#include "units/UnitContainer.h"
#include "units/UnitStringFormatter.h"

#include <string_view>
#include <vector>

namespace TBF {

namespace {

std::string numberText(const Number* number) {
    if (!number) return {};
    switch (number->specialType()) {
    case TBFNumberSpecialTypeInfinity:
        return "inf";
    case TBFNumberSpecialTypeNegativeInfinity:
        return "-inf";
    case TBFNumberSpecialTypeNaN:
        return "NaN";
    default:
        break;
    }
    std::string text = TBF_mapm_to_fitted_string(number->mapmRef(), 100);
    return number->isPercent() ? text + '%' : text;
}

std::string unitText(const UnitContainer* unit) {
    const Ref<String> name = UnitStringFormatter::create()->formattedString(unit, TBFUnitFormatTypeLongName,
                                                                            TBFUnitStringFormSingular);
    return "{unit:" + (name ? name->utf8() : std::string()) + '}';
}

std::string operatorText(const ExpressionNode& node) {
    if (node.type() == TBFExpressionNodeTypeWordOperator) {
        return '`' + (node.wordOperator() ? node.wordOperator()->word().utf8() : std::string()) + '`';
    }
    switch (node.operatorType()) {
    case TBFOperatorTypeUnitPostfix:
    case TBFOperatorTypeUnitPrefix:
        return unitText(node.unitContainer());
    default:
        return std::string(operatorPrintedForm(node.operatorType()));
    }
}

// Keeps what is still to be written on a stack of nodes and texts, so that trees of any depth print.
class Writer {
public:
    std::string write(const ExpressionNode& root) {
        pending.push_back({&root, {}});
        while (!pending.empty()) {
            const Piece piece = std::move(pending.back());
            pending.pop_back();
            if (piece.node) {
                writeNode(*piece.node);
            } else {
                text += piece.text;
            }
        }
        return std::move(text);
    }

private:
    struct Piece {
        const ExpressionNode* node; // null for a text
        std::string text;
    };

    void later(const ExpressionNode* node) {
        if (node) pending.push_back({node, {}});
    }
    void later(std::string piece) { pending.push_back({nullptr, std::move(piece)}); }

    // Writes what stands before the first child; the rest goes on the stack, the last first.
    void writeNode(const ExpressionNode& node) {
        switch (node.type()) {
        case TBFExpressionNodeTypeOperand:
            text += numberText(node.number());
            if (node.unitContainer()) text += unitText(node.unitContainer());
            break;
        case TBFExpressionNodeTypeOperator:
        case TBFExpressionNodeTypeWordOperator:
            writeOperator(node);
            break;
        case TBFExpressionNodeTypeList:
            writeList(node.children());
            break;
        case TBFExpressionNodeTypeFunction:
            if (node.function()) text += node.function()->lowercaseName().utf8();
            text += '(';
            later(")");
            later(node.functionArguments());
            break;
        case TBFExpressionNodeTypeVariable:
            text += "{variable:";
            if (node.scopedVariable() && node.scopedVariable()->variable().name()) {
                text += node.scopedVariable()->variable().name()->utf8();
            }
            text += '}';
            break;
        case TBFExpressionNodeTypeOperatorUnit:
            later(unitText(node.unitContainer()));
            later(node.onlyChild());
            break;
        default:
            TBFErrorLog("Unexpected node");
            break;
        }
    }

    void writeOperator(const ExpressionNode& node) {
        const ExpressionNode::Children children = node.children();
        text += '(';
        later(")");
        switch (children.size()) {
        case 1:
            text += operatorText(node);
            later(children[0].get());
            break;
        case 2:
            later(children[1].get());
            later(operatorText(node));
            later(children[0].get());
            break;
        default:
            TBFErrorLog("Unexpected child count");
            break;
        }
    }

    void writeList(ExpressionNode::Children elements) {
        text += '[';
        later("]");
        for (std::size_t i = elements.size(); i > 0; --i) {
            later(elements[i - 1].get());
            if (i > 1) later(";");
        }
    }

    std::string text;
    std::vector<Piece> pending;
};

} // namespace

Ref<ExpressionNodeTreePrinter> ExpressionNodeTreePrinter::create(Ref<ExpressionNode> root) {
    return make<ExpressionNodeTreePrinter>(std::move(root));
}

std::string ExpressionNodeTreePrinter::string() const {
    return rootNode ? Writer().write(*rootNode) : std::string();
}

} // namespace TBF
