#pragma once

// The plain functions over operator matchers. A null matcher finds nothing.

#include "analysis/RagelMatcher.h"

using TBFRagelMatcherRef = TBF::RagelMatcher*;

// The caller owns the results. The matcher takes over the implementation.
TBFRagelMatcherRef TBFRagelMatcherCreate(std::unique_ptr<TBF::RagelMatcherImplementation> implementation);
TBFRagelMatcherRef TBFStandardRagelMatchersCreateHighPriorityOperators();
TBFRagelMatcherRef TBFRagelMatcherRetain(TBFRagelMatcherRef matcher);
void TBFRagelMatcherRelease(TBFRagelMatcherRef matcher);

// Searches the tokens from `begin` up to `end`. On success the outputs, none of which may be null, tell
// the place behind which the next search begins, the end of the match, its kind (1 or 2) and the
// operator; else they stay as they are.
bool TBFRagelMatcherFindNextMatch(TBFRagelMatcherRef matcher, const TBF::RagelToken* begin,
                                  const TBF::RagelToken* end, const TBF::RagelToken** outMatchBegin,
                                  const TBF::RagelToken** outMatchEnd, int32_t* outKind,
                                  const TBF::RagelToken** outOperator);
