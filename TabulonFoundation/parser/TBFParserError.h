#pragma once

// How a parse ends. The evaluator gives a line whose parse failed no answer. No state.

#include <cstdint>

// The error of a parse: two operators stand where only one can, as in "5 + * 3". There is no tree then. An
// expression without a tree and without an error has nothing to evaluate.
enum TBFParserError : int32_t {
    TBFParserErrorNone = 0,
    TBFParserErrorMisplacedOperator = 1,
};
