#include "expressions/TCExpressionSubstituter.h"

#include "RegexKitLite.h"
#include "expressions/TCReadingShortcuts.h"
#include "expressions/TCRegexClues.h"
#include "runtime/TBFLog.h"
#include "runtime/Unicode.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

using OperatorType = TCExpressionSubstituterOperatorType;

// The marks keep a word apart from neighbouring letters and digits without adding a space.
constexpr char16_t markOpen = 0x16;
constexpr char16_t markClose = 0x17;

std::u16string marked(std::u16string_view word) {
    std::u16string text(1, markOpen);
    text += word;
    text += markClose;
    return text;
}

struct OperatorReplacement {
    OperatorType type;
    std::u16string_view name; // in property lists
    std::u16string_view word;
    bool isMarked;
    int32_t order; // the longer phrase before the one that is a part of it
};

constexpr auto operatorReplacements = std::to_array<OperatorReplacement>({
    {TCExpressionSubstituterOperatorTypeAsPercent, u"AsPercent", u"_as_percent", false, 15},
    {TCExpressionSubstituterOperatorTypePercentOn, u"PercentOn", u"_percent_on", true, 50},
    {TCExpressionSubstituterOperatorTypePercentOf, u"PercentOf", u"_percent_of", true, 40},
    {TCExpressionSubstituterOperatorTypePercentOff, u"PercentOff", u"_percent_off", true, 30},
    {TCExpressionSubstituterOperatorTypeAsPercentOn, u"AsPercentOn", u"_as_percent_on", false, 2},
    {TCExpressionSubstituterOperatorTypeAsPercentOf, u"AsPercentOf", u"_as_percent_of", false, 3},
    {TCExpressionSubstituterOperatorTypeAsPercentOff, u"AsPercentOff", u"_as_percent_off", false, 1},
    {TCExpressionSubstituterOperatorTypeAsPercentDecreaseOf, u"AsPercentDecreaseOf",
     u"_as_percent_decrease_of", false, 13},
    {TCExpressionSubstituterOperatorTypeAsPercentIncreaseOf, u"AsPercentIncreaseOf",
     u"_as_percent_increase_of", false, 14},
    {TCExpressionSubstituterOperatorTypePercentOnWhatIs, u"PercentOnWhatIs", u"_percent_on_what_is", true,
     11},
    {TCExpressionSubstituterOperatorTypePercentOfWhatIs, u"PercentOfWhatIs", u"_percent_of_what_is", true,
     12},
    {TCExpressionSubstituterOperatorTypePercentOffWhatIs, u"PercentOffWhatIs", u"_percent_off_what_is", true,
     10},
    {TCExpressionSubstituterOperatorTypeReverseAsPercentOn, u"ReverseAsPercentOn", u"_reverse_as_percent_on",
     false, 2},
    {TCExpressionSubstituterOperatorTypeReverseAsPercentOff, u"ReverseAsPercentOff",
     u"_reverse_as_percent_off", false, 1},
    {TCExpressionSubstituterOperatorTypeReversePercentOnWhatIs, u"ReversePercentOnWhatIs",
     u"_reverse_percent_on_what_is", true, 11},
    {TCExpressionSubstituterOperatorTypeReversePercentOfWhatIs, u"ReversePercentOfWhatIs",
     u"_reverse_percent_of_what_is", true, 12},
    {TCExpressionSubstituterOperatorTypeReversePercentOffWhatIs, u"ReversePercentOffWhatIs",
     u"_reverse_percent_off_what_is", true, 10},
});

// Null for a type that takes no patterns from outside.
const OperatorReplacement* getOperatorReplacement(OperatorType type) {
    const auto found = std::ranges::find(operatorReplacements, type, &OperatorReplacement::type);
    return found != operatorReplacements.end() ? &*found : nullptr;
}

struct SpecialCharacters {
    std::u16string_view characters;
    char16_t standardOperator;
};

