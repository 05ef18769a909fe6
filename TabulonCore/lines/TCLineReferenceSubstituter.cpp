#include "lines/TCLineReferenceSubstituter.h"

#include "environment/TCBuiltins.h"
#include "environment/TCEnvironment.h"
#include "expressions/TCExpression.h"
#include "expressions/TCExpressionParser.h"
#include "expressions/TCExpressionToken.h"
#include "expressions/TCParsedExpression.h"
#include "lines/TCLine.h"
#include "lines/TCLineCollection.h"
#include "lines/TCPlainTextLineReferenceSubstituterDelegate.h"
#include "runtime/TBFLog.h"

#include <utility>

namespace {

// Bare text has no names but those of the references.
const std::shared_ptr<TCEnvironment>& bareEnvironment() {
    static const std::shared_ptr<TCEnvironment> environment = [] {
        auto made = TCEnvironment::make();
        made->setFunctions(TCBuiltins::functions());
        return made;
    }();
    return environment;
}

bool fits(TCRange range, std::u16string_view text) {
    return range.location >= 0 && range.length >= 0 && range.location <= std::ssize(text) &&
           range.length <= std::ssize(text) - range.location;
}

// What stood behind the range moves with its text; nothing was replaced there before, so no run ends inside.
void replace(TCAttributedString& text, TCRange range, const TCAttributedString& replacement) {
    const auto start = static_cast<int32_t>(range.location);
    const auto growth = static_cast<int32_t>(replacement.text.size()) - static_cast<int32_t>(range.length);
    text.text.replace(static_cast<std::size_t>(range.location), static_cast<std::size_t>(range.length),
                      replacement.text);
    for (auto& run : text.runs)
        if (run.range.location >= start) run.range.location += growth;
    for (auto run : replacement.runs) {
        run.range.location += start;
        text.runs.push_back(std::move(run));
    }
}

} // namespace

// What the main routine needs beside the tokens.
struct TCLineReferenceSubstituter::Request {
    int32_t typeMask;
    std::size_t lineIndex;
    const std::any& contextInfo;
    TCLineReferenceSubstituterDelegate* delegate;
    bool isAttributed;
    bool descendsIntoComments;
};

TCLineReferenceSubstituter::TCLineReferenceSubstituter(std::shared_ptr<TCLineCollection> lineCollection,
                                                       TCLineReferenceSubstituterDelegate* delegate)
    : collection(std::move(lineCollection))
    , replacer(delegate)
    , plainReplacer(std::make_unique<TCPlainTextLineReferenceSubstituterDelegate>()) {}

TCLineReferenceSubstituter::~TCLineReferenceSubstituter() = default;

TCLineReferenceSubstituter::Text TCLineReferenceSubstituter::stringByReplacingLineReferencesOfType(
    int32_t typeMask, const TCLine& line, const std::any& contextInfo, bool attributedString) {
    switch (line.lineType()) {
    case TCLineTypePlainText: {
        const auto text = line.expressionString();
        if (!text) return std::nullopt;
        return substitutedExpressionString(*text, typeMask, line.index(), contextInfo, replacer,
                                           attributedString);
    }
    case TCLineTypeNormal:
    case TCLineTypeVariableDeclaration:
        return stringByReplacingLineReferencesOfType(typeMask, line.parsedExpression().get(), line.index(),
                                                     contextInfo, attributedString);
    default:
        return std::nullopt;
    }
}

TCLineReferenceSubstituter::Text TCLineReferenceSubstituter::stringByReplacingLineReferencesOfType(
    int32_t typeMask, const TCParsedExpression* parsedExpression, std::size_t onLineIndex,
    const std::any& contextInfo, bool attributedString) {
    return substitute(parsedExpression,
                      {typeMask, onLineIndex, contextInfo, replacer, attributedString, true});
}

TCLineReferenceSubstituter::Text TCLineReferenceSubstituter::substitutedExpressionString(
    std::u16string_view text, int32_t typeMask, std::size_t lineIndex, const std::any& contextInfo,
    TCLineReferenceSubstituterDelegate* substitutionDelegate, bool isAttributedString) {
    TCExpressionParser parser(bareEnvironment());
    parser.setEnableComments(false);
    const auto expression = TCExpression::expressionWithString(std::u16string(text));
    return substitute(parser.parseExpression(expression).get(),
                      {typeMask, lineIndex, contextInfo, substitutionDelegate, isAttributedString, false});
}

std::optional<std::u16string> TCLineReferenceSubstituter::stringByReplacingLineReferencesOfType(
    int32_t typeMask, const TCLine& line, std::shared_ptr<TCLineCollection> lineCollection,
    TCLineReferenceSubstituterDelegate* substitutionDelegate, const std::any& contextInfo) {
    TCLineReferenceSubstituter substituter(std::move(lineCollection), substitutionDelegate);
    Text text = substituter.stringByReplacingLineReferencesOfType(typeMask, line, contextInfo, false);
    return text ? std::optional(std::move(text->text)) : std::nullopt;
}

// From the last token to the first, so that the ranges ahead stay valid.
TCLineReferenceSubstituter::Text
TCLineReferenceSubstituter::substitute(const TCParsedExpression* parsedExpression, const Request& request) {
    const auto expression = parsedExpression ? parsedExpression->expression() : nullptr;
    if (!expression || !expression->originalString()) return std::nullopt;
    TCAttributedString result{*expression->originalString(), {}};
    const TCExpressionTokens tokens = parsedExpression->tokens(); // a delegate may have them made anew
    for (auto token = tokens.rbegin(); token != tokens.rend(); ++token) {
        Text replacement = replacementOf(**token, *expression->originalString(), request);
        if (!replacement) continue;
        if (!fits((*token)->range(), result.text)) {
            TBFErrorLog("WARNING: Bad error trying to replace characters in a string");
            continue;
        }
        if (!request.isAttributed) replacement->runs.clear();
        replace(result, (*token)->range(), *replacement);
    }
    return result;
}

TCLineReferenceSubstituter::Text TCLineReferenceSubstituter::replacementOf(const TCExpressionToken& token,
                                                                           std::u16string_view text,
                                                                           const Request& request) {
    if (token.lineReferenceType() & request.typeMask) {
        if (!request.delegate || !collection) return std::nullopt;
        return request.delegate->stringForLineReference(token.lineReferenceType(),
                                                        token.lineReferenceNumber(), request.lineIndex,
                                                        *collection, request.contextInfo);
    }
    const bool isComment = token.type() == TCExpressionTokenTypeComment;
    if (!request.descendsIntoComments || !isComment || !fits(token.range(), text)) return std::nullopt;
    const std::u16string_view comment = text.substr(static_cast<std::size_t>(token.range().location),
                                                    static_cast<std::size_t>(token.range().length));
    if (comment.find(u"___") == std::u16string_view::npos) return std::nullopt;
    return substitutedExpressionString(comment, request.typeMask, request.lineIndex, request.contextInfo,
                                       plainReplacer.get(), request.isAttributed);
}
