#pragma once

// Gives a line its answer, by the shared evaluator and in the line's angle mode. Used by the thread that
// works on the line's collection.

class TCLine;

class TCLineEvaluator {
public:
    // Sets the line's result: the empty one for plain text and for lines without anything to evaluate.
    static void evaluateLine(TCLine& line);
};