constexpr auto specialCharacters = std::to_array<SpecialCharacters>({
    {u"\u00F7\uFF0F\u2044", u'/'}, // division sign, fullwidth and fraction slash
    {u"\u00D7\u00B7\uFF0A", u'*'}, // multiplication sign, middle dot, fullwidth asterisk
    {u"\u2010\u2011\u2012\u2013\u2212\uFE63\uFF0D", u'-'}, // hyphens, dashes, minus signs
    {u"\uFF0B", u'+'},
});

struct StandardString {
    std::u16string_view text;
    std::u16string_view replacement;
    bool isMarked;
};

constexpr auto standardStrings = std::to_array<StandardString>({
    {u"\u221A", u"sqrt", true},
    {u">>", u"lsr", true},
    {u"<<", u"lsl", true},
    {u"|", u"_bit_or", true},
    {u"&", u"_bit_and", true},
    {u"~", u"_bit_not", true},
    {u"\u00A0", u" ", false}, // the no-break space
});

constexpr std::size_t requiredCount = 3;
constexpr std::size_t alternativeCount = 2;

// The possessive "*+" takes all spaces and gives none back. It matches as "*" would, since none of what
// follows begins with a space, but a long run of spaces is walked once and not for each way to share it out.
struct StandardRegex {
    OperatorType type;
    std::u16string_view regex;
    // Texts in every match, one of each row; empty rows ask for nothing.
    std::u16string_view required[requiredCount][alternativeCount];
};

constexpr auto standardRegexes = std::to_array<StandardRegex>({
    {TCExpressionSubstituterOperatorTypePercentOffWhatIs,
     u"%\\s*+off\\s*+what\\s*+is",
     {{u"%"}, {u"off"}, {u"what"}}},
    {TCExpressionSubstituterOperatorTypePercentOnWhatIs,
     u"%\\s*+on\\s*+what\\s*+is",
     {{u"%"}, {u"on"}, {u"what"}}},
    {TCExpressionSubstituterOperatorTypePercentOfWhatIs,
     u"%\\s*+of\\s*+what\\s*+is",
     {{u"%"}, {u"of"}, {u"what"}}},
    {TCExpressionSubstituterOperatorTypeAsPercentDecreaseOf,
     u"as\\s*+(?:a\\s*+)?(%|percentage)\\s*+decrease\\s*+of",
     {{u"as"}, {u"%", u"percentage"}, {u"decrease"}}},
    {TCExpressionSubstituterOperatorTypeAsPercentIncreaseOf,
     u"as\\s*+(?:a\\s*+)?(%|percentage)\\s*+increase\\s*+of",
     {{u"as"}, {u"%", u"percentage"}, {u"increase"}}},
    {TCExpressionSubstituterOperatorTypeAsPercentOff,
     u"as\\s*+(?:a\\s*+)?(%|percentage)\\s*+off",
     {{u"as"}, {u"%", u"percentage"}, {u"off"}}},
    {TCExpressionSubstituterOperatorTypeAsPercentOf,
     u"as\\s*+(?:a\\s*+)?(%|percentage)\\s*+of",
     {{u"as"}, {u"%", u"percentage"}, {u"of"}}},
    {TCExpressionSubstituterOperatorTypeAsPercentOn,
     u"as\\s*+(?:a\\s*+)?(%|percentage)\\s*+on",
     {{u"as"}, {u"%", u"percentage"}, {u"on"}}},
    {TCExpressionSubstituterOperatorTypePercentOff, u"%\\s*+off", {{u"%"}, {u"off"}}},
    {TCExpressionSubstituterOperatorTypePercentOf, u"%\\s*+of", {{u"%"}, {u"of"}}},
    {TCExpressionSubstituterOperatorTypePercentOn, u"%\\s*+on", {{u"%"}, {u"on"}}},
    {TCExpressionSubstituterOperatorTypeAsPercent, u"as\\s*+(?:a\\s*+)?%", {{u"as"}, {u"%"}}},
});

const std::u16string conversionWords[] = {u"as", u"in", u"to"};

constexpr std::u16string_view unitConversionWord = u"__uc";

// A pattern that matches its own replacement stops there.
constexpr int64_t replacementBound = 1'000;

