// What the document's own names and references add to a change. The lines know which names they declare and
// which lines they refer to; no value is kept for a name yet, and no reference follows its target.

#include "lines/TCLine.h"
#include "lines/TCLineCollection.h"

std::vector<std::shared_ptr<TCLine>>
TCLineCollection::linesDeclaringVariableWithName(const std::u16string& name) const {
    return declarations.linesDeclaring(name);
}

bool TCLineCollection::updateInternalVariableListWithChangesAtLineIndexes(
    const TCLineIndexSet&, const std::unordered_set<std::u16string>&) {
    return false;
}

TCLineIndexSet TCLineCollection::directLineCollectionVariableOwnersForLine(const TCLine&) const {
    return {};
}

void TCLineCollection::storeValueOfDeclaringLine(const std::shared_ptr<TCLine>&) {}

void TCLineCollection::takeLineReferenceSnapshot() {}

void TCLineCollection::notifyAboutLineReferenceChanges() {}
