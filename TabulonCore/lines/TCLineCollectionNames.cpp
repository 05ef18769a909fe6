// The names that lines declare: a variable for each, with the lines that declare it and their values.

#include "expressions/TCExpression.h"
#include "expressions/TCLineVariableDeclaration.h"
#include "lines/TCLine.h"
#include "lines/TCLineCollection.h"
#include "lines/TCLineCollectionVariable.h"
#include "runtime/Settings.h"
#include "variables/TCVariableList.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

// Up to so many declarations of a name, each of them is a dependency of every line that uses the name. With
// more, only those are that give the line a value: otherwise a document of nothing but "x = x + 1" would have
// as many edges as the square of its lines.
constexpr std::size_t ownersWithEdges = 16;

// With more names at once, all lines are read anew.
constexpr std::size_t namesWorthSearching = 8;

char16_t folded(char16_t character) {
    return character >= u'A' && character <= u'Z' ? static_cast<char16_t>(character - u'A' + u'a')
                                                  : character;
}

bool isPlain(std::u16string_view text) {
    return std::all_of(text.begin(), text.end(), [](char16_t character) { return character < 0x80; });
}

// Whether one of the names may stand in the text, in any case; true for texts and names in which the case of
// a letter is not a matter of its bits.
bool mayHold(std::u16string_view text, const std::vector<std::u16string>& names) {
    if (!isPlain(text)) return true;
    return std::any_of(names.begin(), names.end(), [&](const std::u16string& name) {
        const auto isSame = [](char16_t a, char16_t b) { return folded(a) == folded(b); };
        return !isPlain(name) ||
               std::search(text.begin(), text.end(), name.begin(), name.end(), isSame) != text.end();
    });
}

// The declarations of whose value a line takes something up: the last one, and where names may be redefined
// the one that rules the line as well. Of the last one it has the percent sign then.
std::array<std::shared_ptr<TCLine>, 2> ownersReadAt(const TCLineCollectionVariable& variable,
                                                    std::size_t lineIndex) {
    auto last = variable.lastOwnerLine();
    const bool redefines = TBF::Settings::current().allowsVariableRedefinitions();
    return {redefines ? variable.ownerLineForLineAtIndex(lineIndex) : last, last};
}

} // namespace

std::vector<std::shared_ptr<TCLine>>
TCLineCollection::linesDeclaringVariableWithName(const std::u16string& name) const {
    return declarations.linesDeclaring(name);
}

std::shared_ptr<TCLineCollectionVariable>
TCLineCollection::lineCollectionVariableWithName(const std::u16string& name, bool exactCase) const {
    const auto list = variables();
    if (!list) return nullptr;
    return std::dynamic_pointer_cast<TCLineCollectionVariable>(
        exactCase ? list->variableWithExactCaseName(name) : list->variableWithName(name));
}

void TCLineCollection::updateLineCollectionVariableOwnership(TCLineCollectionVariable& variable) {
    const auto owners = linesDeclaringVariableWithName(variable.name().value_or(std::u16string()));
    variable.beginBatchOwnerLinesChange();
    variable.removeAllOwnerLines();
    for (const auto& owner : owners)
        variable.addOwnerLine(owner, owner == owners.front()
                                         ? TCVariable::wholeRange
                                         : TCRange{static_cast<int64_t>(owner->index()), -1});
    variable.endBatchOwnerLineChange();
}

void TCLineCollection::removeVariableIfNeeded(const std::shared_ptr<TCLineCollectionVariable>& variable) {
    if (variable && variable->countOfOwnerLines() == 0) variables()->removeVariable(variable);
}