// A text that patterns made this many times longer, and this much, is rewritten no further.
constexpr std::size_t growthFactor = 16;
constexpr std::size_t growthAllowance = 65'536;

// Steps of the regular expressions for one line, all patterns together: a grant for any text, and one for
// each so many code units. The patterns of the system take a tenth of them at most.
constexpr int64_t stepsOfALine = 1'000;
constexpr std::size_t textPerStep = 100;

// Whether the pattern matches where there is nothing, at an edge or between characters of several kinds.
bool matchesNothing(std::u16string_view regex) {
    if (RegexKitLite::rangeOfRegex(u"", regex).isFound()) return true;
    std::u16string probe = u"1 a% b, 2 as A% of (3)";
    RKLReplacementWalk walk;
    RegexKitLite::replaceOccurrencesOfRegex(probe, regex, u"", RKLWholeString, &walk);
    return std::ranges::any_of(walk.made,
                               [](const RKLReplacement& made) { return made.matched.length == 0; });
}

// A pattern that doesn't compile, that matches where there is nothing, or that matches what it is replaced by
// would run without end, or turn every line into something else.
bool isBearable(std::u16string_view regex, std::u16string_view replacement) {
    const RKLStepBudget budget(stepsOfALine);
    if (!RegexKitLite::isRegexValid(regex) || matchesNothing(regex)) return false;
    return !RegexKitLite::rangeOfRegex(std::u16string(u" ").append(replacement).append(u" "), regex)
                .isFound();
}

void logUnbearable(std::u16string_view regex) {
    TBFErrorLog("The pattern '%s' matches nothing, or what it is replaced by; it is left out",
                TBF::utf8(regex).c_str());
}

// True for a word which a regular expression reads as itself.
bool isPlainWord(std::u16string_view word) {
    constexpr std::u16string_view special = u"\\|()[]{}^$*+?.#& \t";
    return !word.empty() && word.find_first_of(special) == word.npos;
}

// A word may be a pattern, without captures, since those of the whole are counted.
bool isConversionWord(std::u16string_view word) {
    if (isPlainWord(word)) return word != unitConversionWord;
    return RegexKitLite::captureCount(word) == 0 && isBearable(word, unitConversionWord);
}

std::u16string joined(std::span<const std::u16string> words, char16_t separator) {
    std::u16string text;
    for (const std::u16string& word : words) {
        if (!text.empty()) text += separator;
        text += word;
    }
    return text;
}

} // namespace

std::optional<TCExpressionSubstituterOperatorType>
TCExpressionSubstituterOperatorTypeForName(std::u16string_view name) {
    const auto found = std::ranges::find(operatorReplacements, name, &OperatorReplacement::name);
    if (found == operatorReplacements.end()) return std::nullopt;
    return found->type;
}

// The patterns in the order of their use, with the clues of them all. Immutable.
struct TCExpressionSubstituter::OrderedMappings {
    struct Entry {
        RegexMapping mapping;
        std::vector<TCExpressionClues::Set> required;

        bool canMatch(TCExpressionClues::Set present) const {
            return std::ranges::all_of(required, [&](TCExpressionClues::Set any) { return any & present; });
        }
    };

    OrderedMappings(std::span<const StringMapping> strings, std::span<const RegexMapping> regexes) {
        for (const StringMapping& mapping : strings)
            stringClues.push_back(clues.add({mapping.text}));
        for (const RegexMapping& mapping : regexes)
            entries.push_back({mapping, requirementsOf(mapping)});
        std::ranges::stable_sort(entries, {}, [](const Entry& entry) { return entry.mapping.order; });
    }

    // A list with a clue that there is no bit for asks for nothing.
    std::vector<TCExpressionClues::Set> requirementsOf(const RegexMapping& mapping) {
        std::vector<TCExpressionClues::Set> sets;
        for (const auto& alternatives : mapping.required) {
            TCExpressionClues::Set any = 0;
            bool isComplete = true;
            for (const TCExpressionClue& clue : alternatives) {
                const auto bit = clues.add(clue);
                any |= bit.value_or(0);
                isComplete = isComplete && bit;
            }
            if (isComplete) sets.push_back(any);
        }
        return sets;
    }

