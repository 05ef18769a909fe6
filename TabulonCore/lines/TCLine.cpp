#include "lines/TCLine.h"

#include "environment/TCLineEvaluator.h"
#include "expressions/TCExpression.h"
#include "expressions/TCLineReading.h"
#include "expressions/TCLineReferenceType.h"
#include "expressions/TCLineVariableDeclaration.h"
#include "expressions/TCParsedExpression.h"
#include "expressions/TCPlainTextLineExpression.h"
#include "expressions/TCSimpleTokenizedExpression.h"
#include "lines/TCLineCollection.h"
#include "lines/TCLineRecalculation.h"
#include "results/TCResult.h"
#include "results/TCResultFormatter.h"
#include "results/TCResultFormattingOptions.h"
#include "runtime/ObjectPool.h"

#include <chrono>
#include <functional>
#include <utility>

namespace {

constexpr int32_t absoluteReferenceTypes =
    TCLineReferenceTypeAbsolute | TCLineReferenceTypeAbsoluteByLineNumber;
constexpr int32_t relativeReferenceTypes = TCLineReferenceTypeRelative | TCLineReferenceTypeFixedRelative;

// The second of the first line's making in the upper bits, a count of lines in the lower ones. The sum, where
// the bits would overlap, keeps identifiers apart beyond 32,768 lines.
uint32_t nextIdentifierNumber() {
    static const uint32_t seed = static_cast<uint32_t>(
        std::chrono::duration_cast<std::chrono::seconds>(std::chrono::system_clock::now().time_since_epoch())
            .count());
    static uint32_t counter = 0;
    return (seed << 15) + counter++;
}

std::u16string decimalText(uint32_t number) {
    const std::string digits = std::to_string(number);
    return std::u16string(digits.begin(), digits.end());
}

std::shared_ptr<TCExpression> expressionWithText(std::optional<std::u16string> text) {
    return text ? TBF::makeShared<TCExpression>(std::move(text)) : nullptr;
}

} // namespace

std::shared_ptr<TCLine> TCLine::make() {
    return make(std::shared_ptr<TCExpression>());
}

std::shared_ptr<TCLine> TCLine::make(std::shared_ptr<TCExpression> expression) {
    if (kindOfNothing(expression.get()) != NoText::Expression && expression.use_count() == 1)
        return make(std::move(expression), nullptr);
    auto lineExpression = lineTypeForExpression(expression);
    return make(std::move(expression), std::move(lineExpression));
}

std::shared_ptr<TCLine> TCLine::make(std::shared_ptr<TCExpression> expression,
                                     std::shared_ptr<TCAbstractLineExpression> lineExpression) {
    return TBF::makeShared<TCLine>(Passkey(), std::move(expression), std::move(lineExpression));
}

std::shared_ptr<TCLine> TCLine::lineWithExpressionString(std::optional<std::u16string> text) {
    return make(expressionWithText(std::move(text)));
}

std::shared_ptr<TCLine> TCLine::lineWithPlainText(std::u16string text) {
    auto expression = TBF::makeShared<TCExpression>(std::move(text));
    auto plain = TBF::makeShared<TCPlainTextLineExpression>(expression, nullptr);
    return make(std::move(expression), std::move(plain));
}

TCLine::TCLine(Passkey, std::shared_ptr<TCExpression> expression,
               std::shared_ptr<TCAbstractLineExpression> lineExpression)
    : analysedForm(std::move(lineExpression)) {
    takeText(std::move(expression));
}

TCLine::NoText TCLine::kindOfNothing(const TCExpression* expression) {
    if (!expression || !expression->isEmpty()) return NoText::Expression;
    return expression->originalString() ? NoText::Empty : NoText::WithoutText;
}

// An expression of nothing that nobody else holds isn't kept, unless the line has an analysed form over it.
void TCLine::takeText(std::shared_ptr<TCExpression> expression) {
    noText =
        analysedForm || expression.use_count() > 1 ? NoText::Expression : kindOfNothing(expression.get());
    if (noText != NoText::Expression) expression = nullptr;
    text = std::move(expression);
    if (text) text->setLine(this);
}

