#pragma once

// Where in a document an evaluation takes place: functions that read other lines get it through the
// foundation's evaluation context. Made for the evaluation of one line, on its thread.

#include <cstddef>
#include <cstdint>

class TCIndexPath;
class TCLineCollection;

class TCEvaluationContext {
public:
    TCEvaluationContext() = default;
    TCEvaluationContext(TCIndexPath* path, TCLineCollection* collection, std::size_t index)
        : linePath(path)
        , lines(collection)
        , line(index) {}

    // The chain of lines under evaluation, and the document. Not owned, may be null; both outlive the
    // context, which is gone when the evaluation is over.
    TCIndexPath* indexPath() const { return linePath; }
    void setIndexPath(TCIndexPath* path) { linePath = path; }
    TCLineCollection* lineCollection() const { return lines; }
    void setLineCollection(TCLineCollection* collection) { lines = collection; }

    std::size_t lineIndex() const { return line; }
    void setLineIndex(std::size_t index) { line = index; }

    // 0x1000001 when a line refers to itself.
    int64_t evaluatorError() const { return error; }
    void setEvaluatorError(int64_t newError) { error = newError; }

private:
    TCIndexPath* linePath = nullptr;
    TCLineCollection* lines = nullptr;
    std::size_t line = 0;
    int64_t error = 0;
};
