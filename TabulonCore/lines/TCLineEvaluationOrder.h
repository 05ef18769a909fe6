#pragma once

// The order in which lines that need it are evaluated: each behind all that it reads, and those that read
// themselves, on whatever way, marked. Made for one evaluation; iterative, since documents have chains as
// long as they are.

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

struct TCLineEvaluationStep {
    uint32_t lineIndex = 0;
    bool isOnCycle = false; // the line can't have an answer
};

// `lineIndexes` in any order; of what `linesReadBy` gives for each, ascending, only those among them count. A
// line that reads itself gives its own index. Independent lines come by ascending index.
std::vector<TCLineEvaluationStep>
TCLineEvaluationOrder(std::vector<uint32_t> lineIndexes,
                      const std::function<std::vector<uint32_t>(uint32_t lineIndex)>& linesReadBy);