    std::vector<Entry> entries;
    TCExpressionClues clues;
    std::vector<std::optional<TCExpressionClues::Set>> stringClues; // as the string mappings
};

// A text on its way from the typed form to the last one.
class TCExpressionSubstituter::Rewriting {
public:
    Rewriting(std::u16string& text_, const TCExpressionClues& clues_)
        : text(text_)
        , clues(clues_)
        , longest(text_.size() * growthFactor + growthAllowance)
        , present(cluesInText()) {}

    TCExpressionClues::Set presentClues() const { return present; }
    bool isTooLong() const { return text.size() > longest; }

    // Until the pattern matches no more. Two phrases that share a delimiter are not found in one walk over
    // the text; the next walk finds the second one.
    void replaceRegex(const OrderedMappings::Entry& entry) {
        const RegexMapping& mapping = entry.mapping;
        int64_t count = 0;
        int64_t bound = replacementBound;
        do {
            RKLReplacementWalk walk;
            walk.refusesEmptyMatches = true;
            if (count > 0) walk.limit = bound - count;
            walk.capture = mapping.rightCaptureNumber.value_or(0);
            if (RegexKitLite::replaceOccurrencesOfRegex(text, mapping.regex, mapping.replacement,
                                                        RKLWholeString, &walk) <= 0)
                break;
            const auto replaced = static_cast<int64_t>(walk.made.size());
            if (count == 0) bound = std::max(bound, 2 * replaced);
            count += replaced;
            record(mapping, walk.made);
            present = cluesInText();
        } while (count < bound && !isTooLong() && entry.canMatch(present));
    }

    void replaceString(const StringMapping& mapping) {
        std::u16string rewritten;
        std::size_t copied = 0;
        replacements.clear();
        for (std::size_t place = text.find(mapping.text); place != text.npos;
             place = text.find(mapping.text, copied)) {
            rewritten.append(text, copied, place - copied);
            rewritten += mapping.replacement;
            copied = place + mapping.text.size();
            replacements.push_back({{static_cast<int64_t>(place), static_cast<int64_t>(mapping.text.size())},
                                    static_cast<int64_t>(mapping.replacement.size())});
        }
        if (replacements.empty()) return;
        rewritten.append(text, copied);
        text = std::move(rewritten);
        recordReplacements();
    }

    // Null when nothing was replaced.
    std::shared_ptr<const TCExpressionMappings> mappings() const { return made; }

private:
    TCExpressionClues::Set cluesInText() const {
        return TCReadingShortcuts::areEnabled() ? clues.presentIn(text) : ~TCExpressionClues::Set{0};
    }

    // The delimiters at both ends of a match stand for themselves.
    void record(const RegexMapping& mapping, std::span<const RKLReplacement> matches) {
        replacements.clear();
        for (const RKLReplacement& match : matches) {
            const int64_t shorter = std::min(match.matched.length, match.insertedLength);
            const int64_t left = std::clamp<int64_t>(mapping.leftCutoff, 0, shorter);
            const bool endsText = mapping.rightCaptureNumber && match.capture.length == 0;
            const int64_t right = endsText ? 0 : std::clamp<int64_t>(mapping.rightCutoff, 0, shorter - left);
            replacements.push_back({{match.matched.location + left, match.matched.length - left - right},
                                    match.insertedLength - left - right});
        }
        recordReplacements();
    }

    void recordReplacements() {
        if (!made) made = std::make_shared<TCExpressionMappings>();
        made->addReplacements(replacements);
    }

    std::u16string& text;
    const TCExpressionClues& clues;
    std::size_t longest;
    TCExpressionClues::Set present;
    std::vector<TCExpressionMappings::Replacement> replacements; // of one walk
    std::shared_ptr<TCExpressionMappings> made;
};

TCExpressionSubstituter::TCExpressionSubstituter() = default;
TCExpressionSubstituter::~TCExpressionSubstituter() = default;

