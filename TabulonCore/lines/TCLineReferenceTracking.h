#pragma once

// How the references of a document's lines follow their targets when lines come, go and move. Ahead of a
// change of positions a snapshot notes where every reference points to; after it the shifts say by how much
// each has to move. Nothing is rewritten here: that is up to the collection's delegate. Part of a
// `TCLineCollection`.

#include "lines/TCLineCollectionDelegate.h"
#include "lines/TCLineReferencesSnapshot.h"

#include <memory>
#include <unordered_map>
#include <vector>

class TCLine;
class TCLineList;

class TCLineReferenceTracking {
public:
    // The list owns this one and outlives it.
    explicit TCLineReferenceTracking(const TCLineList& lines)
        : lines_(lines) {}

    // Without a delegate that wants to know there is nothing to note; it may be null.
    void takeLineReferenceSnapshot(const TCLineCollectionDelegate* delegate);
    void clearLineReferenceSnapshot() { snapshots_.clear(); }

    // The lines whose references have to move since the snapshot, which is cleared, from the last to the
    // first, so that a delegate that works through them in order finds the positions ahead unchanged.
    struct ShiftedLines {
        std::vector<std::shared_ptr<TCLine>> lines;
        std::vector<TCLineReferenceShifts> shifts; // of each
    };
    ShiftedLines takeShiftedLines();

private:
    TCLineReferenceShifts shiftsOfReferencesOnLine(const TCLine& line,
                                                   const TCLineReferencesSnapshot& then) const;

    const TCLineList& lines_;

    // By owning line; empty but for the time from ahead of a change of positions until it was reported.
    std::unordered_map<std::shared_ptr<TCLine>, TCLineReferencesSnapshot> snapshots_;
};
