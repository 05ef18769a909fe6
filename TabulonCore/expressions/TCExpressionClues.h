#pragma once

// Finds with one walk over a text which of a set of short texts stand in it. A pattern names the clues
// without which it can't match, and most lines hold none of them, so that no regular expression has to run. A
// clue found says only that a match is possible. Filled on one thread; reading is safe on any.

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

enum TCExpressionCluePlace : int32_t {
    TCExpressionCluePlaceAnywhere = 0,
    TCExpressionCluePlaceDelimited = 1,   // behind a space or ")", before one of them or the end of a line
    TCExpressionCluePlaceBeforeDigit = 2, // in any case of letters
    TCExpressionCluePlaceInAnyCase = 3,   // anywhere; the clue is in lower case
};

struct TCExpressionClue {
    std::u16string text;
    TCExpressionCluePlace place = TCExpressionCluePlaceAnywhere;

    bool operator==(const TCExpressionClue&) const = default;
};

class TCExpressionClues {
public:
    using Set = uint64_t; // a bit for each clue

    // The clue's bit. None when there are no more bits, or for an empty text.
    std::optional<Set> add(const TCExpressionClue& clue);

    // The clues that stand in the text.
    Set presentIn(std::u16string_view text) const;

private:
    static constexpr std::size_t asciiCount = 128;

    bool standsAt(const TCExpressionClue& clue, std::u16string_view text, std::size_t index) const;

    std::vector<TCExpressionClue> clues;
    // The clues to be tried where a code unit stands: those that begin with it, at digits those before a
    // digit.
    std::array<Set, asciiCount> triedAt{};
    Set triedAtOthers = 0;
};
