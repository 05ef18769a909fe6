#include "lines/TCLineList.h"

#include "environment/TCWarnLog.h"
#include "lines/TCLine.h"

#include <algorithm>
#include <utility>

std::shared_ptr<TCLine> TCLineList::lineAtIndex(std::size_t index) const {
    if (index < lines_.size()) return lines_[index];
    TCWarnLog("Warning: asking for line for index out of range (%zu)", index);
    return nullptr;
}

int64_t TCLineList::indexOfLine(const std::shared_ptr<TCLine>& line) const {
    if (line) return static_cast<int64_t>(line->index());
    TCWarnLog("Warning: asking for index of nil line");
    return -1;
}

bool TCLineList::lineIndexIsValid(int64_t index) const {
    return index >= 0 && static_cast<uint64_t>(index) < lines_.size();
}

bool TCLineList::containsLine(const std::shared_ptr<TCLine>& line) const {
    fillLinesByIdentifier();
    return line && linesByIdentifier_.contains(line->uniqueIdentifier());
}

std::shared_ptr<TCLine> TCLineList::lineWithIdentifier(const std::u16string& identifier) const {
    fillLinesByIdentifier();
    const auto entry = linesByIdentifier_.find(identifier);
    return entry == linesByIdentifier_.end() ? nullptr : entry->second;
}

std::vector<std::shared_ptr<TCLine>> TCLineList::linesWithIndexes(const TCLineIndexSet& indexes) const {
    std::vector<std::shared_ptr<TCLine>> found;
    for (const std::size_t index : indexes) {
        if (index < lines_.size())
            found.push_back(lines_[index]);
        else
            TCWarnLog("Asking for an out of range line");
    }
    return found;
}

bool TCLineList::holds(const TCLine& line) const {
    return line.index() < lines_.size() && lines_[line.index()].get() == &line;
}

bool TCLineList::hasRoom() const {
    if (lines_.size() < mostLines) return true;
    TCWarnLog("Warning: a document has at most %zu lines", mostLines);
    return false;
}

void TCLineList::insertIntoList(const std::shared_ptr<TCLine>& line, std::size_t index) {
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(index), line);
    const auto& inserted = lines_[index]; // the argument may have stood in the list
    if (identifiersKnown_) linesByIdentifier_.insert_or_assign(inserted->uniqueIdentifier(), inserted);
    for (std::size_t i = index + 1; i < lines_.size(); ++i)
        lines_[i]->setIndex(i);
}

std::shared_ptr<TCLine> TCLineList::removeFromList(std::size_t index) {
    std::shared_ptr<TCLine> line = std::move(lines_[index]);
    lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(index));
    if (identifiersKnown_) linesByIdentifier_.erase(line->uniqueIdentifier());
    for (std::size_t i = index; i < lines_.size(); ++i)
        lines_[i]->setIndex(i);
    return line;
}

void TCLineList::moveInList(std::size_t source, std::size_t destination) {
    const auto at = [&](std::size_t index) { return lines_.begin() + static_cast<std::ptrdiff_t>(index); };
    if (source < destination)
        std::rotate(at(source), at(source + 1), at(destination + 1));
    else
        std::rotate(at(destination), at(source), at(source + 1));
    for (std::size_t i = std::min(source, destination); i <= std::max(source, destination); ++i)
        lines_[i]->setIndex(i); // those beyond have kept their place
}

void TCLineList::clearList() {
    lines_.clear();
    linesByIdentifier_.clear();
}

// Most documents are read and shown without anybody asking for an identifier.
void TCLineList::fillLinesByIdentifier() const {
    if (identifiersKnown_) return;
    for (const auto& line : lines_)
        linesByIdentifier_.emplace(line->uniqueIdentifier(), line);
    identifiersKnown_ = true;
}