void TCLine::makeExpressionOfNothing() const {
    const bool isEmpty = std::exchange(noText, NoText::Expression) == NoText::Empty;
    text = TBF::makeShared<TCExpression>(isEmpty ? std::optional(std::u16string()) : std::nullopt,
                                         formattingLocale());
    text->setLine(const_cast<TCLine*>(this)); // its caches are filled, which is no change
    analysedForm = lineTypeForExpression(text);
    const TCLineCollection* const collection = _lineCollection();
    if (parsedAsNothing && collection) analysedForm->parseOnDemand(collection->recalculation().lineParser());
}

const std::shared_ptr<TCExpression>& TCLine::expression() const {
    if (isKeptAsNothing()) makeExpressionOfNothing();
    return text;
}

const std::shared_ptr<TCAbstractLineExpression>& TCLine::lineExpression() const {
    if (isKeptAsNothing()) makeExpressionOfNothing();
    return analysedForm;
}

TCLine::~TCLine() {
    // Who still holds the text must not follow it to this line.
    if (text && text->line() == this) text->setLine(nullptr);
}

std::optional<std::u16string> TCLine::expressionString() const {
    if (noText == NoText::Empty) return std::u16string();
    return text ? text->originalString() : std::nullopt;
}

std::optional<std::u16string> TCLine::delocalizedExpressionString() const {
    if (noText == NoText::Empty) return std::u16string();
    return text ? text->delocalizedString() : std::nullopt;
}

void TCLine::setExpressionString(std::optional<std::u16string> newText) {
    _setExpression(expressionWithText(std::move(newText)));
}

void TCLine::_setExpression(std::shared_ptr<TCExpression> newExpression) {
    if (newExpression == text && !(isKeptAsNothing() && !newExpression)) return;
    if (text && text->line() == this) text->setLine(nullptr);
    invalidateResult();
    analysedForm.reset();
    takeText(std::move(newExpression));
    const TCSimpleLocale locale = formattingLocale();
    if (text) text->setLocaleWithDecimalPoint(locale.decimalPoint, locale.thousandsSeparator);
    expressionDidChange();
    if (TCLineCollection* const collection = _lineCollection())
        collection->recalculation().lineReadsDifferently(*this);
}

void TCLine::expressionDidChange() {
    forgetReferences();
    parsedAsNothing = false;
    if (!isKeptAsNothing()) analysedForm = lineTypeForExpression(text);
    if (TCLineCollection* const collection = _lineCollection())
        collection->recalculation().lineExpressionDidChange(*this);
}

std::shared_ptr<TCAbstractLineExpression>
TCLine::lineTypeForExpression(const std::shared_ptr<TCExpression>& expression) {
    return TCLineReading::classify(expression);
}

std::shared_ptr<TCResult> TCLine::result() {
    if (!answer && (text || isKeptAsNothing()) && !evaluated) evaluate();
    return answer;
}

bool TCLine::hasResultValue() {
    const std::shared_ptr<TCResult> current = result();
    return current && current->resultType() == TCResultTypeNumber;
}

void TCLine::setResult(std::shared_ptr<TCResult> newResult) {
    evaluated = true;
    if (newResult == answer) return;
    answer = std::move(newResult);
    if (!answer || answer == TCResult::emptyResult()) return;
    answer->setResultFormattingOptions(heldOptions());
    answer->dropDerivedForms();
}

std::shared_ptr<TCResult> TCLine::_resultAlongPath(const TCIndexPath*, int64_t*) const {
    return answer;
}

void TCLine::invalidateResult() {
    answer.reset();
    evaluated = false;
}

void TCLine::evaluate() {
    if (TCLineCollection* const collection = _lineCollection())
        collection->enqueEvaluationOfLine(shared_from_this());
    else
        _evaluate();
}

void TCLine::_evaluate() {
    TCLineEvaluator::evaluateLine(*this);
}

void TCLine::clearCaches() {
    invalidateResult();
    setExpressionString(expressionString());
}

void TCLine::parseOnDemand(const std::shared_ptr<TCLineExpressionParser>& parser) {
    if (noText == NoText::Empty)
        parsedAsNothing = true;
    else if (analysedForm && !analysedForm->isParsed())
        analysedForm->parseOnDemand(parser);
}

void TCLine::dropForms() const {
    if (analysedForm) analysedForm->dropForms();
}

void TCLine::unparse() {
    parsedAsNothing = false;
    if (!analysedForm) return;
    analysedForm->reset();
    forgetReferences();
    if (TCLineCollection* const collection = _lineCollection())
        collection->recalculation().lineNeedsParsing(*this);
}

bool TCLine::isParsed() const {
    return parsedAsNothing || (analysedForm && analysedForm->isParsed());
}

