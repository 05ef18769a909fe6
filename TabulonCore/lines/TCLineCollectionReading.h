#pragma once

// A document read as a whole: its texts and answers in a row, for previews, lists and comparisons. What takes
// a document that may change asks its lines for answers, and so evaluates those that have none yet. For use
// on the document's thread.

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class TCLineCollection;
class TCResult;

namespace TCLineCollectionReading {

bool isEmpty(const TCLineCollection& document); // no line has any text
std::vector<std::u16string> arrayOfExpressions(const TCLineCollection& document);
std::u16string stringOfAllExpressionsSeperatedByDivider(const TCLineCollection& document,
                                                        std::u16string_view divider);

// The texts of the lines that have any, with commas between; at most 100 code units.
std::u16string fullPreview(const TCLineCollection& document);

// The answers that there are, in document order.
std::vector<std::shared_ptr<TCResult>> results(TCLineCollection& document);
bool resultsDifferFromResults(TCLineCollection& document,
                              const std::vector<std::shared_ptr<TCResult>>& others);

// By texts and answers.
std::size_t hash(TCLineCollection& document);

// Text, divider and answer: of every line, or of one. A line that isn't there is the divider alone.
std::u16string jumpedAnswerStyleStringWithDivider(TCLineCollection& document, std::u16string_view divider);
std::u16string expressionAndResultOnLineIndex(TCLineCollection& document, std::size_t index,
                                              std::u16string_view dividerCharacter);

// For developers.
std::u16string description(TCLineCollection& document);

} // namespace TCLineCollectionReading
