#pragma once

// Gives a line its answer, by the shared evaluator and in the line's angle mode. Used by the thread that
// works on the line's collection.

#include <cstdint>
#include <optional>

class TCLine;

class TCLineEvaluator {
public:
    // Sets the line's result: the empty one for plain text and for lines without anything to evaluate, an
    // error for a line that is too long. A budget, in steps of work, stands in place of that of the settings;
    // with 0 whatever has a value takes too long. Answers the steps that it took.
    static int64_t evaluateLine(TCLine& line, std::optional<int64_t> budget = std::nullopt);
};
