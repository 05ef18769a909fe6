#include "expressions/TCLineReading.h"

#include "analysis/ContextualAnalyzer.h"
#include "analysis/Expression.h"
#include "analysis/ExpressionToken.h"
#include "analysis/ExpressionTokenizer.h"
#include "environment/TCEnvironment.h"
#include "environment/TCEvaluator.h"
#include "expressions/TCExpression.h"
#include "expressions/TCExpressionMappings.h"
#include "expressions/TCExpressionParser.h"
#include "expressions/TCExpressionSubstituter.h"
#include "expressions/TCExpressionTokenBuilder.h"
#include "expressions/TCLineExpressionParser.h"
#include "expressions/TCLineVariableDeclaration.h"
#include "expressions/TCNormalLineExpression.h"
#include "expressions/TCParsedExpression.h"
#include "expressions/TCPlainLineReferences.h"
#include "expressions/TCPlainTextLineExpression.h"
#include "expressions/TCReadingShortcuts.h"
#include "expressions/TCSimpleTokenizedExpression.h"
#include "expressions/TCVarDeclLineExpression.h"
#include "parser/ExpressionParser.h"
#include "parser/ParsedExpression.h"
#include "runtime/ObjectPool.h"

#include <string_view>
#include <utility>

namespace {

std::u16string_view trimmed(std::u16string_view text) {
    constexpr std::u16string_view whiteSpace =
        u" \t\n\v\f\r\u0085\u00A0\u1680\u2000\u2001\u2002\u2003\u2004\u2005\u2006\u2007"
        u"\u2008\u2009\u200A\u202F\u205F\u3000";
    const std::size_t first = text.find_first_not_of(whiteSpace);
    if (first == std::u16string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(whiteSpace) + 1 - first);
}

// The part of the range that lies inside of the text.
std::u16string_view part(std::u16string_view text, TCRange range) {
    const auto start = static_cast<std::size_t>(range.location);
    return start <= text.size() ? text.substr(start, static_cast<std::size_t>(range.length))
                                : std::u16string_view();
}

// The tokens are not handed on: they are made again for the lines that are shown.
std::shared_ptr<TCAbstractLineExpression>
declarationExpression(const std::shared_ptr<TCExpression>& expression,
                      const TCVariableDeclarationRecord& record) {
    const std::u16string_view text = *expression->originalString();
    std::shared_ptr<TCExpression> value;
    if (record.valueRange.length > 0)
        value = TBF::makeShared<TCExpression>(std::u16string(part(text, record.valueRange)),
                                              expression->locale());
    auto declaration = TBF::makeShared<TCLineVariableDeclaration>(
        record.equalsTokenIndex, record.nameRange, trimmed(part(text, record.nameRange)), std::move(value));
    return TBF::makeShared<TCVarDeclLineExpression>(expression, nullptr, std::move(declaration));
}

const TCExpressionSubstituter* defaultSubstituter() {
    return TCExpressionSubstituter::defaultSubstituter().get();
}

} // namespace

TCLineReading readLine(std::u16string text, TCSimpleLocale locale, std::shared_ptr<TCEnvironment> names) {
    auto line = TCLineReading::classify(TBF::makeShared<TCExpression>(std::move(text), locale));
    line->parseOnDemand(TBF::makeShared<TCLineExpressionParser>(std::move(names)));
    return TCLineReading(std::move(line));
}

TCLineReading::TCLineReading(std::shared_ptr<TCAbstractLineExpression> line)
    : form(std::move(line)) {}

TCLineReading::TCLineReading(TCLineReading&&) noexcept = default;
TCLineReading::~TCLineReading() = default;

// Substitute: the expression keeps the text and the mappings.
const TCExpressionMappings* TCLineReading::mappings() const {
    return evaluable() ? evaluable()->expressionMappings().get() : nullptr;
}

// Tokenize. A text that was substituted with the present patterns isn't substituted again.
std::shared_ptr<TCSimpleTokenizedExpression>
TCLineReading::tokenize(const TCExpression& expression, TCSimpleLocale locale,
                        const TCExpressionSubstituter* substituter) {
    const auto tokenizer = TBF::ExpressionTokenizer::create(TCTBFLocaleFromTCSimpleLocale(locale));
    const auto& typed = expression.originalString();
    const auto length = static_cast<int64_t>(typed ? typed->size() : 0);
    if (substituter == defaultSubstituter() && expression.isSubstitutedByDefault()) {
        return TBF::makeShared<TCSimpleTokenizedExpression>(tokenizer->tokenize(expression.tbfExpression()),
                                                            expression.expressionMappings(), length);
    }
    std::u16string text = expression.isTooLong() ? std::u16string() : typed.value_or(std::u16string());
    auto mappings = substituter ? substituter->applySubstitutionsToMutableString(text) : nullptr;
    return TBF::makeShared<TCSimpleTokenizedExpression>(
        tokenizer->tokenize(TBF::Expression::create(text).get()), std::move(mappings), length);
}

const TCSimpleTokenizedExpression* TCLineReading::tokens() {
    if (!simpleTokens) simpleTokens = form->tokenizedEvaluableExpression();
    return simpleTokens.get();
}

