#include "lines/TCLineReferenceTracking.h"

#include "lines/TCLine.h"
#include "lines/TCLineList.h"
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

void TCLineReferenceTracking::takeLineReferenceSnapshot(const TCLineCollectionDelegate* delegate) {
    clearLineReferenceSnapshot();
    if (!delegate || !delegate->respondsToDidNoticeThatLineReferenceOnLines()) return;
    for (const auto& line : lines_) {
        const auto references = line->referencesToLines();
        if (references.empty()) continue;
        TCLineReferencesSnapshot snapshot(line->index());
        for (const auto& [type, number] : references) {
            const int64_t target = TCLineReferenceIndex(type, number, static_cast<int64_t>(line->index()));
            if (!lines_.lineIndexIsValid(target)) continue;
            const auto index = static_cast<std::size_t>(target);
            snapshot.addTarget(lines_[index], index, TCLineReferenceIdentifier(type, number));
        }
        snapshots_.emplace(line, std::move(snapshot));
    }
}

TCLineReferenceTracking::ShiftedLines TCLineReferenceTracking::takeShiftedLines() {
    ShiftedLines shifted;
    const auto snapshots = std::exchange(snapshots_, {});
    if (snapshots.empty()) return shifted;
    for (auto index = lines_.countOfLines(); index-- > 0;) {
        const auto& line = lines_[index];
        const auto snapshot = snapshots.find(line);
        if (snapshot == snapshots.end()) continue;
        TCLineReferenceShifts shifts = shiftsOfReferencesOnLine(*line, snapshot->second);
        if (shifts.empty()) continue;
        shifted.lines.push_back(line);
        shifted.shifts.push_back(std::move(shifts));
    }
    return shifted;
}

// By how much each reference of the line has to move; one whose target has gone stays as it is.
TCLineReferenceShifts
TCLineReferenceTracking::shiftsOfReferencesOnLine(const TCLine& line,
                                                  const TCLineReferencesSnapshot& then) const {
    TCLineReferenceShifts shifts;
    for (const auto& [type, number] : line.referencesToLines()) {
        if (type == TCLineReferenceTypeNull) continue; // it points to nothing
        std::u16string identifier = TCLineReferenceIdentifier(type, number);
        const auto* const target = then.targetForLineReference(identifier);
        if (!target || !lines_.holds(*target->line)) continue;
        int64_t shift = distance(target->lineIndex, target->line->index());
        if (isRelative(type)) shift += distance(line.index(), then.lineIndex());
        if (shift != 0) shifts.insert_or_assign(std::move(identifier), shift);
    }
    return shifts;
}