TCLineCollection::NameChanges
TCLineCollection::updateInternalVariableList(const TCLineDeclarationIndex::Names& changedNames,
                                             bool positionsChanged) {
    NameChanges changes;
    const auto list = variables();
    if (!list) return changes;
    const auto hasOtherSpelling = [&](const std::u16string& name) {
        return list->containsVariableWithName(name, true, false);
    };
    for (const TCLineDeclarationIndex::Name& changedName : changedNames) {
        const std::u16string name = changedName->utf16();
        auto variable = lineCollectionVariableWithName(name, true);
        const bool isDeclared = !linesDeclaringVariableWithName(name).empty();
        if (variable) {
            updateLineCollectionVariableOwnership(*variable);
            if (isDeclared) continue;
            removeVariableIfNeeded(variable);
        } else {
            if (!isDeclared) continue;
            changes.spellingsChanged |= hasOtherSpelling(name);
            variable = TCLineCollectionVariable::variableWithName(changedName);
            updateLineCollectionVariableOwnership(*variable);
            list->addVariable(variable);
        }
        changes.comeAndGone.push_back(name);
        if (!isDeclared) changes.spellingsChanged |= hasOtherSpelling(name);
    }
    if (!positionsChanged) return changes;
    // The only declaration of a name rules all lines wherever it stands.
    for (const TCLineDeclarationIndex::Name& name : declarations.namesDeclaredRepeatedly())
        if (const auto variable = lineCollectionVariableWithName(name->utf16(), true))
            updateLineCollectionVariableOwnership(*variable);
    return changes;
}

TCLineIndexSet TCLineCollection::unparseLinesThatMayUse(const std::vector<std::u16string>& names) {
    if (names.empty()) return {};
    if (names.size() > namesWorthSearching) {
        unparseAllLines();
        return TCLineIndexSet::withRange(0, lines.size());
    }
    std::vector<std::size_t> unparsed;
    for (const auto& line : lines) {
        if (line->isKeptAsNothing()) continue;
        const auto& evaluable = line->evaluableExpression();
        if (!line->isParsed() || !evaluable || !mayHold(evaluable->stringForEvaluation(), names)) continue;
        line->unparse();
        unparsed.push_back(line->index());
    }
    return TCLineIndexSet(std::move(unparsed));
}

std::vector<std::shared_ptr<TCLineCollectionVariable>>
TCLineCollection::directLineCollectionVariableReferencesForLine(const TCLine& line) const {
    std::vector<std::shared_ptr<TCLineCollectionVariable>> found;
    if (declarations.isEmpty()) return found;
    for (const std::u16string& name : line.usedVariableNames())
        if (auto variable = lineCollectionVariableWithName(name, false)) found.push_back(std::move(variable));
    return found;
}

TCLineIndexSet TCLineCollection::directLineCollectionVariableOwnersForLine(const TCLine& line) const {
    std::vector<std::size_t> indexes;
    for (const auto& variable : directLineCollectionVariableReferencesForLine(line)) {
        if (variable->countOfOwnerLines() > ownersWithEdges) {
            for (const auto& owner : ownersReadAt(*variable, line.index()))
                indexes.push_back(owner->index());
            continue;
        }
        for (const auto& owner : variable->ownerLines())
            indexes.push_back(owner->index());
    }
    return TCLineIndexSet(std::move(indexes));
}

// Whether the line `readerIndex`, which uses the name that the line `index` declares, reads the value of that
// one.
bool TCLineCollection::isReadAsVariable(std::size_t index, std::size_t readerIndex) const {
    if (index >= lines.size()) return false;
    const auto declaration = lines[index]->variableDeclaration();
    const auto variable = declaration ? lineCollectionVariableWithName(declaration->name(), true) : nullptr;
    if (!variable) return false;
    const auto owners = ownersReadAt(*variable, readerIndex);
    return std::find(owners.begin(), owners.end(), lines[index]) != owners.end();
}

// The line's answer, or none while it has none, becomes the value of the name that it declares.
void TCLineCollection::storeValueOfDeclaringLine(const std::shared_ptr<TCLine>& line) {
    const auto declaration = line->variableDeclaration();
    const auto variable = declaration ? lineCollectionVariableWithName(declaration->name(), true) : nullptr;
    if (variable && variable->isOwnerLine(line)) {
        int64_t error = 0;
        variable->setValueResult(line->_resultAlongPath(nullptr, &error), line);
    }
}
