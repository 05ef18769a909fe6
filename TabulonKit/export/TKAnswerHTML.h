#pragma once

// An answer as it stands in a cell of a page.

#include <string>

class TCResult;
class TCResultFormattingOptions;

// The answer's text, escaped, with the exponent of scientific form in a span of its own; the text of an
// error; empty for an answer without a text.
std::u16string TKAnswerHTML(TCResult& result, const TCResultFormattingOptions& options);
