#pragma once

// Replaces references to lines in a text by what a delegate says stands for them. Works on a line, on a
// parsed expression, or on bare text; within comments, references become plain text. Used on the document's
// thread.

#include "expressions/TCLineReferenceType.h"
#include "results/TCAttributedString.h"

#include <any>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

class TCExpressionToken;
class TCLine;
class TCLineCollection;
class TCParsedExpression;
class TCPlainTextLineReferenceSubstituterDelegate;

class TCLineReferenceSubstituterDelegate {
public:
    virtual ~TCLineReferenceSubstituterDelegate() = default;

    // What stands for a reference on the line of that index; none leaves it as it is.
    virtual std::optional<TCAttributedString> stringForLineReference(TCLineReferenceType type, int64_t number,
                                                                     std::size_t lineIndex,
                                                                     TCLineCollection& lineCollection,
                                                                     const std::any& contextInfo) = 0;
};

class TCLineReferenceSubstituter {
public:
    // The text with its replacements; none where there was no text, or a line of no known kind. Without
    // attributes there are no runs in it.
    using Text = std::optional<TCAttributedString>;

    // The delegate is not owned and must outlive this; it may be null, then only comments change.
    TCLineReferenceSubstituter(std::shared_ptr<TCLineCollection> lineCollection,
                               TCLineReferenceSubstituterDelegate* delegate);
    ~TCLineReferenceSubstituter();

    // `typeMask` has the bits of the TCLineReferenceTypes to replace; `contextInfo` goes to the delegate.
    Text stringByReplacingLineReferencesOfType(int32_t typeMask, const TCLine& line,
                                               const std::any& contextInfo, bool attributedString);
    Text stringByReplacingLineReferencesOfType(int32_t typeMask, const TCParsedExpression* parsedExpression,
                                               std::size_t onLineIndex, const std::any& contextInfo,
                                               bool attributedString);

    // On a text that belongs to no line; comments in it are read as text.
    Text substitutedExpressionString(std::u16string_view text, int32_t typeMask, std::size_t lineIndex,
                                     const std::any& contextInfo,
                                     TCLineReferenceSubstituterDelegate* substitutionDelegate,
                                     bool isAttributedString);

    // All at once, for a plain string.
    static std::optional<std::u16string> stringByReplacingLineReferencesOfType(
        int32_t typeMask, const TCLine& line, std::shared_ptr<TCLineCollection> lineCollection,
        TCLineReferenceSubstituterDelegate* substitutionDelegate, const std::any& contextInfo);

private:
    struct Request;
    Text substitute(const TCParsedExpression* parsedExpression, const Request& request);
    Text replacementOf(const TCExpressionToken& token, std::u16string_view text, const Request& request);

    std::shared_ptr<TCLineCollection> collection;
    TCLineReferenceSubstituterDelegate* replacer; // not owned
    std::unique_ptr<TCPlainTextLineReferenceSubstituterDelegate> plainReplacer;
};
