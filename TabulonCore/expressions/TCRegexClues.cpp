#include "expressions/TCRegexClues.h"

#include "runtime/Unicode.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>

namespace {

using Alternatives = std::vector<std::u16string>;
using Requirements = std::vector<Alternatives>; // one text of each

constexpr std::size_t maximalDepth = 16;
constexpr std::size_t maximalAlternatives = 8;
constexpr std::size_t maximalRequirements = 3; // of an expression: clues are few

constexpr std::u16string_view caseInsensitiveFlag = u"(?i)";
constexpr std::u16string_view skippedEscapes = u"dDsSwWbBhHvVRXAZzGnrtfae";

constexpr bool isASCIILetterOrDigit(char16_t unit) {
    return (unit >= u'0' && unit <= u'9') || (unit >= u'A' && unit <= u'Z') || (unit >= u'a' && unit <= u'z');
}

std::size_t shortest(const Alternatives& alternatives) {
    return std::ranges::min_element(alternatives, {}, &std::u16string::size)->size();
}

// Whether the first says more than the second: few choices, and long ones.
bool saysMore(const Alternatives& a, const Alternatives& b) {
    return a.size() != b.size() ? a.size() < b.size() : shortest(a) > shortest(b);
}

// Walks over an expression. A construct that it doesn't know ends the reading as a whole.
class Reader {
public:
    explicit Reader(std::u16string_view expression)
        : regex(expression) {
        if (regex.starts_with(caseInsensitiveFlag)) position = caseInsensitiveFlag.size();
    }

    std::optional<Requirements> read() {
        Requirements found = readAlternation(0);
        if (position < regex.size()) isUnknown = true; // a bracket too many
        if (isUnknown) return std::nullopt;
        return found;
    }

private:
    struct Repetition {
        bool mayBeNone = false;
        bool isThere = false;
    };

    bool atEnd() const { return isUnknown || position >= regex.size(); }
    char16_t next() const { return regex[position]; }
    bool skip(std::u16string_view text) {
        if (!regex.substr(position).starts_with(text)) return false;
        position += text.size();
        return true;
    }

    // Up to the bracket that closes the group, or the end.
    Requirements readAlternation(std::size_t depth) {
        std::vector<Requirements> branches;
        do
            branches.push_back(readBranch(depth));
        while (!atEnd() && skip(u"|"));
        if (branches.size() == 1) return std::move(branches.front());
        Alternatives any;
        for (const Requirements& branch : branches) {
            if (branch.empty()) return {};
            const auto best = std::ranges::min_element(branch, saysMore);
            any.insert(any.end(), best->begin(), best->end());
        }
        std::ranges::sort(any);
        any.erase(std::unique(any.begin(), any.end()), any.end());
        if (any.size() > maximalAlternatives) return {};
        return {std::move(any)};
    }

    Requirements readBranch(std::size_t depth) {
        Requirements found;
        std::u16string run; // literal text without a gap
        const auto endRun = [&] {
            if (!run.empty()) found.push_back({std::exchange(run, {})});
        };
        while (!atEnd() && next() != u'|' && next() != u')') {
            if (next() == u'(') {
                endRun();
                Requirements inner = readGroup(depth);
                if (!readRepetition().mayBeNone) std::ranges::move(inner, std::back_inserter(found));
                continue;
            }
            const std::optional<char16_t> literal = readElement();
            const Repetition repetition = readRepetition();
            if (literal && !repetition.mayBeNone) run += *literal;
            if (!literal || repetition.isThere) endRun();
        }
        endRun();
        return found;
    }

    // From "(" on, behind ")". What is looked ahead or behind for isn't asked for.
    Requirements readGroup(std::size_t depth) {
        if (depth >= maximalDepth) isUnknown = true;
        if (isUnknown) return {};
        const bool isLookaround = skip(u"(?=") || skip(u"(?!") || skip(u"(?<=") || skip(u"(?<!");
        const bool isGroup = isLookaround || skip(u"(?:") || skip(u"(?>") || (skip(u"(") && !skip(u"?"));
        if (!isGroup) isUnknown = true;
        if (isUnknown) return {};
        Requirements inner = readAlternation(depth + 1);
        if (atEnd() || !skip(u")")) isUnknown = true;
        return isLookaround ? Requirements() : std::move(inner);
    }

