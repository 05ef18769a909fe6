#include "lines/TCLineCollectionReading.h"

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

namespace TCLineCollectionReading {

bool isEmpty(const TCLineCollection& document) {
    return std::all_of(document.begin(), document.end(),
                       [](const auto& line) { return textOf(*line).empty(); });
}

std::vector<std::shared_ptr<TCResult>> results(TCLineCollection& document) {
    std::vector<std::shared_ptr<TCResult>> results;
    results.reserve(document.countOfLines());
    for (const auto& line : document)
        if (auto result = line->result()) results.push_back(std::move(result));
    return results;
}

bool resultsDifferFromResults(TCLineCollection& document,
                              const std::vector<std::shared_ptr<TCResult>>& others) {
    const std::vector<std::shared_ptr<TCResult>> own = results(document);
    return !std::equal(
        own.begin(), own.end(), others.begin(), others.end(),
        [](const auto& a, const auto& b) { return a == b || (a && b && a->isEqual(b.get())); });
}

std::size_t hash(TCLineCollection& document) {
    const std::hash<std::u16string> hashOf;
    std::size_t hash = 0;
    for (const auto& line : document) {
        const std::shared_ptr<TCResult> result = line->result();
        hash ^= hashOf(textOf(*line));
        hash ^= hashOf(result ? result->completeStringValue().value_or(std::u16string()) : std::u16string());
    }
    return hash;
}

std::u16string fullPreview(const TCLineCollection& document) {
    std::u16string preview;
    for (std::size_t i = 0; i < document.countOfLines() && preview.size() <= previewLength; ++i) {
        const std::u16string text = textOf(*document.begin()[i]);
        if (text.empty()) continue;
        preview += text;
        if (i + 1 < document.countOfLines()) preview += u", ";
    }
    return preview.substr(0, previewLength);
}

std::u16string stringOfAllExpressionsSeperatedByDivider(const TCLineCollection& document,
                                                        std::u16string_view divider) {
    std::u16string all;
    for (std::size_t i = 0; i < document.countOfLines(); ++i) {
        if (i > 0) all += divider;
        all += textOf(*document.begin()[i]);
    }
    return all;
}

std::u16string jumpedAnswerStyleStringWithDivider(TCLineCollection& document, std::u16string_view divider) {
    std::u16string all;
    for (std::size_t i = 0; i < document.countOfLines(); ++i) {
        if (i > 0) all += u'\n';
        const std::u16string text = textOf(*document.begin()[i]);
        if (text.empty()) continue;
        all += text;
        all += u' ';
        all += divider;
        all += u' ';
        all += document.begin()[i]->formattedResult().value_or(std::u16string());
    }
    return all;
}

std::u16string expressionAndResultOnLineIndex(TCLineCollection& document, std::size_t index,
                                              std::u16string_view dividerCharacter) {
    const std::shared_ptr<TCLine> line = document.lineAtIndex(index);
    if (!line) return std::u16string(dividerCharacter);
    return textOf(*line) + std::u16string(dividerCharacter) +
           line->formattedResult().value_or(std::u16string());
}

std::vector<std::u16string> arrayOfExpressions(const TCLineCollection& document) {
    std::vector<std::u16string> texts;
    texts.reserve(document.countOfLines());
    for (const auto& line : document)
        texts.push_back(textOf(*line));
    return texts;
}

std::u16string description(TCLineCollection& document) {
    char address[32];
    std::snprintf(address, sizeof address, "%p \n", static_cast<const void*>(&document));
    return TBF::utf16(address) + jumpedAnswerStyleStringWithDivider(document, u"=");
}

} // namespace TCLineCollectionReading
