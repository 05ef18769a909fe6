#include "RegexKitLite.h"

#include "RKLRegexCache.h"

#include <unicode/utypes.h>

#include <algorithm>
#include <mutex>
#include <stdexcept>
#include <utility>

namespace {

constexpr int64_t longestText = std::numeric_limits<int32_t>::max();

// How long matching may take, in ICU's steps of 10,000 states that it comes back to: a grant for any text,
// and one for each so many code units. A pattern of the system needs a few states for each code unit, so only
// one that tries over and over comes to the end of this.
constexpr int64_t timeGrant = 1'000;
constexpr int64_t textPerTimeStep = 500;

std::u16string ascii(std::string_view text) {
    return {text.begin(), text.end()};
}

RKLError errorOf(UErrorCode status, const UParseError& place) {
    RKLError error;
    error.domain = u"RKLICURegexErrorDomain";
    error.code = status;
    error.description = u"There was an error compiling the regular expression.";
    error.reason = u"The error " + ascii(u_errorName(status)) + u" occurred";
    if (place.line > 0 || place.offset > 0) {
        error.reason += u" at line " + ascii(std::to_string(place.line)) + u", column " +
                        ascii(std::to_string(place.offset)) + u": " + place.preContext + u"<<HERE>>" +
                        place.postContext;
    } else {
        error.reason += u'.';
    }
    return error;
}

RKLError errorOfMatching(UErrorCode status) {
    RKLError error;
    error.domain = u"RKLICURegexErrorDomain";
    error.code = status;
    error.description = u"ICU regular expression error #" + ascii(std::to_string(status)) + u", " +
                        ascii(u_errorName(status)) + u'.';
    error.reason = error.description;
    return error;
}

// The range with its end worked out.
RKLRange rangeInText(RKLRange range, std::size_t textLength) {
    const auto length = static_cast<int64_t>(textLength);
    if (range.length == -1 && range.location >= 0 && range.location <= length)
        range.length = length - range.location;
    if (range.location < 0 || range.length < 0 || range.location > length ||
        range.length > length - range.location)
        throw std::out_of_range("Range or index out of bounds.");
    return range;
}

// A compiled pattern bound to a part of a text, for the time of one operation, during which all others wait.
// Locations are those of the whole text.
class Search {
public:
    Search(std::u16string_view wholeText, RKLRange searchRange, std::u16string_view regex,
           RKLRegexOptions options)
        : text(wholeText)
        , range(rangeInText(searchRange, wholeText.size()))
        , lock(cacheLock) {
        UParseError place{};
        cached = cache().getCachedRegex(regex, options, status, place);
        if (!cached) {
            problem = errorOf(status, place);
            return;
        }
        if (range.length >= longestText) {
            status = U_INDEX_OUTOFBOUNDS_ERROR;
        } else {
            const char16_t* const units = text.empty() ? u"" : text.data() + range.location;
            uregex_setText(icu(), units, static_cast<int32_t>(range.length), &status);
            uregex_setTimeLimit(icu(), static_cast<int32_t>(timeGrant + range.length / textPerTimeStep),
                                &status);
        }
    }

    bool compiled() const { return cached != nullptr; }
    bool failed() const { return U_FAILURE(status); }
    RKLRange searchRange() const { return range; }
    int64_t captureCount() const { return cached->captureCount; }

    RKLError error() const { return cached && failed() ? errorOfMatching(status) : problem; }

    // Goes on to the next match. An empty one is never found twice.
    bool findNext() { return uregex_findNext(icu(), &status) && !failed(); }

    // Of the match found.
    RKLRange capture(int64_t number) {
        if (number < 0 || number > captureCount()) return {};
        const int32_t start = uregex_start(icu(), static_cast<int32_t>(number), &status);
        const int32_t end = uregex_end(icu(), static_cast<int32_t>(number), &status);
        if (failed() || start < 0) return {};
        return {range.location + start, end - start};
    }

    std::u16string textOfCapture(int64_t number) {
        const RKLRange found = capture(number);
        return found.isFound() ? textOf(found.location, found.end()) : std::u16string();
    }

    std::u16string textOf(int64_t from, int64_t to) const {
        return std::u16string(
            text.substr(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from)));
    }

    // Writes the range with its replacements, from its start, into the buffer as far as that reaches, and
    // answers the length that it takes.
    int64_t replaceInto(std::u16string& buffer, std::u16string_view replacement, RKLReplacementWalk& walk) {
        uregex_reset(icu(), 0, &status);
        walk.made.clear();
        char16_t* place = buffer.data();
        auto room = static_cast<int32_t>(std::min<int64_t>(static_cast<int64_t>(buffer.size()), longestText));
        const char16_t* const units = replacement.empty() ? u"" : replacement.data();
        int64_t length = 0;
        int64_t copiedTo = range.location;
        while (static_cast<int64_t>(walk.made.size()) < walk.limit && findNext()) {
            const RKLRange matched = capture(0);
            if (matched.length == 0 && walk.refusesEmptyMatches) {
                status = U_REGEX_STOPPED_BY_CALLER;
                return 0;
            }
            const int64_t written = uregex_appendReplacement(
                icu(), units, static_cast<int32_t>(replacement.size()), &place, &room, &status);
            forgiveOverflow();
            walk.made.push_back({matched, capture(walk.capture), written - (matched.location - copiedTo)});
            copiedTo = matched.end();
            length += written;
        }
        length += uregex_appendTail(icu(), &place, &room, &status);
        forgiveOverflow();
        if (length >= longestText) status = U_INDEX_OUTOFBOUNDS_ERROR;
        return length;
    }

private:
    static RKLRegexCache& cache() {
        static RKLRegexCache rkl_cachedRegexes;
        return rkl_cachedRegexes;
    }

