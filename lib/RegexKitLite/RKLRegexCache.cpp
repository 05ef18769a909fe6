#include "RKLRegexCache.h"

#include <algorithm>
#include <functional>
#include <limits>

namespace {

// Bytes of ICU's own stack of states, which lies on the heap.
constexpr int32_t stackLimit = 8'000'000;

// Called by ICU after each of its steps; matching goes on when it answers true.
UBool U_CALLCONV takeStep(const void*, int32_t) {
    if (RKLRegexCache::stepsLeft > 0) --RKLRegexCache::stepsLeft;
    return RKLRegexCache::stepsLeft > 0;
}

} // namespace

void RKLRegexCache::SetState::use(std::size_t way) {
    const auto ownBits = static_cast<uint16_t>(0xF << (4 * way));
    const auto seenByAll = static_cast<uint16_t>(0x1111 << (3 - way));
    bits = static_cast<uint16_t>((bits | ownBits) & ~seenByAll);
}

std::size_t RKLRegexCache::SetState::leastRecentlyUsed() const {
    std::size_t way = wayCount - 1;
    while (way > 0 && (bits >> (4 * way) & 0xF) != 0)
        --way;
    return way;
}

std::size_t RKLRegexCache::hintIndex(std::u16string_view regex, RKLRegexOptions options) {
    const auto place = reinterpret_cast<uintptr_t>(regex.data());
    return ((place >> 4) + options + (options >> 4)) % hintCount;
}

RKLCachedRegex* RKLRegexCache::use(std::size_t entry, std::size_t hint) {
    lastUsed = entry;
    lookaside[hint] = static_cast<uint8_t>(entry);
    states[entry / wayCount].use(entry % wayCount);
    return &rkl_cachedRegexes[entry];
}

RKLCachedRegex* RKLRegexCache::getCachedRegex(std::u16string_view regex, RKLRegexOptions options,
                                              UErrorCode& status, UParseError& place) {
    const std::size_t hint = hintIndex(regex, options);
    for (const std::size_t candidate : {lastUsed, std::size_t{lookaside[hint]}}) {
        if (rkl_cachedRegexes[candidate].serves(regex, options)) return use(candidate, hint);
    }
    const std::size_t hash = std::hash<std::u16string_view>()(regex);
    const std::size_t set = (hash ^ options) % setCount;
    for (std::size_t entry = set * wayCount; entry < (set + 1) * wayCount; ++entry) {
        const RKLCachedRegex& cached = rkl_cachedRegexes[entry];
        if (cached.regexHash == hash && cached.serves(regex, options)) return use(entry, hint);
    }

    if (regex.size() >= std::numeric_limits<int32_t>::max()) {
        status = U_INDEX_OUTOFBOUNDS_ERROR;
        return nullptr;
    }
    const std::size_t victim = set * wayCount + states[set].leastRecentlyUsed();
    RKLCachedRegex& cached = rkl_cachedRegexes[victim];
    cached.icu_regex.reset();
    cached.regexString = regex;
    cached.regexHash = hash;
    cached.options = options;
    // ICU takes no null pointer, as an empty view may hold; the copy is never null.
    cached.icu_regex.reset(uregex_open(cached.regexString.data(),
                                       static_cast<int32_t>(cached.regexString.size()), options, &place,
                                       &status));
    if (U_SUCCESS(status)) cached.captureCount = uregex_groupCount(cached.icu_regex.get(), &status);
    if (U_SUCCESS(status)) uregex_setStackLimit(cached.icu_regex.get(), stackLimit, &status);
    if (U_SUCCESS(status)) uregex_setMatchCallback(cached.icu_regex.get(), takeStep, nullptr, &status);
    if (U_FAILURE(status)) {
        cached.icu_regex.reset();
        return nullptr;
    }
    return use(victim, hint);
}