std::shared_ptr<TCParsedExpression> TCLine::parsedExpression() const {
    const auto& form = lineExpression();
    return form ? form->parsedExpression() : nullptr;
}

std::shared_ptr<TCParsedExpression> TCLine::evaluableParsedExpression() const {
    const auto& form = lineExpression();
    return form ? form->evaluableParsedExpression() : nullptr;
}

const std::shared_ptr<TCExpression>& TCLine::evaluableExpression() const {
    static const std::shared_ptr<TCExpression> none;
    const auto& form = lineExpression();
    return form ? form->evaluableExpression() : none;
}

std::shared_ptr<TCSimpleTokenizedExpression> TCLine::simpleTokenizedExpression() const {
    const auto& form = lineExpression();
    return form ? form->tokenizedExpression() : nullptr;
}

std::shared_ptr<TCSimpleTokenizedExpression> TCLine::tokenizedEvaluableExpression() const {
    const auto& form = lineExpression();
    return form ? form->tokenizedEvaluableExpression() : nullptr;
}

std::shared_ptr<TCLineVariableDeclaration> TCLine::variableDeclaration() const {
    return analysedForm ? analysedForm->variableDeclaration() : nullptr;
}

std::shared_ptr<TCTokenizedExpression> TCLine::tokenizedExpression() const {
    return expression() ? text->tokenizedExpression() : nullptr;
}

bool TCLine::isTooLong() const {
    return text && text->isTooLong();
}

int32_t TCLine::lineType() const {
    if (noText == NoText::Empty) return TCLineTypeNormal;
    if (!analysedForm) return TCLineTypePlainText;
    const int32_t type = analysedForm->expressionType();
    return type >= TCLineTypeNormal && type <= TCLineTypePlainText ? type : TCLineTypeNone;
}

const std::optional<TCLine::References>& TCLine::lineReferences() const {
    static const std::optional<References> none;
    if (isKeptAsNothing()) return none;
    if (referencesKnown || !isParsed()) return uses ? uses->references : none;
    referencesKnown = true;
    if (uses) uses->references.reset();
    if (!analysedForm) return none;
    const std::vector<TCLineReading::Reference> found = TCLineReading(analysedForm).references();
    if (found.empty()) return none;
    std::vector<int64_t> absoluteIndexes;
    std::vector<int64_t> relativeOffsets;
    References& references = madeUses().references.emplace();
    for (const auto& [type, number, place] : found) {
        references.all.push_back({type, number});
        if (type & absoluteReferenceTypes) absoluteIndexes.push_back(place);
        if (type & relativeReferenceTypes) relativeOffsets.push_back(place);
    }
    references.absoluteIndexes = TCIndexSet::indexSetWithIndexes(absoluteIndexes);
    references.relativeOffsets = TCIndexSet::indexSetWithIndexes(relativeOffsets);
    return uses->references;
}

TCLine::Uses& TCLine::madeUses() const {
    if (!uses) uses = std::make_unique<Uses>();
    return *uses;
}

std::span<const TCLine::Reference> TCLine::referencesToLines() const {
    const auto& references = lineReferences();
    return references ? std::span<const Reference>(references->all) : std::span<const Reference>();
}

// A line keeps its names when others come or go, unless the collection has it parsed anew.
const std::vector<std::u16string>& TCLine::usedVariableNames() const {
    static const std::vector<std::u16string> none;
    if (variableNamesKnown) return uses ? uses->variableNames : none;
    if (isKeptAsNothing() || !isParsed()) return none;
    const auto& evaluable = evaluableExpression();
    if (!evaluable) return none;
    variableNamesKnown = true;
    if (uses) uses->variableNames.clear();
    const bool hadForms = analysedForm->hasForms();
    const auto names = TCLineReading(analysedForm).usedNames();
    if (names.empty()) {
        // An ordinary line that uses nothing isn't looked at again until it is evaluated, long after.
        if (!hadForms && lineType() == TCLineTypeNormal) analysedForm->dropTokens();
        return none;
    }
    return madeUses().variableNames = std::vector<std::u16string>(names.begin(), names.end());
}

void TCLine::forgetReferences() {
    uses.reset();
    variableNamesKnown = false;
    referencesKnown = false;
}

std::optional<TCIndexSet> TCLine::directAbsoluteLineReferenceIndexes() const {
    const auto& references = lineReferences();
    return references ? std::optional(references->absoluteIndexes) : std::nullopt;
}

