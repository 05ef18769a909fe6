#pragma once

// The display tokens of an expression: what an editor colours, an exporter writes, and the tracking of
// references reads. They are made when asked for, with the names that are known then, and made again when
// the list of variables has changed since. Used by one thread at a time.

#include "analysis/ExpressionTokenList.h"
#include "expressions/TCExpressionToken.h"
#include "runtime/Ref.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

class TCExpression;
class TCUnitCollection;
class TCVariableList;
class TCWordOperatorList;

class TCTokenizedExpression {
public:
    // An expression that is gone has no tokens.
    explicit TCTokenizedExpression(std::weak_ptr<TCExpression> expression);
    ~TCTokenizedExpression();

    // Tokenizes if need be. Borrowed until the next change.
    const TCExpressionTokens& tokens();

    // The analyzed foundation tokens behind them, in the substituted text.
    const TBF::ExpressionTokenList& tbfExpressionTokens();

    // A different list drops the tokens. All may be null.
    void setVariableList(std::shared_ptr<TCVariableList> variables);
    void setUnitManager(std::shared_ptr<TCUnitCollection> units);
    void setWordOperators(std::shared_ptr<TCWordOperatorList> words);
    void setEnableCommentParsing(bool enable) { parsesComments = enable; }

    // Drops the tokens.
    void setNeedsRefresh() { setNeedsTokenizing(); }
    void setNeedsTokenizing();

    // False as well when the list of variables has changed since.
    bool isTokenized() const;
    void tokenize();

private:
    TCExpressionTokens parseTBFExpressionTokens(const TCExpression& expression) const;

    std::weak_ptr<TCExpression> source;
    std::shared_ptr<TCVariableList> variableList;
    uint64_t variableListStateIndicator = 0; // at which the tokens were made
    std::shared_ptr<TCUnitCollection> unitManager;
    std::shared_ptr<TCWordOperatorList> wordOperators;
    bool parsesComments = true;
    std::optional<TCExpressionTokens> tokenArray; // none when stale
    TBF::ExpressionTokenList expressionTokens;
};
