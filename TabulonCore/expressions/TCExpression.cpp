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

struct TCExpression::Derived {
    // None where the text is as it was typed, or not known yet.
    std::optional<std::u16string> substitutedText;
    bool isSubstituted = false;
    bool wasGiven = false; // together with the typed text: it can't be made again
    std::shared_ptr<const TCExpressionMappings> mappings;
    uint64_t substituterState = 0; // at which the mappings were made
    TBF::Ref<TBF::Expression> foundationExpression;
    std::shared_ptr<TCTokenizedExpression> tokenized;

    static void* operator new(std::size_t size) { return TBF::ObjectPool::take(size); }
    static void operator delete(void* memory, std::size_t size) { TBF::ObjectPool::give(memory, size); }
};

TCExpression::TCExpression(std::optional<std::u16string> text, TCSimpleLocale locale,
                           std::optional<std::u16string> givenSubstitutedText)
    : typedText(std::move(text))
    , textLocale(locale) {
    if (!givenSubstitutedText) return;
    Derived& forms = derived();
    forms.substitutedText = std::move(givenSubstitutedText);
    forms.isSubstituted = forms.wasGiven = true;
}

TCExpression::Derived& TCExpression::derived() const {
    if (!derivedForms) derivedForms = std::make_unique<Derived>();
    return *derivedForms;
}

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
    static const std::u16string none;
    Derived& forms = derived();
    if (!forms.isSubstituted) {
        const TCExpressionSubstituter& substituter = *TCExpressionSubstituter::defaultSubstituter();
        forms.isSubstituted = true;
        forms.substituterState = substituter.stateIndicator();
        std::u16string text = isTooLong() ? std::u16string() : typedText.value_or(std::u16string());
        forms.mappings = substituter._regexParseExpressionString(text);
        if (typedText && text != *typedText) forms.substitutedText = std::move(text);
    }
    if (forms.substitutedText) return *forms.substitutedText;
    return typedText ? *typedText : none;
}

const std::shared_ptr<const TCExpressionMappings>& TCExpression::expressionMappings() const {
    stringForEvaluation();
    return derivedForms->mappings;
}

// False for a text that was given together with its substitutions, and after a change of the patterns.
bool TCExpression::isSubstitutedByDefault() const {
    stringForEvaluation();
    return derivedForms->mappings &&
           derivedForms->substituterState == TCExpressionSubstituter::defaultSubstituter()->stateIndicator();
}

TBF::Expression* TCExpression::tbfExpression() const {
    const std::u16string& text = stringForEvaluation();
    auto& expression = derivedForms->foundationExpression;
    if (!expression) expression = TBF::Expression::create(text);
    return expression.get();
}

const std::shared_ptr<TCTokenizedExpression>& TCExpression::tokenizedExpression() {
    std::shared_ptr<TCTokenizedExpression>& tokenized = derived().tokenized;
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
    derivedForms.reset();
}

void TCExpression::dropDerivedForms() {
    if (!derivedForms) return;
    if (!derivedForms->wasGiven) {
        derivedForms.reset();
        return;
    }
    derivedForms->foundationExpression.reset();
    derivedForms->tokenized.reset();
}

std::size_t TCExpression::hash() const {
    return std::hash<std::u16string>()(typedText.value_or(std::u16string()));
}
