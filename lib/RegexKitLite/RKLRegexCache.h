#pragma once

// The compiled patterns of the regular-expression service: 13 sets of 4, chosen by the pattern's hash, the
// least recently used of a set making room. In front of the sets are two shortcuts which hash nothing. Used
// by RegexKitLite alone, under its lock.

#include "RegexKitLite.h"

#include <unicode/parseerr.h>
#include <unicode/uregex.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <string_view>

struct RKLCachedRegex {
    struct Close {
        void operator()(URegularExpression* regex) const { uregex_close(regex); }
    };

    std::u16string regexString;
    std::size_t regexHash = 0;
    RKLRegexOptions options = RKLNoOptions;
    std::unique_ptr<URegularExpression, Close> icu_regex; // null in an entry that is free
    int32_t captureCount = 0;

    bool serves(std::u16string_view regex, RKLRegexOptions regexOptions) const {
        return icu_regex && options == regexOptions && regexString == regex;
    }
};

class RKLRegexCache {
public:
    // The compiled pattern, borrowed until the next call; null if it doesn't compile, and nothing of that is
    // kept. `status` and `place` tell why.
    RKLCachedRegex* getCachedRegex(std::u16string_view regex, RKLRegexOptions options, UErrorCode& status,
                                   UParseError& place);

    // ICU's steps that the calling thread may still take. Matching takes them away as it goes.
    static inline thread_local int64_t stepsLeft = std::numeric_limits<int64_t>::max();

private:
    static constexpr std::size_t setCount = 13;
    static constexpr std::size_t wayCount = 4;
    static constexpr std::size_t hintCount = 64;

    // Which of a set's entries was used least recently, in one group of four bits for each way. A use fills
    // the way's group and clears the way's bit in all groups, so a group is empty once all others were used
    // later.
    class SetState {
    public:
        void use(std::size_t way);
        std::size_t leastRecentlyUsed() const;

    private:
        uint16_t bits = 0x0137;
    };

    RKLCachedRegex* use(std::size_t entry, std::size_t hint);
    static std::size_t hintIndex(std::u16string_view regex, RKLRegexOptions options);

    std::array<RKLCachedRegex, setCount * wayCount> rkl_cachedRegexes;
    std::array<SetState, setCount> states;
    std::array<uint8_t, hintCount> lookaside{}; // entries, by where the pattern's text lies
    std::size_t lastUsed = 0;
};
