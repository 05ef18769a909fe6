#include "lines/TCLine.h"

#include "environment/TCLineEvaluator.h"
#include "expressions/TCExpression.h"
#include "expressions/TCExpressionParser.h"
#include "expressions/TCExpressionSubstituter.h"
#include "expressions/TCExpressionToken.h"
#include "expressions/TCExpressionTokenizer.h"
#include "expressions/TCLineReferenceType.h"
#include "expressions/TCLineVariableDeclaration.h"
#include "expressions/TCNormalLineExpression.h"
#include "expressions/TCParsedExpression.h"
#include "expressions/TCPlainLineReferences.h"
#include "expressions/TCPlainTextLineExpression.h"
#include "expressions/TCSimpleTokenizedExpression.h"
#include "expressions/TCVarDeclLineExpression.h"
#include "lines/TCLineCollection.h"
#include "results/TCResult.h"
#include "results/TCResultFormattingOptions.h"
#include "runtime/ObjectPool.h"

#include <chrono>
#include <functional>
#include <utility>

namespace {

constexpr int32_t absoluteReferenceTypes =
    TCLineReferenceTypeAbsolute | TCLineReferenceTypeAbsoluteByLineNumber;
constexpr int32_t relativeReferenceTypes = TCLineReferenceTypeRelative | TCLineReferenceTypeFixedRelative;

// Every line reference is a call of a function whose name begins so.
constexpr std::u16string_view referenceFunctionPrefix = u"___";

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

// Asking for the tokens of a line is dear, so lines of nothing but numbers and operators are not asked.
bool mayNameVariable(std::u16string_view text) {
    return text.find_first_not_of(u"0123456789 \t.,+-*/()^%=") != std::u16string_view::npos;
}

std::shared_ptr<TCExpression> expressionWithText(std::optional<std::u16string> text) {
    return text ? TBF::makeShared<TCExpression>(std::move(text)) : nullptr;
}

std::shared_ptr<TCAbstractLineExpression>
declarationExpression(const std::shared_ptr<TCExpression>& expression,
                      const std::shared_ptr<TCSimpleTokenizedExpression>& tokens,
                      const TCVariableDeclarationRecord& record) {
    const std::u16string_view text = *expression->originalString();
    std::shared_ptr<TCExpression> value;
    if (record.valueRange.length > 0)
        value = TBF::makeShared<TCExpression>(std::u16string(part(text, record.valueRange)),
                                              expression->locale());
    auto declaration = TBF::makeShared<TCLineVariableDeclaration>(
        record.equalsTokenIndex, record.nameRange, std::u16string(trimmed(part(text, record.nameRange))),
        std::move(value));
    return TBF::makeShared<TCVarDeclLineExpression>(expression, tokens, std::move(declaration));
}

} // namespace

std::shared_ptr<TCLine> TCLine::make() {
    return make(std::shared_ptr<TCExpression>());
}

