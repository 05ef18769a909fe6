#pragma once

// Rewrites the spellings which the foundation's scanner can't read into ones that it can, before a line is
// tokenized, and records what it rewrote: typographic operators, phrases around percentages, the conversion
// words, and worded references to other lines. One instance is shared. Its regular expressions may change at
// any time, on any thread; its special characters and strings only while it is set up.

#include "expressions/TCExpressionClues.h"
#include "expressions/TCExpressionMappings.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// What a regular expression's phrase means. A localization adds patterns by these types.
enum TCExpressionSubstituterOperatorType : int32_t {
    TCExpressionSubstituterOperatorTypeNone = 0,
    TCExpressionSubstituterOperatorTypeAsPercent = 1,
    TCExpressionSubstituterOperatorTypePercentOn = 2,
    TCExpressionSubstituterOperatorTypePercentOf = 3,
    TCExpressionSubstituterOperatorTypePercentOff = 4,
    TCExpressionSubstituterOperatorTypeAsPercentOn = 5,
    TCExpressionSubstituterOperatorTypeAsPercentOf = 6,
    TCExpressionSubstituterOperatorTypeAsPercentOff = 7,
    TCExpressionSubstituterOperatorTypeAsPercentDecreaseOf = 8,
    TCExpressionSubstituterOperatorTypeAsPercentIncreaseOf = 9,
    TCExpressionSubstituterOperatorTypePercentOnWhatIs = 10,
    TCExpressionSubstituterOperatorTypePercentOfWhatIs = 11,
    TCExpressionSubstituterOperatorTypePercentOffWhatIs = 12,
    TCExpressionSubstituterOperatorTypeReverseAsPercentOn = 13,
    TCExpressionSubstituterOperatorTypeReverseAsPercentOff = 14,
    TCExpressionSubstituterOperatorTypeReversePercentOnWhatIs = 15,
    TCExpressionSubstituterOperatorTypeReversePercentOfWhatIs = 16,
    TCExpressionSubstituterOperatorTypeReversePercentOffWhatIs = 17,
    TCExpressionSubstituterOperatorTypeUnitConversion = 18, // set by setUnitConversionOperators alone
};

// The type with that name in a localization's property list, "PercentOf" for one.
std::optional<TCExpressionSubstituterOperatorType>
TCExpressionSubstituterOperatorTypeForName(std::u16string_view name);

class TCExpressionSubstituter {
public:
    static constexpr int32_t defaultOrder = 100;

    // The one for all lines, with the standard patterns.
    static const std::shared_ptr<TCExpressionSubstituter>& defaultSubstituter();

    // Without any pattern.
    TCExpressionSubstituter();
    ~TCExpressionSubstituter();

    // One code unit for another.
    void addMappingFromSpecialOperatorCharacter(char16_t character, char16_t standardOperator);
    void addMappingFromString(std::u16string_view text, std::u16string_view replacement);

    // Patterns of lower order run first, those of one order as they were added.
    void addMappingFromRegex(std::u16string_view regex, std::u16string_view replacement,
                             int32_t order = defaultOrder);

    // The cutoffs count code units at the two ends of a match, and of its replacement, that belong to the
    // text around the phrase. The right one counts only where the capture, if one is given, isn't empty.
    void setMappingFromRegex(
        std::u16string_view regex, std::u16string_view replacement, int32_t order, int32_t leftCutoff,
        int32_t rightCutoff, std::optional<int32_t> rightCaptureNumber = std::nullopt,
        TCExpressionSubstituterOperatorType operatorType = TCExpressionSubstituterOperatorTypeNone);

    // These come with the content. What the substituter can't bear is logged, and left out.
    void addOperatorRegex(std::u16string_view regex, TCExpressionSubstituterOperatorType operatorType);
    void removeOperatorRegexesForOperatorType(TCExpressionSubstituterOperatorType operatorType);

    // The words between two values that ask for a conversion, in place of those before. No words: no change.
    // A word may be a regular expression; what the substituter can't bear is logged, and left out.
    void setUnitConversionOperators(std::span<const std::u16string> words);

    // The word in front of a line's number. A word stays in use after another one is set.
    void setLineReferenceWordString(std::u16string_view word);
    std::u16string lineReferenceWordString() const;

    // Rewrites the text in place. Never null.
    std::shared_ptr<const TCExpressionMappings> applySubstitutionsToMutableString(std::u16string& text) const;
    std::shared_ptr<const TCExpressionMappings> _regexParseExpressionString(std::u16string& text) const {
        return applySubstitutionsToMutableString(text);
    }

    // Goes up with every change of the patterns: a text that was rewritten at the same state would come out
    // the same again.
    uint64_t stateIndicator() const { return changes; }

private:
    struct OperatorMapping {
        char16_t character;
        char16_t standardOperator;
    };

    struct RegexMapping {
        std::u16string regex;
        std::u16string replacement;
        int32_t order = defaultOrder;
        TCExpressionSubstituterOperatorType operatorType = TCExpressionSubstituterOperatorTypeNone;
        int32_t leftCutoff = 0;
        int32_t rightCutoff = 0;
        std::optional<int32_t> rightCaptureNumber;
        // A match holds one clue of each list.
        std::vector<std::vector<TCExpressionClue>> required;
    };

    struct StringMapping {
        std::u16string text;
        std::u16string replacement;
    };

    struct OrderedMappings;
    class Rewriting;

    void addStandardMappings();
    void add(RegexMapping mapping);
    void didChange();
    std::shared_ptr<const OrderedMappings> orderedRegexMappings() const;
    void replaceSpecialCharacters(std::u16string& text) const;

    std::vector<OperatorMapping> operatorMappings;
    std::vector<StringMapping> stringMappings;
    std::atomic<uint64_t> changes = 0;

    mutable std::mutex mutex; // over what follows
    std::vector<RegexMapping> regexMappings;
    std::u16string lineReferenceWord;
    mutable std::shared_ptr<const OrderedMappings> _orderedRegexMappings; // null after a change
};
