#pragma once

// A line that is never evaluated, by its making or because of a misused equals sign. Used on the document's
// thread.

#include "expressions/TCAbstractLineExpression.h"

class TCPlainTextLineExpression final : public TCAbstractLineExpression {
public:
    TCPlainTextLineExpression(std::shared_ptr<TCExpression> expression,
                              std::shared_ptr<TCSimpleTokenizedExpression> tokenizedExpression);

    void process(TCLineExpressionParser& parser) override;
};
