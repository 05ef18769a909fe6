#pragma once

// An ordinary line: all of it is evaluated. Used on the document's thread.

#include "expressions/TCAbstractLineExpression.h"

class TCNormalLineExpression final : public TCAbstractLineExpression {
public:
    TCNormalLineExpression(std::shared_ptr<TCExpression> expression,
                           std::shared_ptr<TCSimpleTokenizedExpression> tokenizedExpression);

    void process(TCLineExpressionParser& parser) override;
};
