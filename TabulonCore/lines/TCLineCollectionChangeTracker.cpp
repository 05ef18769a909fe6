#include "lines/TCLineCollectionChangeTracker.h"

#include "lines/TCLine.h"
#include "lines/TCLineList.h"

#include <algorithm>

namespace {

// A change without an index touches no line of its own.
void addIfValid(TCLineIndexSet& set, int64_t index) {
    if (index >= 0 && index != TCNotFound) set.add(static_cast<std::size_t>(index));
}

bool isDeclaration(const TCLineList& lines, int64_t index) {
    return lines.lineIndexIsValid(index) &&
           lines[static_cast<std::size_t>(index)]->lineType() == TCLineTypeVariableDeclaration;
}

} // namespace

std::optional<std::size_t> TCChangedLineIndexes::newIndexOf(std::size_t oldIndex) const {
    const std::optional<std::size_t> from = removed.first();
    const std::optional<std::size_t> to = inserted.first();
    if (from == oldIndex) return to;
    const std::size_t closed = from && oldIndex > *from ? oldIndex - 1 : oldIndex;
    return to && closed >= *to ? closed + 1 : closed;
}

TCChangedLineIndexes
TCLineCollectionChangeTracker::changedLineIndexesInLineCollection(const TCLineList& lines) const {
    TCChangedLineIndexes result;
    if (!hasChanges()) return result;
    if (allLinesChanged || changes.size() > 1) {
        result.changed = TCLineIndexSet::withRange(0, lines.countOfLines());
        result.rebuildStartIndex = 0;
        result.positionsChanged = true;
        return result;
    }

    const TCLineCollectionChange& change = changes.front();
    const int64_t source = change.sourceLineIndex;
    result.rebuildStartIndex = source;
    switch (change.type) {
    case TCLineCollectionChangeTypeRemove:
        addIfValid(result.removed, source);
        break;
    case TCLineCollectionChangeTypeInsert:
        addIfValid(result.inserted, source);
        break;
    case TCLineCollectionChangeTypeMove:
        addIfValid(result.removed, source);
        addIfValid(result.inserted, change.destinationLineIndex);
        addIfValid(result.changed, change.destinationLineIndex);
        result.rebuildStartIndex = std::min(source, change.destinationLineIndex);
        break;
    case TCLineCollectionChangeTypeExternal:
        addIfValid(result.external, source);
        break;
    case TCLineCollectionChangeTypeRemoveAll:
        result.rebuildStartIndex = 0;
        break;
    default:
        break;
    }
    result.positionsChanged = change.type != TCLineCollectionChangeTypeExpression &&
                              change.type != TCLineCollectionChangeTypeExternal;
    if (change.type == TCLineCollectionChangeTypeRemoveAll) return result;
    addIfValid(result.changed, source);
    // The reach of a name is not bounded by its position.
    if (change.type != TCLineCollectionChangeTypeMove && isDeclaration(lines, source))
        result.rebuildStartIndex = 0;
    return result;
}
