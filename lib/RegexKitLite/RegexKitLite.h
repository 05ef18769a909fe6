#pragma once

// Matching and rewriting of strings with regular expressions in ICU's syntax. A pattern is plain text; it is
// compiled at its first use and kept in a cache that all threads share, so every operation may be called on
// any thread, and they run one after the other. Ranges count UTF-16 code units. No operation keeps a text:
// what a text holds at the time of the call is what is searched.
//
// A pattern that doesn't compile matches nothing, and so does one that needs more time or memory for a text
// than the service grants; the error, where there is a place for one, says which.

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Goes to ICU as it is. All callers in the system give none.
enum RKLRegexOptions : uint32_t { RKLNoOptions = 0 };

// The location of what isn't there.
inline constexpr int64_t RKLNotFound = 0x7FFFFFFFFFFFFFFF;

struct RKLRange {
    int64_t location = RKLNotFound;
    int64_t length = 0; // -1 in an argument: to the end of the string

    constexpr bool operator==(const RKLRange&) const = default;
    constexpr bool isFound() const { return location != RKLNotFound; }
    constexpr int64_t end() const { return location + length; }
};

inline constexpr RKLRange RKLWholeString{0, -1};

struct RKLError {
    std::u16string domain; // "RKLICURegexErrorDomain"
    int32_t code = 0;      // ICU's status; 0 when there was no error
    std::u16string description;
    std::u16string reason;
};

// A replacement that was made.
struct RKLReplacement {
    RKLRange matched;           // in the string as it was
    RKLRange capture;           // the capture asked for, there too; not found if it took no part
    int64_t insertedLength = 0; // of what stands there now
};

// How far a replacing goes, and what it did.
struct RKLReplacementWalk {
    int64_t limit = std::numeric_limits<int64_t>::max(); // replacements at most
    int64_t capture = 0;                                 // the one to note
    bool refusesEmptyMatches = false;                    // a text with one stays as it is
    std::vector<RKLReplacement> made;                    // in ascending order
};

// All that the service matches on the thread while the scope lives, together: so many of ICU's steps of about
// 10,000 states. Once they are spent, whatever isn't found by then counts as one that needs more time than
// there is. The same text takes the same steps on every machine. Without a scope only the bounds of a single
// match hold. Scopes don't nest.
class RKLStepBudget {
public:
    explicit RKLStepBudget(int64_t steps);
    ~RKLStepBudget();
    RKLStepBudget(const RKLStepBudget&) = delete;
    RKLStepBudget& operator=(const RKLStepBudget&) = delete;

    bool isSpent() const;
};

namespace RegexKitLite {

// The first match, or one of its captures; capture 0 is the whole match. Throws std::invalid_argument for a
// capture that the pattern doesn't have, std::out_of_range for a range that the text doesn't have. ICU sees
// the range as its whole text: "^" and "$" match at its edges, and look-behind ends there.
RKLRange rangeOfRegex(std::u16string_view text, std::u16string_view regex, int64_t capture = 0);
RKLRange rangeOfRegex(std::u16string_view text, std::u16string_view regex, RKLRegexOptions options,
                      RKLRange range, int64_t capture, RKLError* error);

// The text of a capture in the first match; none without one. Throws as above.
std::optional<std::u16string> stringByMatching(std::u16string_view text, std::u16string_view regex,
                                               int64_t capture);

// The text cut at the matches, the captures of each match behind the piece in front of it. A match at the
// very end leaves no empty last piece. None if the pattern is invalid.
std::optional<std::vector<std::u16string>> componentsSeparatedByRegex(std::u16string_view text,
                                                                      std::u16string_view regex);

// The first match and its captures, empty text for those that took no part; no elements without a match, none
// if the pattern is invalid.
std::optional<std::vector<std::u16string>> captureComponentsMatchedByRegex(std::u16string_view text,
                                                                           std::u16string_view regex);

// Replaces the matches in the range, one after the other, none inside another, and answers their number, -1
// if the pattern is invalid. "$1" and backslashes in the replacement have ICU's meaning. The text stays as it
// is when matching fails on the way. Throws std::out_of_range for a range that the text doesn't have.
int64_t replaceOccurrencesOfRegex(std::u16string& text, std::u16string_view regex,
                                  std::u16string_view replacement, RKLRange range = RKLWholeString,
                                  RKLReplacementWalk* walk = nullptr);

bool isRegexValid(std::u16string_view regex);

// -1 if the pattern doesn't compile.
int64_t captureCount(std::u16string_view regex);

} // namespace RegexKitLite
