#pragma once

// The analysed form of a line: what kind of line it is, the whole text, and the part that is evaluated, each
// with its tokens. `TCLine` makes one of the three kinds at each change of its text; a
// `TCLineExpressionParser` gives it the parsed forms. Tokens and parsed forms can be dropped: they take many
// times the memory of the text, and are made again when somebody asks. Used on the document's thread.

#include <cstdint>
#include <memory>

class TCEnvironment;
class TCExpression;
class TCLineExpressionParser;
class TCLineVariableDeclaration;
class TCParsedExpression;
class TCSimpleTokenizedExpression;

enum TCExpressionType : int32_t {
    TCExpressionTypeNormal = 1,
    TCExpressionTypeVariableDeclaration = 2,
    TCExpressionTypePlainText = 3, // never evaluated
};

class TCAbstractLineExpression {
public:
    virtual ~TCAbstractLineExpression();
    TCAbstractLineExpression(const TCAbstractLineExpression&) = delete;
    TCAbstractLineExpression& operator=(const TCAbstractLineExpression&) = delete;

    int32_t expressionType() const { return type; } // a TCExpressionType

    // The whole line. The tokens are null for a line that is plain text by its making.
    const std::shared_ptr<TCExpression>& expression() const { return whole; }
    std::shared_ptr<TCSimpleTokenizedExpression> tokenizedExpression() const;

    // What is evaluated; null for none.
    const std::shared_ptr<TCExpression>& evaluableExpression() const { return evaluable; }
    void setEvaluableExpression(std::shared_ptr<TCExpression> expression);
    std::shared_ptr<TCSimpleTokenizedExpression> tokenizedEvaluableExpression() const;
    void setTokenizedEvaluableExpression(std::shared_ptr<TCSimpleTokenizedExpression> tokens);

    // The tokens for display: of what is evaluated, in the ranges of that expression, and of the whole line.
    // Null until the line is parsed.
    std::shared_ptr<TCParsedExpression> evaluableParsedExpression() const;
    void setEvaluableParsedExpression(std::shared_ptr<TCParsedExpression> parsed);
    std::shared_ptr<TCParsedExpression> parsedExpression() const;
    void setParsedExpression(std::shared_ptr<TCParsedExpression> parsed);

    // Null but for a declaration.
    virtual std::shared_ptr<TCLineVariableDeclaration> variableDeclaration() const { return nullptr; }

    // Drops the parsed forms; the next parse gives them again.
    void reset();

    // Has `parser` parse this as soon as a parsed form is asked for, and again after they were dropped.
    void parseOnDemand(std::shared_ptr<TCLineExpressionParser> parser);
    bool isParsed() const;

    // The names of that parser; null for none.
    std::shared_ptr<TCEnvironment> names() const;

    // Gives back what can be made again; the second leaves the substituted texts, which are needed again
    // before the line is evaluated.
    bool hasForms() const { return forms != nullptr; }
    void dropForms();
    void dropTokens();

    // Has `parser` do what it does with a line of this kind.
    virtual void process(TCLineExpressionParser& parser);

protected:
    TCAbstractLineExpression(TCExpressionType expressionType, std::shared_ptr<TCExpression> expression,
                             std::shared_ptr<TCSimpleTokenizedExpression> tokenizedExpression);

    // Tokens that weren't given are made when somebody asks for them.
    void tokenizeOnDemand() { hasTokens = true; }

private:
    struct Forms;
    Forms& madeForms() const;
    void parseNow() const;

    std::shared_ptr<TCExpression> whole;
    std::shared_ptr<TCExpression> evaluable;
    std::shared_ptr<TCLineExpressionParser> formMaker; // null for forms that were given
    mutable std::unique_ptr<Forms> forms;              // null until asked for
    TCExpressionType type;
    bool hasTokens = false;      // the whole line has tokens, made or not
    bool waitsForParser = false; // `formMaker` makes the parsed forms
};
