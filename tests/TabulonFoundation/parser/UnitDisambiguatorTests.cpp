#include "parser/UnitDisambiguator.h"

#include "analysis/ExpressionToken.h"
#include "numbers/Number.h"
#include "parser/ExpressionNode.h"
#include "parser/ExpressionTree.h"
#include "parser/UnitDisambiguationMap.h"
#include "units/AmbiguousUnit.h"

#include "units/UnitVocabulary.h"

#include <gtest/gtest.h>

#include <vector>

using namespace UnitTesting;
using TBF::adopt;
using TBF::AmbiguousUnit;
using TBF::ExpressionNode;
using TBF::ExpressionToken;
using TBF::ExpressionTokenList;
using TBF::ExpressionTree;
using TBF::Ref;
using TBF::UnitContainer;

namespace {

// Reads a tree in prefix notation, as "+ ft / m s": operators with two operands, units, "x" for a number
// without one, and two words with two meanings: "m" a metre or a minute, "h" an hour or a newton, the one
// named first preferred.
class Reader {
public:
    explicit Reader(const std::string& text)
        : words(text) {}

    Ref<ExpressionTree> tree() {
        Ref<ExpressionNode> root = node();
        return ExpressionTree::create(std::move(root));
    }

    // The meaning found for each ambiguous word, in order of the text.
    std::string meanings() const {
        std::string text;
        for (const ExpressionNode* const ambiguous : ambiguousNodes) {
            if (!text.empty()) text += ' ';
            text += ambiguous->unitContainer() ? ambiguous->unitContainer()->identifier() : "none";
        }
        return text;
    }

private:
    Ref<ExpressionNode> node() {
        std::string word;
        words >> word;
        static const std::map<std::string, TBFOperatorType> operators = {{"+", TBFOperatorTypeAdd},
                                                                         {"-", TBFOperatorTypeSubtract},
                                                                         {"*", TBFOperatorTypeMultiply},
                                                                         {"/", TBFOperatorTypeDivide}};
        if (const auto found = operators.find(word); found != operators.end()) {
            const Ref<ExpressionNode> left = node();
            const Ref<ExpressionNode> right = node();
            return TBFOperatorExpressionNode::create(found->second, left, right);
        }
        return operand(word);
    }

    Ref<ExpressionNode> operand(const std::string& word) {
        if (word == "m" || word == "h") {
            auto candidates = word == "m" ? std::vector{candidate("metre", "m"), candidate("minute", "min")}
                                          : std::vector{candidate("hour", "h"), candidate("newton", "N")};
            const auto result = TBFOperandExpressionNode::create(
                TBF::Number::one(), {}, AmbiguousUnit::create(std::move(candidates)));
            const auto text = TBF::String::createWithUTF8(word);
            tokens.push_back(ExpressionToken::create(text.get(), TBFTokenTypeWord, TBFTokenSubType{}));
            result->setExpressionToken(tokens.back().get());
            result->setSubtreeHasAmbiguousUnit(true);
            ambiguousNodes.push_back(result.get());
            return result;
        }
        UnitContainer* const unit = word == "x" ? nullptr : Vocabulary::shared().container(word);
        const auto result = TBFOperandExpressionNode::create(TBF::Number::one(), TBF::retain(unit), {});
        result->setUnitTypeBitmap(TBFUnitTypeBitmapMakeWithUnitContainer(unit));
        return result;
    }

    // Named otherwise than the word, so that names decide nothing.
    static Ref<UnitContainer> candidate(const char* identifier, const char* symbol) {
        const auto container = UnitContainer::create(identifier, {});
        container->setUnitFraction(Vocabulary::shared().fraction(symbol));
        return container;
    }

    std::istringstream words;
    TBF::ExpressionTokenList tokens;
    std::vector<const ExpressionNode*> ambiguousNodes;
};

} // namespace

TEST(UnitDisambiguatorTests, theRestOfTheExpressionTellsWhichUnitIsMeant) {
    const struct {
        const char* tree;
        const char* expected;
        const char* reason;
    } cases[] = {
        {"m", "metre", "nothing is known, so the first one stays"},
        {"h", "hour", "nothing is known, so the first one stays"},
        {"+ ft m", "metre", "the other side of a sum has one type"},
        {"+ s m", "minute", "the other side of a sum has one type"},
        {"- m s", "minute", "on either side"},
        {"+ N h", "newton", "the other side of a sum has one type"},
        {"* s m", "minute", "a product says nothing, but the whole tree has a time"},
        {"/ m s", "metre", "what may be a length or a time over a time is a length"},
        {"/ s m", "minute", "not so for the divisor"},
        {"+ m * ft s", "metre", "two types on the other side decide nothing by themselves"},
        {"+ s * x m", "minute", "the sum of the grandparent counts"},
        {"+ s * x * x m", "minute", "further up only the types of the whole tree count"},
        {"* ft + s * x * x m", "metre", "so here the length that the tree holds too comes first"},
        {"* ft + s * x m", "minute", "and here the sum near by decides"},
        {"+ m m", "metre metre", "one choice doesn't help another"},
        {"* s + m h", "minute hour", "each is settled by itself"},
    };
    for (const auto& row : cases) {
        Reader reader(row.tree);
        const Ref<ExpressionTree> tree = reader.tree();
        TBFUnitDisambiguatorProcessExpressionTree(tree.get());
        EXPECT_EQ(reader.meanings(), row.expected) << row.tree << ": " << row.reason;
    }
    TBFUnitDisambiguatorProcessExpressionTree(nullptr);
}

TEST(UnitDisambiguatorTests, operatorsCarryTypesAndFlagsUp) {
    Reader reader("+ * ft x / m s");
    const Ref<ExpressionTree> tree = reader.tree();
    TBFUnitDisambiguatorProcessExpressionTree(tree.get());
    EXPECT_EQ(tree->root()->unitTypeBitmap(),
              TBFUnitTypeBitmapMake(TBFUnitTypeLength) | TBFUnitTypeBitmapMake(TBFUnitTypeTime));
    EXPECT_TRUE(tree->root()->subtreeHasAmbiguousUnit());
    EXPECT_FALSE(tree->root()->children()[0]->subtreeHasAmbiguousUnit());
}

TEST(UnitDisambiguationMapTests, anEntryIsFoundByAllThreeParts) {
    const TBFUnitTypeBitmap length = TBFUnitTypeBitmapMake(TBFUnitTypeLength);
    const TBFUnitTypeBitmap time = TBFUnitTypeBitmapMake(TBFUnitTypeTime);
    const auto& map = TBF::UnitDisambiguationMap::shared();
    int8_t index = 7;
    EXPECT_EQ(map.findDisambiguation(length | time, TBFOperatorTypeDivide, time, &index), TBFUnitTypeLength);
    EXPECT_EQ(index, 0);
    EXPECT_EQ(map.findDisambiguation(length | time, TBFOperatorTypeMultiply, time, nullptr), TBFUnitTypeNone);
    EXPECT_EQ(map.findDisambiguation(length, TBFOperatorTypeDivide, time, nullptr), TBFUnitTypeNone);
    EXPECT_EQ(map.findDisambiguation(length | time, TBFOperatorTypeDivide, length, nullptr), TBFUnitTypeNone);
}
