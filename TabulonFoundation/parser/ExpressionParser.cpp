#include "parser/ExpressionParser.h"

#include "analysis/ContextualAnalyzer.h"
#include "analysis/Expression.h"
#include "analysis/ExpressionTokenizer.h"
#include "names/Namespace.h"
#include "names/functions/FunctionList.h"
#include "names/variables/VariableList.h"
#include "names/wordoperators/WordOperatorList.h"
#include "parser/ParsedExpression.h"
#include "parser/ParserImpl.h"
#include "units/UnitCollection.h"

#include <utility>

namespace TBF {

Ref<ExpressionParser> ExpressionParser::create(Ref<FunctionList> functions, Ref<VariableList> variables,
                                               Ref<WordOperatorList> wordOperators,
                                               Ref<UnitCollection> units) {
    return create(Namespace::create(std::move(functions), std::move(variables), std::move(wordOperators),
                                    std::move(units)));
}

Ref<ExpressionParser> ExpressionParser::create(Ref<Namespace> names) {
    return make<ExpressionParser>(std::move(names));
}

ExpressionParser::ExpressionParser(Ref<Namespace> names) noexcept
    : space(std::move(names)) {}

ExpressionParser::~ExpressionParser() = default;

Ref<ParsedExpression> ExpressionParser::parse(Expression* expression) const {
    if (!expression) return nullptr;
    const auto tokenized = ExpressionTokenizer::create(kTBFLocaleDefault)->tokenize(expression);
    return tokenized ? parse(*tokenized) : nullptr;
}

Ref<ParsedExpression> ExpressionParser::parse(const TokenizedExpression& tokenizedExpression,
                                              int32_t lineIndex) const {
    const Ref<ContextualAnalyzer> analyzer = ContextualAnalyzer::create();
    analyzer->setNamespace(space);
    return parse(analyzer->analyzeForReading(tokenizedExpression, lineIndex));
}

Ref<ParsedExpression> ExpressionParser::parse(ExpressionTokenList analyzedTokens) {
    ParseResult result = parseExpressionTokens(analyzedTokens);
    return ParsedExpression::create(std::move(analyzedTokens), std::move(result.tree));
}

} // namespace TBF
