#pragma once

// Gives the analysed form of a line its parsed forms, with the names of an environment. The form calls back
// the operation that fits its kind. Used on the document's thread.

#include "expressions/TCExpressionParser.h"

#include <memory>

class TCAbstractLineExpression;
class TCEnvironment;

class TCLineExpressionParser {
public:
    // The environment may be null.
    explicit TCLineExpressionParser(std::shared_ptr<TCEnvironment> environment = nullptr);
    ~TCLineExpressionParser();

    void parseLineExpression(TCAbstractLineExpression& lineExpression);

    // For the three kinds of lines. Only a declaration's name is read here: its tokens are those of the line
    // up to the value, then those of the value, moved to their place.
    void processNormalLineExpression(TCAbstractLineExpression& lineExpression);
    void processVarDeclLineExpression(TCAbstractLineExpression& lineExpression);
    void processPlainTextLineExpression(TCAbstractLineExpression& lineExpression);

    const std::shared_ptr<TCExpressionParser>& parser() const { return expressionParser; }
    void setParser(std::shared_ptr<TCExpressionParser> parser); // not null
    const std::shared_ptr<TCEnvironment>& environment() const { return names; }

private:
    std::shared_ptr<TCEnvironment> names;
    std::shared_ptr<TCExpressionParser> expressionParser;
};
