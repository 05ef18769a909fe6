#pragma once

// A line that declares a variable: what follows the equals sign is evaluated, and the whole line is shown.
// Used on the document's thread.

#include "expressions/TCAbstractLineExpression.h"

class TCVarDeclLineExpression final : public TCAbstractLineExpression {
public:
    // The declaration isn't null; its value may be.
    TCVarDeclLineExpression(std::shared_ptr<TCExpression> expression,
                            std::shared_ptr<TCSimpleTokenizedExpression> tokenizedExpression,
                            std::shared_ptr<TCLineVariableDeclaration> variableDeclaration);

    std::shared_ptr<TCLineVariableDeclaration> variableDeclaration() const override { return declaration; }
    void process(TCLineExpressionParser& parser) override;

private:
    std::shared_ptr<TCLineVariableDeclaration> declaration;
};
