// How references follow their targets when lines come, go and move: the collection says by how much, and its
// delegate rewrites the texts.

#include "lines/TCLine.h"
#include "lines/TCLineCollection.h"
#include "lines/TCLineCollectionDelegate.h"
#include "lines/TCLineReferenceIndex.h"

#include <utility>

namespace {

bool isRelative(TCLineReferenceType type) {
    return type == TCLineReferenceTypeRelative || type == TCLineReferenceTypeFixedRelative;
}

int64_t distance(std::size_t from, std::size_t to) {
    return static_cast<int64_t>(to) - static_cast<int64_t>(from);
}

} // namespace

void TCLineCollection::takeLineReferenceSnapshot() {
    clearLineReferenceSnapshot();
    if (!observer || !observer->respondsToDidNoticeThatLineReferenceOnLines()) return;
    for (const auto& line : lines) {
        const auto references = line->referencesToLines();
        if (references.empty()) continue;
        TCLineReferencesSnapshot snapshot(line->index());
        for (const auto& [type, number] : references) {
            const int64_t target = TCLineReferenceIndex(type, number, static_cast<int64_t>(line->index()));
            if (!lineIndexIsValid(target)) continue;
            const auto index = static_cast<std::size_t>(target);
            snapshot.addTarget(lines[index], index, TCLineReferenceIdentifier(type, number));
        }
        referenceSnapshots.emplace(line, std::move(snapshot));
    }
}

// By how much each reference of the line has to move; one whose target has gone stays as it is.
TCLineReferenceShifts TCLineCollection::shiftsOfReferencesOnLine(const TCLine& line,
                                                                 const TCLineReferencesSnapshot& then) const {
    TCLineReferenceShifts shifts;
    for (const auto& [type, number] : line.referencesToLines()) {
        if (type == TCLineReferenceTypeNull) continue; // it points to nothing
        std::u16string identifier = TCLineReferenceIdentifier(type, number);
        const auto* const target = then.targetForLineReference(identifier);
        if (!target || !holds(*target->line)) continue;
        int64_t shift = distance(target->lineIndex, target->line->index());
        if (isRelative(type)) shift += distance(line.index(), then.lineIndex());
        if (shift != 0) shifts.insert_or_assign(std::move(identifier), shift);
    }
    return shifts;
}

TCLineIndexSet TCLineCollection::notifyAboutLineReferenceChanges() {
    const auto snapshots = std::exchange(referenceSnapshots, {});
    if (snapshots.empty() || !observer || !observer->respondsToDidNoticeThatLineReferenceOnLines()) return {};
    std::vector<std::shared_ptr<TCLine>> shiftedLines;
    std::vector<TCLineReferenceShifts> shiftsOfLines;
    // The last line comes first, so that a delegate that works through them in order finds the positions
    // ahead unchanged.
    for (auto line = lines.rbegin(); line != lines.rend(); ++line) {
        const auto snapshot = snapshots.find(*line);
        if (snapshot == snapshots.end()) continue;
        TCLineReferenceShifts shifts = shiftsOfReferencesOnLine(**line, snapshot->second);
        if (shifts.empty()) continue;
        shiftedLines.push_back(*line);
        shiftsOfLines.push_back(std::move(shifts));
    }
    if (shiftedLines.empty()) return {};

    const bool wasEnabled = std::exchange(changeProcessingEnabled, false);
    observer->lineCollectionDidNoticeThatLineReferenceOnLinesShouldShiftBy(*this, shiftedLines,
                                                                           shiftsOfLines);
    changeProcessingEnabled = wasEnabled;

    // Nothing else waits for the parser at this time.
    std::vector<std::size_t> rewritten;
    for (const auto& line : unparsedLines)
        if (holds(*line)) rewritten.push_back(line->index());
    return TCLineIndexSet(std::move(rewritten));
}
