#pragma once

// What the tests of lines and collections share: documents from texts, and records of what was evaluated and
// what a delegate heard.

#include "environment/TCBuiltins.h"
#include "environment/TCEnvironment.h"
#include "environment/TCSettings.h"
#include "lines/TCLine.h"
#include "lines/TCLineCollection.h"
#include "lines/TCLineCollectionDelegate.h"
#include "lines/TCLineCollectionReading.h"
#include "runtime/Unicode.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// Makes an environment current in which numbers, functions and references evaluate; there are no units.
inline void useEvaluatingEnvironment() {
    if (!TCSettings::isSet()) TCSettings::make()->set();
    TCBuiltins::environment()->set();
}

inline std::shared_ptr<TCLine> lineOf(std::string_view text) {
    return TCLine::lineWithExpressionString(TBF::utf16(text));
}

inline void fill(TCLineCollection& collection, const std::vector<std::string>& texts) {
    collection.beginBatchUpdate();
    for (const std::string& text : texts)
        collection.addLine(lineOf(text));
    collection.endBatchUpdate();
}

inline std::vector<std::string> textsOf(const TCLineCollection& collection) {
    std::vector<std::string> texts;
    for (const std::u16string& text : TCLineCollectionReading::arrayOfExpressions(collection))
        texts.push_back(TBF::utf8(text));
    return texts;
}

// "<number of lines up>" and "<index>" in the forms in which texts hold references.
inline std::string relative(int offset) {
    return "(___rel_line(" + std::to_string(offset) + "))";
}
inline std::string absolute(int index) {
    return "(___abs_line(" + std::to_string(index) + "))";
}

// The indexes of the lines in the order of their evaluation, as long as it lives.
class EvaluationRecord {
public:
    EvaluationRecord() {
        TCLineCollection::setPreEvaluationBlock([this](TCLine& line) { indexes.push_back(line.index()); });
    }
    ~EvaluationRecord() { TCLineCollection::setPreEvaluationBlock(nullptr); }

    std::vector<std::size_t> take() { return std::exchange(indexes, {}); }

private:
    std::vector<std::size_t> indexes;
};

// Writes down each message as "updated 1 2" or "followed 2".
class RecordingDelegate : public TCLineCollectionDelegate {
public:
    void lineCollectionDidUpdateLinesAtIndexes(TCLineCollection&, const TCLineIndexSet& indexes) override {
        record("updated", indexes);
    }
    void lineCollectionDidAutomaticallyUpdateLinesAtIndexes(TCLineCollection&,
                                                            const TCLineIndexSet& indexes) override {
        record("followed", indexes);
    }

    std::vector<std::string> take() { return std::exchange(messages, {}); }

private:
    void record(std::string message, const TCLineIndexSet& indexes) {
        for (const std::size_t index : indexes)
            message += " " + std::to_string(index);
        messages.push_back(std::move(message));
    }

    std::vector<std::string> messages;
};