    URegularExpression* icu() { return cached->icu_regex.get(); }

    // ICU goes on counting when a buffer is full.
    void forgiveOverflow() {
        if (status == U_BUFFER_OVERFLOW_ERROR) status = U_ZERO_ERROR;
    }

    static inline std::mutex cacheLock;

    std::u16string_view text;
    RKLRange range;
    std::unique_lock<std::mutex> lock;
    RKLCachedRegex* cached = nullptr;
    UErrorCode status = U_ZERO_ERROR;
    RKLError problem;
};

} // namespace

RKLStepBudget::RKLStepBudget(int64_t steps) {
    RKLRegexCache::stepsLeft = steps;
}

RKLStepBudget::~RKLStepBudget() {
    RKLRegexCache::stepsLeft = std::numeric_limits<int64_t>::max();
}

bool RKLStepBudget::isSpent() const {
    return RKLRegexCache::stepsLeft <= 0;
}

RKLRange RegexKitLite::rangeOfRegex(std::u16string_view text, std::u16string_view regex, int64_t capture) {
    return rangeOfRegex(text, regex, RKLNoOptions, RKLWholeString, capture, nullptr);
}

RKLRange RegexKitLite::rangeOfRegex(std::u16string_view text, std::u16string_view regex,
                                    RKLRegexOptions options, RKLRange range, int64_t capture,
                                    RKLError* error) {
    Search search(text, range, regex, options);
    RKLRange found;
    if (search.compiled()) {
        if (capture < 0 || capture > search.captureCount())
            throw std::invalid_argument("The capture argument is not valid.");
        if (search.findNext()) found = search.capture(capture);
    }
    if (error) *error = search.error();
    return found;
}

std::optional<std::u16string> RegexKitLite::stringByMatching(std::u16string_view text,
                                                             std::u16string_view regex, int64_t capture) {
    const RKLRange found = rangeOfRegex(text, regex, capture);
    if (!found.isFound()) return std::nullopt;
    return std::u16string(
        text.substr(static_cast<std::size_t>(found.location), static_cast<std::size_t>(found.length)));
}

std::optional<std::vector<std::u16string>>
RegexKitLite::componentsSeparatedByRegex(std::u16string_view text, std::u16string_view regex) {
    Search search(text, RKLWholeString, regex, RKLNoOptions);
    if (!search.compiled()) return std::nullopt;
    std::vector<std::u16string> pieces;
    int64_t start = 0;
    while (search.findNext()) {
        const RKLRange matched = search.capture(0);
        if (matched.length == 0 && matched.location == start) continue;
        pieces.push_back(search.textOf(start, matched.location));
        for (int64_t number = 1; number <= search.captureCount(); ++number)
            pieces.push_back(search.textOfCapture(number));
        start = matched.end();
    }
    const auto end = static_cast<int64_t>(text.size());
    if (start < end) pieces.push_back(search.textOf(start, end));
    return pieces;
}

std::optional<std::vector<std::u16string>>
RegexKitLite::captureComponentsMatchedByRegex(std::u16string_view text, std::u16string_view regex) {
    Search search(text, RKLWholeString, regex, RKLNoOptions);
    if (!search.compiled()) return std::nullopt;
    std::vector<std::u16string> captures;
    if (search.findNext()) {
        for (int64_t number = 0; number <= search.captureCount(); ++number)
            captures.push_back(search.textOfCapture(number));
    }
    return captures;
}

int64_t RegexKitLite::replaceOccurrencesOfRegex(std::u16string& text, std::u16string_view regex,
                                                std::u16string_view replacement, RKLRange range,
                                                RKLReplacementWalk* walk) {
    RKLReplacementWalk ownWalk;
    RKLReplacementWalk& made = walk ? *walk : ownWalk;
    made.made.clear();
    std::u16string replaced;
    RKLRange whole;
    {
        Search search(text, range, regex, RKLNoOptions);
        if (!search.compiled()) return -1;
        whole = search.searchRange();
        if (!search.findNext() || static_cast<int64_t>(replacement.size()) >= longestText) return 0;
        const auto length = static_cast<std::size_t>(whole.length);
        replaced.resize(length + length / 2 + 2 * replacement.size() + 16);
        int64_t needed = search.replaceInto(replaced, replacement, made);
        if (!search.failed() && needed > static_cast<int64_t>(replaced.size())) {
            replaced.resize(static_cast<std::size_t>(needed) + 8);
            needed = search.replaceInto(replaced, replacement, made);
        }
        if (search.failed()) {
            made.made.clear();
            return 0;
        }
        replaced.resize(static_cast<std::size_t>(needed));
    }
    if (whole.length == static_cast<int64_t>(text.size())) {
        text = std::move(replaced);
    } else {
        text.replace(static_cast<std::size_t>(whole.location), static_cast<std::size_t>(whole.length),
                     replaced);
    }
    return static_cast<int64_t>(made.made.size());
}

bool RegexKitLite::isRegexValid(std::u16string_view regex) {
    return captureCount(regex) >= 0;
}

int64_t RegexKitLite::captureCount(std::u16string_view regex) {
    const Search search(u"", RKLWholeString, regex, RKLNoOptions);
    return search.compiled() ? search.captureCount() : -1;
}
