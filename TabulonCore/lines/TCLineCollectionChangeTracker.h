#pragma once

// The changes of a line collection since it last processed them, and what they come to: which lines count
// as changed and from where on the dependency graph is stale. A tracker belongs to one collection, which
// guards it with its mutex.

#include "expressions/TCRange.h"
#include "lines/TCLineIndexSet.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

class TCLineList;

enum TCLineCollectionChangeType : int32_t {
    TCLineCollectionChangeTypeRemove = 1,
    TCLineCollectionChangeTypeInsert = 2,
    TCLineCollectionChangeTypeMove = 3,
    TCLineCollectionChangeTypeExpression = 4,
    TCLineCollectionChangeTypeExternal = 5, // something outside of the line that it depends on
    TCLineCollectionChangeTypeRemoveAll = 6,
};

struct TCLineCollectionChange {
    int32_t type = 0; // a TCLineCollectionChangeType
    int64_t sourceLineIndex = TCNotFound;
    int64_t destinationLineIndex = TCNotFound; // of a move
};

struct TCChangedLineIndexes {
    TCLineIndexSet changed;
    TCLineIndexSet removed;
    TCLineIndexSet inserted;
    TCLineIndexSet external; // among the changed
    int64_t rebuildStartIndex = TCNotFound;
    bool positionsChanged = false; // a line may have another index than before

    // Where the line stands now that stood at `oldIndex` before one removal, insertion or move; none if it
    // has gone.
    std::optional<std::size_t> newIndexOf(std::size_t oldIndex) const;
};

class TCLineCollectionChangeTracker {
public:
    void registerChange(const TCLineCollectionChange& change) { changes.push_back(change); }
    void registerChangeOfAllLines() { allLinesChanged = true; }
    void reset() {
        // The changes of a whole document's loading leave no room behind.
        if (changes.size() > 1000)
            changes = std::vector<TCLineCollectionChange>();
        else
            changes.clear();
        allLinesChanged = false;
    }
    bool hasChanges() const { return allLinesChanged || !changes.empty(); }

    // One change touches what it names. Several are not told apart: they touch every line of `lines`.
    TCChangedLineIndexes changedLineIndexesInLineCollection(const TCLineList& lines) const;

private:
    std::vector<TCLineCollectionChange> changes; // in order of arrival
    bool allLinesChanged = false;
};
