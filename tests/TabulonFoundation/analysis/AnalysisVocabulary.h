#pragma once

// A handful of names for tests of the analyzer, and ways to run a line through it: the units m, m2 (also
// "square meter"), km, kg, h, min and "$", which may stand before its number, and M, which is two units; the
// functions min and sin; the variables rate, x1 and km2; the word operators x, per, from, _off (postfix)
// and _not (prefix).

#include "analysis/ExpressionToken.h"
#include "names/Namespace.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace TBFTests {

// Shared by all tests, which only read it.
TBF::Ref<TBF::Namespace> vocabulary();

TBF::ExpressionTokenList tokensOf(std::string_view line);

// The dump of the line after the whole analysis.
std::string analyzed(std::string_view line);

// The dump of the line after the first `stepCount` steps of the analyzer's table and the flattening. Steps
// are numbered from 1, which builds the tree. Skips no step that could be skipped if `runsAll`.
inline constexpr std::size_t allSteps = 17;
std::string analyzedThroughStep(std::size_t stepCount, std::string_view line, bool runsAll = false);

// A test's row.
struct AnalysisRow {
    const char* line;
    const char* tokens;
};

} // namespace TBFTests