const std::shared_ptr<TCExpressionSubstituter>& TCExpressionSubstituter::defaultSubstituter() {
    static const auto shared = [] {
        auto substituter = std::make_shared<TCExpressionSubstituter>();
        substituter->addStandardMappings();
        return substituter;
    }();
    return shared;
}

void TCExpressionSubstituter::addStandardMappings() {
    for (const SpecialCharacters& row : specialCharacters) {
        for (const char16_t character : row.characters)
            addMappingFromSpecialOperatorCharacter(character, row.standardOperator);
    }
    for (const StandardString& row : standardStrings)
        addMappingFromString(row.text,
                             row.isMarked ? marked(row.replacement) : std::u16string(row.replacement));
    setUnitConversionOperators(conversionWords);
    for (const StandardRegex& row : standardRegexes) {
        const OperatorReplacement& replacement = *getOperatorReplacement(row.type);
        RegexMapping mapping;
        mapping.regex = row.regex;
        mapping.replacement = replacement.isMarked ? marked(replacement.word) : replacement.word;
        mapping.order = replacement.order;
        mapping.operatorType = row.type;
        for (const auto& alternatives : row.required) {
            std::vector<TCExpressionClue> any;
            for (const std::u16string_view text : alternatives) {
                if (!text.empty()) any.push_back({std::u16string(text)});
            }
            if (!any.empty()) mapping.required.push_back(std::move(any));
        }
        add(std::move(mapping));
    }
    setLineReferenceWordString(u"line");
}

void TCExpressionSubstituter::addMappingFromSpecialOperatorCharacter(char16_t character,
                                                                     char16_t standardOperator) {
    operatorMappings.push_back({character, standardOperator});
    didChange();
}

void TCExpressionSubstituter::addMappingFromString(std::u16string_view text,
                                                   std::u16string_view replacement) {
    if (text.empty()) return;
    const auto known = std::ranges::find(stringMappings, text, &StringMapping::text);
    if (known != stringMappings.end()) {
        known->replacement = replacement;
    } else {
        stringMappings.push_back({std::u16string(text), std::u16string(replacement)});
    }
    didChange();
}

void TCExpressionSubstituter::addMappingFromRegex(std::u16string_view regex, std::u16string_view replacement,
                                                  int32_t order) {
    setMappingFromRegex(regex, replacement, order, 0, 0);
}

void TCExpressionSubstituter::setMappingFromRegex(std::u16string_view regex, std::u16string_view replacement,
                                                  int32_t order, int32_t leftCutoff, int32_t rightCutoff,
                                                  std::optional<int32_t> rightCaptureNumber,
                                                  OperatorType operatorType) {
    add({std::u16string(regex), std::u16string(replacement), order, operatorType, leftCutoff, rightCutoff,
         rightCaptureNumber, TCRequiredCluesOfRegex(regex)});
}

void TCExpressionSubstituter::addOperatorRegex(std::u16string_view regex, OperatorType operatorType) {
    const OperatorReplacement* const replacement = getOperatorReplacement(operatorType);
    if (!replacement) {
        TBFErrorLog("Unknown operator type %d", operatorType);
        return;
    }
    const std::u16string word(replacement->isMarked ? marked(replacement->word) : replacement->word);
    if (!isBearable(regex, word)) return logUnbearable(regex);
    setMappingFromRegex(regex, word, replacement->order, 0, 0, std::nullopt, operatorType);
}

void TCExpressionSubstituter::removeOperatorRegexesForOperatorType(OperatorType operatorType) {
    {
        const std::lock_guard lock(mutex);
        std::erase_if(regexMappings,
                      [&](const RegexMapping& mapping) { return mapping.operatorType == operatorType; });
    }
    didChange();
}

