#include "lines/TCLineDeclarationIndex.h"

#include "expressions/TCLineVariableDeclaration.h"
#include "lines/TCLine.h"

#include <algorithm>
#include <utility>

void TCLineDeclarationIndex::update(const std::shared_ptr<TCLine>& line) {
    const auto declaration =
        line->lineType() == TCLineTypeVariableDeclaration ? line->variableDeclaration() : nullptr;
    const auto known = nameByLine.find(line);
    if (known != nameByLine.end()) {
        if (declaration && declaration->name() == known->second) return;
        remove(line);
    }
    if (!declaration) return;
    nameByLine.emplace(line, declaration->name());
    auto& declaringLines = linesByName[declaration->name()];
    declaringLines.insert(line);
    if (declaringLines.size() > 1) repeatedNames.insert(declaration->name());
    changedNames.insert(declaration->name());
}

void TCLineDeclarationIndex::remove(const std::shared_ptr<TCLine>& line) {
    const auto known = nameByLine.find(line);
    if (known == nameByLine.end()) return;
    const auto named = linesByName.find(known->second);
    named->second.erase(line);
    if (named->second.size() == 1) repeatedNames.erase(known->second);
    if (named->second.empty()) linesByName.erase(named);
    changedNames.insert(std::move(known->second));
    nameByLine.erase(known);
}

void TCLineDeclarationIndex::removeAll() {
    for (const auto& [name, lines] : linesByName)
        changedNames.insert(name);
    nameByLine.clear();
    linesByName.clear();
    repeatedNames.clear();
}

void TCLineDeclarationIndex::noteMove(const std::shared_ptr<TCLine>& line) {
    if (const auto known = nameByLine.find(line); known != nameByLine.end())
        changedNames.insert(known->second);
}

std::vector<std::shared_ptr<TCLine>>
TCLineDeclarationIndex::linesDeclaring(const std::u16string& name) const {
    const auto named = linesByName.find(name);
    if (named == linesByName.end()) return {};
    std::vector<std::shared_ptr<TCLine>> lines(named->second.begin(), named->second.end());
    std::sort(lines.begin(), lines.end(),
              [](const auto& a, const auto& b) { return a->index() < b->index(); });
    return lines;
}

bool TCLineDeclarationIndex::hasDeclarationOnOrAfterIndex(std::size_t index) const {
    return std::any_of(nameByLine.begin(), nameByLine.end(),
                       [&](const auto& entry) { return entry.first->index() >= index; });
}

std::unordered_set<std::u16string> TCLineDeclarationIndex::takeChangedNames() {
    return std::exchange(changedNames, {});
}
