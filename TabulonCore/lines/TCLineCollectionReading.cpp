// The document read as a whole: previews, texts and answers in a row.

#include "lines/TCLine.h"
#include "lines/TCLineCollection.h"
#include "results/TCResult.h"
#include "runtime/Unicode.h"

#include <algorithm>
#include <cstdio>
#include <functional>

namespace {

constexpr std::size_t previewLength = 100; // code units

std::u16string textOf(const TCLine& line) {
    return line.expressionString().value_or(std::u16string());
}

} // namespace

bool TCLineCollection::isEmpty() const {
    return std::all_of(lines.begin(), lines.end(), [](const auto& line) { return textOf(*line).empty(); });
}

std::vector<std::shared_ptr<TCResult>> TCLineCollection::results() {
    std::vector<std::shared_ptr<TCResult>> results;
    results.reserve(lines.size());
    for (const auto& line : lines)
        if (auto result = line->result()) results.push_back(std::move(result));
    return results;
}

bool TCLineCollection::resultsDifferFromResults(const std::vector<std::shared_ptr<TCResult>>& others) {
    const std::vector<std::shared_ptr<TCResult>> own = results();
    return !std::equal(
        own.begin(), own.end(), others.begin(), others.end(),
        [](const auto& a, const auto& b) { return a == b || (a && b && a->isEqual(b.get())); });
}

std::size_t TCLineCollection::hash() {
    const std::hash<std::u16string> hashOf;
    std::size_t hash = 0;
    for (const auto& line : lines) {
        const std::shared_ptr<TCResult> result = line->result();
        hash ^= hashOf(textOf(*line));
        hash ^= hashOf(result ? result->completeStringValue().value_or(std::u16string()) : std::u16string());
    }
    return hash;
}

std::u16string TCLineCollection::fullPreview() const {
    std::u16string preview;
    for (std::size_t i = 0; i < lines.size() && preview.size() <= previewLength; ++i) {
        const std::u16string text = textOf(*lines[i]);
        if (text.empty()) continue;
        preview += text;
        if (i + 1 < lines.size()) preview += u", ";
    }
    return preview.substr(0, previewLength);
}

std::u16string TCLineCollection::stringOfAllExpressionsSeperatedByDivider(std::u16string_view divider) const {
    std::u16string all;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (i > 0) all += divider;
        all += textOf(*lines[i]);
    }
    return all;
}

std::u16string TCLineCollection::jumpedAnswerStyleStringWithDivider(std::u16string_view divider) {
    std::u16string all;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (i > 0) all += u'\n';
        const std::u16string text = textOf(*lines[i]);
        if (text.empty()) continue;
        all += text;
        all += u' ';
        all += divider;
        all += u' ';
        all += lines[i]->formattedResult().value_or(std::u16string());
    }
    return all;
}

std::u16string TCLineCollection::expressionAndResultOnLineIndex(std::size_t index,
                                                                std::u16string_view dividerCharacter) {
    const std::shared_ptr<TCLine> line = lineAtIndex(index);
    if (!line) return std::u16string(dividerCharacter);
    return textOf(*line) + std::u16string(dividerCharacter) +
           line->formattedResult().value_or(std::u16string());
}

std::vector<std::u16string> TCLineCollection::arrayOfExpressions() const {
    std::vector<std::u16string> texts;
    texts.reserve(lines.size());
    for (const auto& line : lines)
        texts.push_back(textOf(*line));
    return texts;
}

std::u16string TCLineCollection::description() {
    char address[32];
    std::snprintf(address, sizeof address, "%p \n", static_cast<const void*>(this));
    return TBF::utf16(address) + jumpedAnswerStyleStringWithDivider(u"=");
}
