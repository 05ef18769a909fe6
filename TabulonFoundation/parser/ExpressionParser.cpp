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
#include <vector>

namespace TBF {

Ref<ExpressionParser> ExpressionParser::create(Ref<FunctionList> functions, Ref<VariableList> variables,
                                               Ref<WordOperatorList> wordOperators,
                                               Ref<UnitCollection> units) {
    return make<ExpressionParser>(std::move(functions), std::move(variables), std::move(wordOperators),
                                  std::move(units));
}

ExpressionParser::ExpressionParser(Ref<FunctionList> functionList, Ref<VariableList> variableList,
                                   Ref<WordOperatorList> wordOperatorList,
                                   Ref<UnitCollection> unitCollection) noexcept
    : functions(std::move(functionList))
    , variables(std::move(variableList))
    , wordOperators(std::move(wordOperatorList))
    , units(std::move(unitCollection)) {}

ExpressionParser::~ExpressionParser() = default;

Ref<ParsedExpression> ExpressionParser::parse(Expression* expression) const {
    if (!expression) return nullptr;
    const auto tokenized = ExpressionTokenizer::create(kTBFLocaleDefault)->tokenize(expression);
    return tokenized ? parse(*tokenized) : nullptr;
}

Ref<ParsedExpression> ExpressionParser::parse(const TokenizedExpression& tokenizedExpression,
                                              int32_t lineIndex) const {
    const Ref<Namespace> names = Namespace::create();
    names->setFunctionList(functions);
    names->setVariableList(variables);
    names->setWordOperatorList(wordOperators);
    names->setUnitCollection(units);

    const Ref<ContextualAnalyzer> analyzer = ContextualAnalyzer::create();
    analyzer->setNamespace(names);
    ExpressionTokenList tokens = analyzer->analyzeForReading(tokenizedExpression, lineIndex);
    ParseResult result = parseExpressionTokens(tokens);
    return ParsedExpression::create(std::move(tokens), std::move(result.tree));
}

} // namespace TBF