    // The character that the next element stands for; none for one that stands for several or for a place.
    std::optional<char16_t> readElement() {
        const char16_t unit = regex[position++];
        if (unit == u'\\') return readEscape();
        if (unit == u'[') {
            skipSet();
            return std::nullopt;
        }
        if (unit == u'*' || unit == u'+' || unit == u'?' || unit == u'{' || unit == u'}' || unit == u']')
            isUnknown = true;
        if (unit == u'.' || unit == u'^' || unit == u'$') return std::nullopt;
        return asClue(unit);
    }

    std::optional<char16_t> readEscape() {
        if (atEnd()) {
            isUnknown = true;
            return std::nullopt;
        }
        const char16_t unit = regex[position++];
        if (!isASCIILetterOrDigit(unit)) return asClue(unit);
        if (skippedEscapes.find(unit) == skippedEscapes.npos) isUnknown = true;
        return std::nullopt;
    }

    // Letters beyond ASCII have too many other forms in other cases to look for them.
    static std::optional<char16_t> asClue(char16_t unit) {
        if (unit < 128) return unit;
        const std::u16string_view text(&unit, 1);
        const bool isHalf = unit >= 0xD800 && unit <= 0xDFFF;
        if (isHalf || TBF::lowercase(text) != text || TBF::uppercase(text) != text) return std::nullopt;
        return unit;
    }

    void skipSet() {
        skip(u"^");
        if (!atEnd() && next() == u']') isUnknown = true;
        std::size_t depth = 1;
        while (!atEnd() && depth > 0) {
            const char16_t unit = regex[position++];
            if (unit == u'\\' && !atEnd()) ++position;
            if (unit == u'[') ++depth;
            if (unit == u']') --depth;
        }
        if (depth > 0) isUnknown = true;
    }

    Repetition readRepetition() {
        if (atEnd()) return {};
        Repetition found;
        if (skip(u"?") || skip(u"*")) {
            found = {true, true};
        } else if (skip(u"+")) {
            found = {false, true};
        } else if (next() == u'{') {
            const std::size_t end = regex.find(u'}', position);
            const std::u16string_view bounds =
                end == regex.npos ? std::u16string_view() : regex.substr(position + 1, end - position - 1);
            if (bounds.empty() || bounds.find_first_not_of(u"0123456789,") != bounds.npos) isUnknown = true;
            if (isUnknown) return {};
            found = {bounds.find_first_of(u"123456789") != 0, true};
            position = end + 1;
        }
        if (found.isThere && !atEnd()) skip(u"?") || skip(u"+"); // lazy, possessive
        return found;
    }

    std::u16string_view regex;
    std::size_t position = 0;
    bool isUnknown = false;
};

} // namespace

std::vector<std::vector<TCExpressionClue>> TCRequiredCluesOfRegex(std::u16string_view regex) {
    auto requirements = Reader(regex).read().value_or(Requirements());
    for (Alternatives& alternatives : requirements)
        for (std::u16string& text : alternatives)
            text = TBF::lowercase(text);
    std::ranges::stable_sort(requirements, saysMore);
    requirements.erase(std::unique(requirements.begin(), requirements.end()), requirements.end());
    if (requirements.size() > maximalRequirements) requirements.resize(maximalRequirements);
    std::vector<std::vector<TCExpressionClue>> clues;
    for (const Alternatives& alternatives : requirements) {
        std::vector<TCExpressionClue> any;
        for (const std::u16string& text : alternatives)
            any.push_back({text, TCExpressionCluePlaceInAnyCase});
        clues.push_back(std::move(any));
    }
    return clues;
}