void TCExpressionSubstituter::setUnitConversionOperators(std::span<const std::u16string> candidates) {
    std::vector<std::u16string> words;
    for (const std::u16string& word : candidates) {
        if (isConversionWord(word))
            words.push_back(word);
        else
            logUnbearable(word);
    }
    if (words.empty()) return;
    RegexMapping mapping;
    mapping.regex = u"([) ])(" + joined(words, u'|') + u")([) ]|$)";
    mapping.replacement = u"$1" + std::u16string(unitConversionWord) + u"$3";
    mapping.operatorType = TCExpressionSubstituterOperatorTypeUnitConversion;
    mapping.leftCutoff = 1;
    mapping.rightCutoff = 1;
    mapping.rightCaptureNumber = 3;
    if (std::ranges::all_of(words, isPlainWord)) {
        std::vector<TCExpressionClue> any;
        for (const std::u16string& word : words)
            any.push_back({word, TCExpressionCluePlaceDelimited});
        mapping.required.push_back(std::move(any));
    }
    {
        const std::lock_guard lock(mutex);
        std::erase_if(regexMappings,
                      [&](const RegexMapping& old) { return old.operatorType == mapping.operatorType; });
        regexMappings.push_back(std::move(mapping));
    }
    didChange();
}

void TCExpressionSubstituter::setLineReferenceWordString(std::u16string_view word) {
    std::u16string lowercase = TBF::lowercase(word);
    {
        const std::lock_guard lock(mutex);
        if (lineReferenceWord == lowercase) return;
        lineReferenceWord = lowercase;
    }
    if (lowercase.empty()) return;
    RegexMapping mapping;
    mapping.regex = u"(?i)" + lowercase + u"([0-9]+)";
    mapping.replacement = u"(___abs_line_numbered($1))";
    if (!isBearable(mapping.regex, u"(___abs_line_numbered(1))")) return logUnbearable(mapping.regex);
    if (isPlainWord(lowercase))
        mapping.required.push_back({{std::move(lowercase), TCExpressionCluePlaceBeforeDigit}});
    add(std::move(mapping));
}

std::u16string TCExpressionSubstituter::lineReferenceWordString() const {
    const std::lock_guard lock(mutex);
    return lineReferenceWord;
}

std::shared_ptr<const TCExpressionMappings>
TCExpressionSubstituter::applySubstitutionsToMutableString(std::u16string& text) const {
    static const auto identity = std::make_shared<const TCExpressionMappings>();
    replaceSpecialCharacters(text);
    const std::shared_ptr<const OrderedMappings> ordered = orderedRegexMappings();
    const RKLStepBudget budget(stepsOfALine + static_cast<int64_t>(text.size() / textPerStep));
    Rewriting rewriting(text, ordered->clues);
    for (const OrderedMappings::Entry& entry : ordered->entries) {
        if (rewriting.isTooLong()) break;
        if (entry.canMatch(rewriting.presentClues())) rewriting.replaceRegex(entry);
    }
    for (std::size_t i = 0; i < stringMappings.size(); ++i) {
        const auto clue = ordered->stringClues[i];
        if (!clue || (*clue & rewriting.presentClues())) rewriting.replaceString(stringMappings[i]);
    }
    auto mappings = rewriting.mappings();
    return mappings ? mappings : identity;
}

void TCExpressionSubstituter::replaceSpecialCharacters(std::u16string& text) const {
    if (operatorMappings.empty()) return;
    const char16_t lowest =
        std::ranges::min_element(operatorMappings, {}, &OperatorMapping::character)->character;
    for (char16_t& unit : text) {
        if (unit < lowest) continue;
        for (const OperatorMapping& mapping : operatorMappings) {
            if (unit == mapping.character) unit = mapping.standardOperator;
        }
    }
}

void TCExpressionSubstituter::add(RegexMapping mapping) {
    {
        const std::lock_guard lock(mutex);
        regexMappings.push_back(std::move(mapping));
    }
    didChange();
}

void TCExpressionSubstituter::didChange() {
    const std::lock_guard lock(mutex);
    _orderedRegexMappings.reset();
    ++changes;
}

std::shared_ptr<const TCExpressionSubstituter::OrderedMappings>
TCExpressionSubstituter::orderedRegexMappings() const {
    const std::lock_guard lock(mutex);
    if (!_orderedRegexMappings)
        _orderedRegexMappings = std::make_shared<const OrderedMappings>(stringMappings, regexMappings);
    return _orderedRegexMappings;
}