// Classify.
std::shared_ptr<TCAbstractLineExpression>
TCLineReading::classify(const std::shared_ptr<TCExpression>& expression) {
    if (!expression || !expression->originalString() || expression->isTooLong())
        return TBF::makeShared<TCPlainTextLineExpression>(expression, nullptr);
    if (!TCReadingShortcuts::mayDeclare(expression->stringForEvaluation()))
        return TBF::makeShared<TCNormalLineExpression>(expression, nullptr);
    const std::shared_ptr<TCSimpleTokenizedExpression> tokens =
        tokenize(*expression, expression->locale(), defaultSubstituter());
    TCVariableDeclarationRecord record;
    switch (TCExpressionParser::expressionTypeOfTokenizedExpression(*tokens, &record)) {
    case TCExpressionTypeNormal:
        return TBF::makeShared<TCNormalLineExpression>(expression, tokens);
    case TCExpressionTypeVariableDeclaration:
        expression->dropDerivedForms();
        return declarationExpression(expression, record);
    default:
        return TBF::makeShared<TCPlainTextLineExpression>(expression, tokens);
    }
}

TBF::Ref<TBF::Namespace> TCLineReading::namesOf(const TCEnvironment* environment) {
    if (environment && environment->functions()) return environment->names();
    const auto withFunctions = TCEnvironment::make();
    withFunctions->setFunctions(TCEvaluator::builtInFunctions());
    if (environment) {
        withFunctions->setVariables(environment->variables());
        withFunctions->setWordOperators(environment->wordOperators());
        withFunctions->setUnitManager(environment->unitManager());
    }
    return withFunctions->names();
}

// Analyze.
TBF::ExpressionTokenList TCLineReading::analyze(const TBF::TokenizedExpression& tokens,
                                                const TBF::Ref<TBF::Namespace>& names, int32_t lineIndex) {
    const auto analyzer = TBF::ContextualAnalyzer::create();
    analyzer->setNamespace(names);
    return analyzer->analyzeForReading(tokens, lineIndex, TCReadingShortcuts::areEnabled());
}

const TBF::ExpressionTokenList& TCLineReading::meaning() {
    if (analyzedTokens) return *analyzedTokens;
    analyzedTokens.emplace();
    if (const auto* const simple = tokens())
        analyzedTokens = analyze(*simple->tbfTokenizedExpression(), namesOf(form->names().get()), 0);
    return *analyzedTokens;
}

// Parse.
TBF::Ref<TBF::ParsedExpression> TCLineReading::parse(TBF::ExpressionTokenList meaning) {
    return TBF::ExpressionParser::parse(std::move(meaning));
}

TBF::ExpressionTree* TCLineReading::tree() {
    if (!parsedTokens) parsedTokens = parse(meaning());
    return parsedTokens->tree();
}

// Show.
TCExpressionTokens TCLineReading::show(const TBF::ExpressionTokenList& meaning,
                                       const TCExpression& expression) {
    return TCExpressionTokenBuilder(meaning, expression.expressionMappings().get(),
                                    expression.weak_from_this())
        .build();
}

TCExpressionTokens TCLineReading::shownTokens() const {
    const auto parsed = form->parsedExpression();
    return parsed ? parsed->tokens() : TCExpressionTokens();
}

// Collect. In front of a declaration's value nothing refers to anything.
std::vector<TCLineReading::Reference> TCLineReading::references() {
    if (!evaluable() || !TCReadingShortcuts::mayReferToLines(evaluable()->stringForEvaluation())) return {};
    if (auto plain = plainReferences()) return std::move(*plain);
    return shownReferences();
}

std::optional<std::vector<TCLineReading::Reference>> TCLineReading::plainReferences() {
    if (!TCReadingShortcuts::areEnabled() || !form->names() || !tokens()) return std::nullopt;
    const auto found = TCPlainLineReferences(*tokens(), form->names()->variables().get());
    if (!found) return std::nullopt;
    std::vector<Reference> references;
    for (const auto& [type, number] : *found)
        references.push_back(
            {type, number, type == TCLineReferenceTypeAbsoluteByLineNumber ? number - 1 : number});
    return references;
}

std::vector<TCLineReading::Reference> TCLineReading::shownReferences() const {
    std::vector<Reference> references;
    for (const auto& token : shownTokens()) {
        if (token->type() != TCExpressionTokenTypeLineReference) continue;
        const bool isNumbered = token->subType() == TCExpressionTokenSubTypeLineNumberReference;
        references.push_back({token->lineReferenceType(), token->lineReferenceNumber(),
                              token->lineReferenceNumber() - (isNumbered ? 1 : 0)});
    }
    return references;
}

std::set<std::u16string> TCLineReading::usedNames() {
    if (!evaluable() || !TCReadingShortcuts::mayUseNames(evaluable()->stringForEvaluation())) return {};
    return knowsItsNames() ? namesInMeaning() : shownNames();
}

// A declaration's value is tokenized in the environment's locale, and shown in its own.
bool TCLineReading::knowsItsNames() const {
    return form->names() && form->names()->locale() == evaluable()->locale() &&
           TCReadingShortcuts::showsWhatItSays(*evaluable());
}

std::set<std::u16string> TCLineReading::namesInMeaning() {
    std::set<std::u16string> found;
    for (const auto& token : meaning())
        if (token->type() == TBFTokenTypeVariable) found.emplace(token->view());
    return found;
}

// Tokens that weren't there before don't stay.
std::set<std::u16string> TCLineReading::shownNames() const {
    const auto parsed = form->evaluableParsedExpression();
    if (!parsed) return {};
    const bool keepsTokens = parsed->hasTokens();
    auto found = parsed->variableReferences();
    if (!keepsTokens) parsed->dropTokens();
    return found;
}
