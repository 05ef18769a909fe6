#include "face/analysis/TBFRagelMatcher.h"

#include <utility>
#include <vector>

TBFRagelMatcherRef TBFRagelMatcherCreate(std::unique_ptr<TBF::RagelMatcherImplementation> implementation) {
    return TBF::RagelMatcher::create(std::move(implementation)).leak();
}

TBFRagelMatcherRef TBFStandardRagelMatchersCreateHighPriorityOperators() {
    return TBF::RagelMatcher::createHighPriorityOperators().leak();
}

TBFRagelMatcherRef TBFRagelMatcherRetain(TBFRagelMatcherRef matcher) {
    return TBF::retain(matcher).leak();
}

void TBFRagelMatcherRelease(TBFRagelMatcherRef matcher) {
    if (matcher) matcher->release();
}

bool TBFRagelMatcherFindNextMatch(TBFRagelMatcherRef matcher, const TBF::RagelToken* begin,
                                  const TBF::RagelToken* end, const TBF::RagelToken** outMatchBegin,
                                  const TBF::RagelToken** outMatchEnd, int32_t* outKind,
                                  const TBF::RagelToken** outOperator) {
    if (!matcher) return false;
    std::vector<int8_t> symbols;
    symbols.reserve(static_cast<std::size_t>(end - begin));
    for (const auto* token = begin; token != end; ++token)
        symbols.push_back(matcher->symbolForToken(*token));

    TBF::RagelMatch match;
    if (!matcher->findMatch(symbols.data(), symbols.data() + symbols.size(), match)) return false;
    *outMatchBegin = begin + match.beginIndex;
    *outMatchEnd = begin + match.endIndex;
    *outKind = match.kind;
    *outOperator = begin + match.operatorIndex;
    return true;
}
