#include "lines/TCLineDeclarationIndex.h"

#include "expressions/TCLineVariableDeclaration.h"
#include "lines/TCLine.h"

#include <algorithm>
#include <utility>

void TCLineDeclarationIndex::Declaring::insert(const std::shared_ptr<TCLine>& line) {
    if (!several && (!only || only == line)) {
        only = line;
        return;
    }
    if (!several) {
        several = std::make_unique<std::unordered_set<std::shared_ptr<TCLine>>>();
        several->insert(std::exchange(only, nullptr));
    }
    several->insert(line);
}

void TCLineDeclarationIndex::Declaring::erase(const std::shared_ptr<TCLine>& line) {
    if (several)
        several->erase(line);
    else if (only == line)
        only = nullptr;
}

void TCLineDeclarationIndex::update(const std::shared_ptr<TCLine>& line) {
    const auto declaration =
        line->lineType() == TCLineTypeVariableDeclaration ? line->variableDeclaration() : nullptr;
    const auto known = nameByLine.find(line.get());
    if (known != nameByLine.end()) {
        if (declaration && declaration->sharedName()->view() == known->second->first->view()) return;
        remove(line);
    }
    if (!declaration) return;
    auto place = linesByName.find(declaration->sharedName()->view());
    if (place == linesByName.end()) place = linesByName.try_emplace(declaration->sharedName()).first;
    LinesByName::value_type& named = *place;
    nameByLine.emplace(line.get(), &named);
    named.second.insert(line);
    if (named.second.size() > 1) repeatedNames.insert(named.first);
    changedNames.insert(named.first);
}

void TCLineDeclarationIndex::remove(const std::shared_ptr<TCLine>& line) {
    const auto known = nameByLine.find(line.get());
    if (known == nameByLine.end()) return;
    const Name name = known->second->first;
    Declaring& declaring = known->second->second;
    nameByLine.erase(known);
    declaring.erase(line);
    if (declaring.size() == 1) repeatedNames.erase(name);
    if (declaring.size() == 0) linesByName.erase(name);
    changedNames.insert(name);
}

void TCLineDeclarationIndex::removeAll() {
    for (const auto& [name, lines] : linesByName)
        changedNames.insert(name);
    nameByLine.clear();
    linesByName.clear();
    repeatedNames.clear();
}

void TCLineDeclarationIndex::noteMove(const std::shared_ptr<TCLine>& line) {
    if (const auto known = nameByLine.find(line.get()); known != nameByLine.end())
        changedNames.insert(known->second->first);
}

std::vector<std::shared_ptr<TCLine>> TCLineDeclarationIndex::linesDeclaring(std::u16string_view name) const {
    const auto named = linesByName.find(name);
    if (named == linesByName.end()) return {};
    const Declaring& declaring = named->second;
    if (!declaring.several) return {declaring.only};
    std::vector<std::shared_ptr<TCLine>> lines(declaring.several->begin(), declaring.several->end());
    std::sort(lines.begin(), lines.end(),
              [](const auto& a, const auto& b) { return a->index() < b->index(); });
    return lines;
}

bool TCLineDeclarationIndex::hasDeclarationOnOrAfterIndex(std::size_t index) const {
    return std::any_of(nameByLine.begin(), nameByLine.end(),
                       [&](const auto& entry) { return entry.first->index() >= index; });
}

TCLineDeclarationIndex::Names TCLineDeclarationIndex::takeChangedNames() {
    return std::exchange(changedNames, {});
}
