#pragma once

// The observer of a line collection. All operations are optional; they are called on the document's thread,
// while the collection processes changes.

#include "lines/TCLineIndexSet.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

class TCLine;
class TCLineCollection;

// How far each reference of a line should move, by reference identifier.
using TCLineReferenceShifts = std::map<std::u16string, int64_t>;

class TCLineCollectionDelegate {
public:
    virtual ~TCLineCollectionDelegate() = default;

    // The lines that were evaluated; never none.
    virtual void lineCollectionDidUpdateLinesAtIndexes(TCLineCollection& collection,
                                                       const TCLineIndexSet& indexes);

    // Those among them that were not changed themselves; never none.
    virtual void lineCollectionDidAutomaticallyUpdateLinesAtIndexes(TCLineCollection& collection,
                                                                    const TCLineIndexSet& indexes);

    // Lines have moved, and these lines, from the last to the first, refer to moved ones. The delegate may
    // set new texts; no change processing starts meanwhile. Only sent if
    // `respondsToDidNoticeThatLineReferenceOnLines` says so.
    virtual bool respondsToDidNoticeThatLineReferenceOnLines() const { return false; }
    virtual void lineCollectionDidNoticeThatLineReferenceOnLinesShouldShiftBy(
        TCLineCollection& collection, const std::vector<std::shared_ptr<TCLine>>& lines,
        const std::vector<TCLineReferenceShifts>& shifts);
};

inline void TCLineCollectionDelegate::lineCollectionDidUpdateLinesAtIndexes(TCLineCollection&,
                                                                            const TCLineIndexSet&) {}

inline void
TCLineCollectionDelegate::lineCollectionDidAutomaticallyUpdateLinesAtIndexes(TCLineCollection&,
                                                                             const TCLineIndexSet&) {}

inline void TCLineCollectionDelegate::lineCollectionDidNoticeThatLineReferenceOnLinesShouldShiftBy(
    TCLineCollection&, const std::vector<std::shared_ptr<TCLine>>&,
    const std::vector<TCLineReferenceShifts>&) {}
