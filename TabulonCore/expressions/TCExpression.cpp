#include "expressions/TCExpression.h"

#include "analysis/Expression.h"
#include "environment/TCEvaluator.h"
#include "expressions/TCExpressionSubstituter.h"
#include "expressions/TCLineReferenceType.h"
#include "expressions/TCTokenizedExpression.h"
#include "lines/TCLine.h"
#include "lines/TCLineCollection.h"
#include "results/TCResultFormatter.h"
#include "runtime/ObjectPool.h"

#include <functional>
#include <utility>

namespace {

std::u16string referenceText(TCLineReferenceType type, int64_t number) {
    const std::string digits = std::to_string(number);
    std::u16string text = u"(";
    text += TCLineReferenceFunctionNameForType(type);
    text += u'(';
    text.append(digits.begin(), digits.end());
    text += u"))";
    return text;
}

} // namespace

TCExpression::TCExpression(std::optional<std::u16string> text, TCSimpleLocale locale,
                           std::optional<std::u16string> givenSubstitutedText)
    : typedText(std::move(text))
    , textLocale(locale)
    , substitutedText(std::move(givenSubstitutedText)) {}

TCExpression::~TCExpression() = default;

std::shared_ptr<TCExpression> TCExpression::expressionWithString(std::optional<std::u16string> text) {
    return TBF::makeShared<TCExpression>(std::move(text));
}

std::shared_ptr<TCExpression> TCExpression::expressionWithSimpleString(std::u16string text) {
    return TBF::makeShared<TCExpression>(text, kTCSimpleLocalDefault, text);
}

std::shared_ptr<TCExpression>
TCExpression::expressionWithContentsOfTBFExpression(const TBF::Expression* expression) {
    return expressionWithSimpleString(expression ? std::u16string(expression->view()) : std::u16string());
}

std::u16string TCExpression::relativeLineReferenceToken(int32_t offset) {
    return referenceText(TCLineReferenceTypeRelative, offset);
}

std::u16string TCExpression::fixedRelativeLineReferenceToken(int32_t offset) {
    return referenceText(TCLineReferenceTypeFixedRelative, offset);
}

std::u16string TCExpression::absoluteLineReferenceToken(uint32_t index) {
    return referenceText(TCLineReferenceTypeAbsolute, index);
}

std::u16string TCExpression::absoluteLineReferenceFunctionWithLineNumber(uint32_t number) {
    return referenceText(TCLineReferenceTypeAbsoluteByLineNumber, number);
}

std::u16string TCExpression::nullLineReferenceToken() {
    return referenceText(TCLineReferenceTypeNull, 0);
}

std::u16string_view TCExpression::nullLineReferenceFunctionName() {
    return TCLineReferenceFunctionNameForType(TCLineReferenceTypeNull);
}

std::u16string_view TCExpression::relativeLineReferenceFunctionName() {
    return TCLineReferenceFunctionNameForType(TCLineReferenceTypeRelative);
}

std::u16string_view TCExpression::fixedRelativeLineReferenceFunctionName() {
    return TCLineReferenceFunctionNameForType(TCLineReferenceTypeFixedRelative);
}

std::u16string_view TCExpression::absoluteLineReferenceFunctionName() {
    return TCLineReferenceFunctionNameForType(TCLineReferenceTypeAbsolute);
}

std::u16string_view TCExpression::absoluteLineReferenceByLineNumberFunctionName() {
    return TCLineReferenceFunctionNameForType(TCLineReferenceTypeAbsoluteByLineNumber);
}

void TCExpression::setOriginalString(std::optional<std::u16string> text) {
    typedText = std::move(text);
    dropSubstitution();
}

const std::u16string& TCExpression::stringForEvaluation() const {
    if (!substitutedText) {
        const TCExpressionSubstituter& substituter = *TCExpressionSubstituter::defaultSubstituter();
        substituterState = substituter.stateIndicator();
        substitutedText = isTooLong() ? std::u16string() : typedText.value_or(std::u16string());
        mappings = substituter._regexParseExpressionString(*substitutedText);
    }
    return *substitutedText;
}

const std::shared_ptr<const TCExpressionMappings>& TCExpression::expressionMappings() const {
    stringForEvaluation();
    return mappings;
}

// False for a text that was given together with its substitutions, and after a change of the patterns.
bool TCExpression::isSubstitutedByDefault() const {
    stringForEvaluation();
    return mappings && substituterState == TCExpressionSubstituter::defaultSubstituter()->stateIndicator();
}

TBF::Expression* TCExpression::tbfExpression() const {
    const std::u16string& text = stringForEvaluation();
    if (!foundationExpression) foundationExpression = TBF::Expression::create(text);
    return foundationExpression.get();
}

const std::shared_ptr<TCTokenizedExpression>& TCExpression::tokenizedExpression() {
    if (!tokenized) tokenized = TBF::makeShared<TCTokenizedExpression>(weak_from_this());
    const TCLineCollection* const collection = owner ? owner->_lineCollection() : nullptr;
    if (collection) tokenized->setVariableList(collection->variables());
    if (const std::shared_ptr<TCEvaluator> evaluator = TCEvaluator::sharedEvaluator()) {
        tokenized->setUnitManager(evaluator->unitManager());
        tokenized->setWordOperators(evaluator->wordOperators());
    }
    return tokenized;
}

std::optional<std::u16string> TCExpression::delocalizedString() const {
    if (!typedText) return std::nullopt;
    constexpr TCSimpleLocale plain = TCSimpleLocale::standardLocale();
    std::u16string text = *typedText;
    TCResultFormatterReplaceDecimalPointAndThousandsSeparator(text, textLocale.decimalPoint,
                                                              textLocale.thousandsSeparator,
                                                              plain.decimalPoint, plain.thousandsSeparator);
    return text;
}

void TCExpression::convertToLocaleWithDecimalPoint(TBFChar decimalPoint, TBFChar thousandsSeparator) {
    if (typedText) {
        TCResultFormatterReplaceDecimalPointAndThousandsSeparator(*typedText, textLocale.decimalPoint,
                                                                  textLocale.thousandsSeparator, decimalPoint,
                                                                  thousandsSeparator);
        dropSubstitution();
    }
    setLocaleWithDecimalPoint(decimalPoint, thousandsSeparator);
}

void TCExpression::setLocaleWithDecimalPoint(TBFChar decimalPoint, TBFChar thousandsSeparator) {
    const TCSimpleLocale newLocale{decimalPoint, thousandsSeparator};
    if (newLocale == textLocale) return;
    textLocale = newLocale;
    dropSubstitution();
}

void TCExpression::dropSubstitution() {
    substitutedText.reset();
    mappings.reset();
    foundationExpression.reset();
    tokenized.reset();
}

std::size_t TCExpression::hash() const {
    return std::hash<std::u16string>()(typedText.value_or(std::u16string()));
}