std::optional<TCIndexSet> TCLine::directRelativeLineReferenceIndexes() const {
    const auto& references = lineReferences();
    return references ? std::optional(references->relativeOffsets) : std::nullopt;
}

const std::optional<TCIndexSet>& TCLine::directLineReferenceIndexes() const {
    static const std::optional<TCIndexSet> none;
    const auto& references = lineReferences();
    if (!references) return none;
    std::optional<TCIndexSet>& targets = uses->directLineReferences;
    if (!targets) {
        targets = references->relativeOffsets;
        targets->addOffset(static_cast<int64_t>(position));
        targets->addIndexesFromIndexSet(references->absoluteIndexes);
    }
    return targets;
}

void TCLine::setIndex(std::size_t newIndex) {
    position = newIndex;
    if (uses) uses->directLineReferences.reset();
}

const std::u16string& TCLine::uniqueIdentifier() const {
    if (!identifier) identifier = std::make_unique<std::u16string>(decimalText(nextIdentifierNumber()));
    return *identifier;
}

void TCLine::_setLineCollection(TCLineCollection* collection) {
    owner = collection ? collection->recalculation().document() : nullptr;
}

const std::shared_ptr<TCResultFormattingOptions>& TCLine::customFormattingOptions() {
    if (makeOptionsOwn() && answer && answer != TCResult::emptyResult())
        answer->setResultFormattingOptions(heldOptions());
    return heldOptions();
}

TCResultFormattingOptions TCLine::contextualizedFormattingOptions() {
    return contextualizedOptionsFor(result().get());
}

TCResultFormattingOptions TCLine::formattingOptions() {
    return automaticContextualFormattingEnabled() ? contextualizedFormattingOptions()
                                                  : readableFormattingOptions();
}

std::optional<std::u16string> TCLine::formattedResult() {
    const std::shared_ptr<TCResult> current = result();
    if (!current || current->resultType() != TCResultTypeNumber) return std::nullopt;
    auto shown = TCResultFormatter::sharedInstance().stringValueForResult(current.get(), formattingOptions());
    current->dropDerivedForms();
    return shown;
}

int32_t TCLine::trigonometryMode() const {
    if (ownTrigonometryMode != 0) return ownTrigonometryMode;
    const TCLineCollection* const collection = _lineCollection();
    return collection ? collection->trigonometryMode() : 0;
}

void TCLine::setTrigonometryMode(int32_t mode) {
    if (mode == ownTrigonometryMode) return;
    ownTrigonometryMode = static_cast<int8_t>(mode);
    invalidateResult();
    if (TCLineCollection* const collection = _lineCollection())
        collection->recalculation().lineReadsDifferently(*this);
}

// The options may be shared with other lines, so they alone don't tell how this text was read.
bool TCLine::usesLocale(TCSimpleLocale locale) const {
    return locale == formattingLocale() && (!text || text->locale() == locale);
}

void TCLine::setLocale(TCSimpleLocale locale) {
    if (usesLocale(locale)) return;
    setFormattingLocale(locale);
    if (text) text->setLocaleWithDecimalPoint(locale.decimalPoint, locale.thousandsSeparator);
    localeDidChange();
}

void TCLine::convertToLocale(TCSimpleLocale locale) {
    if (usesLocale(locale)) return;
    const bool isConverted = text && text->locale() != locale;
    if (isConverted) text->convertToLocaleWithDecimalPoint(locale.decimalPoint, locale.thousandsSeparator);
    setFormattingLocale(locale);
    localeDidChange();
}

void TCLine::localeDidChange() {
    invalidateResult();
    expressionDidChange();
    if (TCLineCollection* const collection = _lineCollection())
        collection->recalculation().lineReadsDifferently(*this);
}

std::size_t TCLine::hash() const {
    if (isKeptAsNothing()) return std::hash<std::u16string>()(std::u16string());
    return text ? text->hash() : 0;
}

bool TCLine::isEqual(const TCLine& other) const {
    if (isKeptAsNothing() || other.isKeptAsNothing()) {
        const auto kind = [](const TCLine& line) {
            return line.isKeptAsNothing() ? line.noText : kindOfNothing(line.text.get());
        };
        return kind(*this) == kind(other);
    }
    if (text == other.text) return true;
    return text && other.text && text->isEqual(*other.text);
}