std::shared_ptr<TCLine> TCLine::make(std::shared_ptr<TCExpression> expression) {
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
    : text(std::move(expression))
    , customOptions(TBF::makeShared<TCResultFormattingOptions>())
    , analysedForm(std::move(lineExpression)) {
    if (text) text->setLine(this);
}

TCLine::~TCLine() {
    // Who still holds the text must not follow it to this line.
    if (text && text->line() == this) text->setLine(nullptr);
}

std::optional<std::u16string> TCLine::expressionString() const {
    return text ? text->originalString() : std::nullopt;
}

std::optional<std::u16string> TCLine::delocalizedExpressionString() const {
    return text ? text->delocalizedString() : std::nullopt;
}

void TCLine::setExpressionString(std::optional<std::u16string> newText) {
    _setExpression(expressionWithText(std::move(newText)));
}

void TCLine::_setExpression(std::shared_ptr<TCExpression> newExpression) {
    if (newExpression == text) return;
    if (text && text->line() == this) text->setLine(nullptr);
    invalidateResult();
    text = std::move(newExpression);
    if (text) {
        text->setLine(this);
        text->setLocaleWithDecimalPoint(customOptions->decimalPlaceCharacter(),
                                        customOptions->thousandsSeparatorCharacter());
    }
    expressionDidChange();
    if (TCLineCollection* const collection = _lineCollection()) collection->_lineReadsDifferently(*this);
}

void TCLine::expressionDidChange() {
    forgetReferences();
    analysedForm = lineTypeForExpression(text);
    if (TCLineCollection* const collection = _lineCollection()) collection->_lineExpressionDidChange(*this);
}

std::shared_ptr<TCAbstractLineExpression>
TCLine::lineTypeForExpression(const std::shared_ptr<TCExpression>& expression) {
    if (!expression || !expression->originalString() || expression->isTooLong())
        return TBF::makeShared<TCPlainTextLineExpression>(expression, nullptr);
    const TCExpressionTokenizer tokenizer(expression->locale(),
                                          TCExpressionSubstituter::defaultSubstituter());
    const std::shared_ptr<TCSimpleTokenizedExpression> tokens = tokenizer.tokenizeExpression(*expression);
    TCVariableDeclarationRecord record;
    switch (TCExpressionParser::expressionTypeOfTokenizedExpression(*tokens, &record)) {
    case TCLineTypeNormal:
        return TBF::makeShared<TCNormalLineExpression>(expression, tokens);
    case TCLineTypeVariableDeclaration:
        return declarationExpression(expression, tokens, record);
    case TCLineTypePlainText:
        return TBF::makeShared<TCPlainTextLineExpression>(expression, tokens);
    default:
        return nullptr;
    }
}

std::shared_ptr<TCResult> TCLine::result() {
    if (!answer && text && !evaluated) evaluate();
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
    if (answer && answer != TCResult::emptyResult()) answer->setResultFormattingOptions(customOptions);
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

void TCLine::unparse() {
    if (!analysedForm) return;
    analysedForm->reset();
    forgetReferences();
    if (TCLineCollection* const collection = _lineCollection()) collection->_lineNeedsParsing(*this);
}

bool TCLine::isParsed() const {
    return analysedForm && analysedForm->parsedExpression();
}

std::shared_ptr<TCParsedExpression> TCLine::parsedExpression() const {
    return analysedForm ? analysedForm->parsedExpression() : nullptr;
}

std::shared_ptr<TCParsedExpression> TCLine::evaluableParsedExpression() const {
    return analysedForm ? analysedForm->evaluableParsedExpression() : nullptr;
}

const std::shared_ptr<TCExpression>& TCLine::evaluableExpression() const {
    static const std::shared_ptr<TCExpression> none;
    return analysedForm ? analysedForm->evaluableExpression() : none;
}

std::shared_ptr<TCSimpleTokenizedExpression> TCLine::simpleTokenizedExpression() const {
    return analysedForm ? analysedForm->tokenizedExpression() : nullptr;
}

const std::shared_ptr<TCSimpleTokenizedExpression>& TCLine::tokenizedEvaluableExpression() const {
    static const std::shared_ptr<TCSimpleTokenizedExpression> none;
    return analysedForm ? analysedForm->tokenizedEvaluableExpression() : none;
}

std::shared_ptr<TCLineVariableDeclaration> TCLine::variableDeclaration() const {
    return analysedForm ? analysedForm->variableDeclaration() : nullptr;
}

std::shared_ptr<TCTokenizedExpression> TCLine::tokenizedExpression() const {
    return text ? text->tokenizedExpression() : nullptr;
}

bool TCLine::isTooLong() const {
    return text && text->isTooLong();
}

int32_t TCLine::lineType() const {
    if (!analysedForm) return TCLineTypePlainText;
    const int32_t type = analysedForm->expressionType();
    return type >= TCLineTypeNormal && type <= TCLineTypePlainText ? type : TCLineTypeNone;
}

// The display tokens that tell of references are made on demand and are dear, so a text is asked for them
// only if it holds a reference, and one that can't be read in a simpler way.
const std::optional<TCLine::References>& TCLine::lineReferences() const {
    if (referencesKnown || !isParsed()) return references;
    referencesKnown = true;
    references.reset();
    const std::shared_ptr<TCExpression>& evaluable = evaluableExpression();
    if (!evaluable || evaluable->stringForEvaluation().find(referenceFunctionPrefix) == std::u16string::npos)
        return references;
    if (!readPlainReferences()) readReferencesOfTokens();
    return references;
}

bool TCLine::readPlainReferences() const {
    const TCLineCollection* const collection = _lineCollection();
    const auto& tokens = tokenizedEvaluableExpression();
    if (!tokens || !collection) return false;
    const auto found = TCPlainLineReferences(*tokens, collection->variables().get());
    if (!found) return false;
    if (found->empty()) return true;
    std::vector<int64_t> absoluteIndexes;
    std::vector<int64_t> relativeOffsets;
    references.emplace();
    for (const auto& [type, number] : *found) {
        references->all.push_back({type, number});
        if (type & absoluteReferenceTypes)
            absoluteIndexes.push_back(type == TCLineReferenceTypeAbsoluteByLineNumber ? number - 1 : number);
        if (type & relativeReferenceTypes) relativeOffsets.push_back(number);
    }
    references->absoluteIndexes = TCIndexSet::indexSetWithIndexes(absoluteIndexes);
    references->relativeOffsets = TCIndexSet::indexSetWithIndexes(relativeOffsets);
    return true;
}

void TCLine::readReferencesOfTokens() const {
    std::optional<std::vector<int64_t>> numbers;
    TCExpressionParser::findLineReferencesInLine(*this, absoluteReferenceTypes, &numbers, nullptr, false);
    if (!numbers) return;
    references.emplace();
    references->absoluteIndexes = TCIndexSet::indexSetWithIndexes(*numbers);
    TCExpressionParser::findLineReferencesInLine(*this, relativeReferenceTypes, &numbers, nullptr, false);
    if (numbers) references->relativeOffsets = TCIndexSet::indexSetWithIndexes(*numbers);
    const auto tokens = parsedExpression()->tokensOfType(TCExpressionTokenTypeLineReference);
    for (const auto& token : tokens.value_or(TCExpressionTokens()))
        references->all.push_back({token->lineReferenceType(), token->lineReferenceNumber()});
}

std::span<const TCLine::Reference> TCLine::referencesToLines() const {
    return lineReferences() ? std::span<const Reference>(references->all) : std::span<const Reference>();
}

// A line keeps its names when others come or go, unless the collection has it parsed anew.
const std::vector<std::u16string>& TCLine::usedVariableNames() const {
    static const std::vector<std::u16string> none;
    if (variableNames) return *variableNames;
    const auto parsed = evaluableParsedExpression();
    const auto evaluable = evaluableExpression();
    if (!parsed || !evaluable) return none;
    variableNames.emplace();
    if (mayNameVariable(evaluable->stringForEvaluation())) {
        const auto names = parsed->variableReferences();
        variableNames->assign(names.begin(), names.end());
    }
    return *variableNames;
}

void TCLine::forgetReferences() {
    references.reset();
    variableNames.reset();
    referencesKnown = false;
    directLineReferences.reset();
}

std::optional<TCIndexSet> TCLine::directAbsoluteLineReferenceIndexes() const {
    return lineReferences() ? std::optional(references->absoluteIndexes) : std::nullopt;
}

std::optional<TCIndexSet> TCLine::directRelativeLineReferenceIndexes() const {
    return lineReferences() ? std::optional(references->relativeOffsets) : std::nullopt;
}

const std::optional<TCIndexSet>& TCLine::directLineReferenceIndexes() const {
    if (!directLineReferences && lineReferences()) {
        directLineReferences = references->relativeOffsets;
        directLineReferences->addOffset(static_cast<int64_t>(position));
        directLineReferences->addIndexesFromIndexSet(references->absoluteIndexes);
    }
    return directLineReferences;
}

void TCLine::setIndex(std::size_t newIndex) {
    position = newIndex;
    directLineReferences.reset();
}

const std::u16string& TCLine::uniqueIdentifier() const {
    if (identifier.empty()) identifier = decimalText(nextIdentifierNumber());
    return identifier;
}

void TCLine::_setLineCollection(TCLineCollection* collection) {
    owner = collection ? collection->_backReference() : nullptr;
}

void TCLine::setCustomFormattingOptions(std::shared_ptr<TCResultFormattingOptions> options) {
    if (options) customOptions = std::move(options);
}

int32_t TCLine::trigonometryMode() const {
    if (ownTrigonometryMode != 0) return ownTrigonometryMode;
    const TCLineCollection* const collection = _lineCollection();
    return collection ? collection->trigonometryMode() : 0;
}

void TCLine::setTrigonometryMode(int32_t mode) {
    if (mode == ownTrigonometryMode) return;
    ownTrigonometryMode = mode;
    invalidateResult();
    if (TCLineCollection* const collection = _lineCollection()) collection->_lineReadsDifferently(*this);
}

// The options may be shared with other lines, so they alone don't tell how this text was read.
bool TCLine::usesLocale(TCSimpleLocale locale) const {
    return locale.decimalPoint == customOptions->decimalPlaceCharacter() &&
           locale.thousandsSeparator == customOptions->thousandsSeparatorCharacter() &&
           (!text || text->locale() == locale);
}

void TCLine::setLocale(TCSimpleLocale locale) {
    if (usesLocale(locale)) return;
    customOptions->setDecimalPlaceCharacter(locale.decimalPoint);
    customOptions->setThousandsSeparatorCharacter(locale.thousandsSeparator);
    if (text) text->setLocaleWithDecimalPoint(locale.decimalPoint, locale.thousandsSeparator);
    localeDidChange();
}

void TCLine::convertToLocale(TCSimpleLocale locale) {
    if (usesLocale(locale)) return;
    const bool isConverted = text && text->locale() != locale;
    if (isConverted) text->convertToLocaleWithDecimalPoint(locale.decimalPoint, locale.thousandsSeparator);
    customOptions->setDecimalPlaceCharacter(locale.decimalPoint);
    customOptions->setThousandsSeparatorCharacter(locale.thousandsSeparator);
    localeDidChange();
}

void TCLine::localeDidChange() {
    invalidateResult();
    expressionDidChange();
    if (TCLineCollection* const collection = _lineCollection()) collection->_lineReadsDifferently(*this);
}

std::size_t TCLine::hash() const {
    return text ? text->hash() : 0;
}

bool TCLine::isEqual(const TCLine& other) const {
    if (text == other.text) return true;
    return text && other.text && text->isEqual(*other.text);
}
