#include "lines/TCDeclaredNames.h"

#include "environment/TCEnvironment.h"
#include "expressions/TCExpression.h"
#include "expressions/TCLineVariableDeclaration.h"
#include "lines/TCLine.h"
#include "lines/TCLineCollectionVariable.h"
#include "lines/TCLineList.h"
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

std::shared_ptr<TCVariableList> TCDeclaredNames::variables() const {
    return environment_->variables();
}

void TCDeclaredNames::allLinesWent() {
    declarations_.removeAll();
    if (const auto list = variables()) list->removeAllVariables();
}

std::vector<std::shared_ptr<TCLine>>
TCDeclaredNames::linesDeclaringVariableWithName(const std::u16string& name) const {
    return declarations_.linesDeclaring(name);
}

bool TCDeclaredNames::hasDeclarationOnOrAfterIndex(std::size_t index) const {
    return declarations_.hasDeclarationOnOrAfterIndex(index);
}

std::shared_ptr<TCLineCollectionVariable>
TCDeclaredNames::lineCollectionVariableWithName(const std::u16string& name, bool exactCase) const {
    const auto list = variables();
    if (!list) return nullptr;
    return std::dynamic_pointer_cast<TCLineCollectionVariable>(
        exactCase ? list->variableWithExactCaseName(name) : list->variableWithName(name));
}

std::vector<std::shared_ptr<TCLineCollectionVariable>>
TCDeclaredNames::directLineCollectionVariableReferencesForLine(const TCLine& line) const {
    std::vector<std::shared_ptr<TCLineCollectionVariable>> found;
    if (declarations_.isEmpty()) return found;
    for (const std::u16string& name : line.usedVariableNames())
        if (auto variable = lineCollectionVariableWithName(name, false)) found.push_back(std::move(variable));
    return found;
}

void TCDeclaredNames::updateLineCollectionVariableOwnership(TCLineCollectionVariable& variable) {
    const auto owners = linesDeclaringVariableWithName(variable.name().value_or(std::u16string()));
    variable.beginBatchOwnerLinesChange();
    variable.removeAllOwnerLines();
    for (const auto& owner : owners)
        variable.addOwnerLine(owner, owner == owners.front()
                                         ? TCVariable::wholeRange
                                         : TCRange{static_cast<int64_t>(owner->index()), -1});
    variable.endBatchOwnerLineChange();
}

void TCDeclaredNames::removeVariableIfNeeded(const std::shared_ptr<TCLineCollectionVariable>& variable) {
    if (variable && variable->countOfOwnerLines() == 0) variables()->removeVariable(variable);
}

TCDeclaredNames::Changes TCDeclaredNames::bringVariablesUpToDate(bool positionsChanged) {
    const TCLineDeclarationIndex::Names changedNames = declarations_.takeChangedNames();
    Changes changes;
    changes.declarationsChanged = !changedNames.empty();
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
    for (const TCLineDeclarationIndex::Name& name : declarations_.namesDeclaredRepeatedly())
        if (const auto variable = lineCollectionVariableWithName(name->utf16(), true))
            updateLineCollectionVariableOwnership(*variable);
    return changes;
}

TCLineIndexSet TCDeclaredNames::unparseLinesThatMayUse(const std::vector<std::u16string>& names) {
    if (names.empty()) return {};
    if (names.size() > namesWorthSearching) {
        for (const auto& line : lines_)
            line->unparse();
        return TCLineIndexSet::withRange(0, lines_.countOfLines());
    }
    std::vector<std::size_t> unparsed;
    for (const auto& line : lines_) {
        if (line->isKeptAsNothing()) continue;
        const auto& evaluable = line->evaluableExpression();
        if (!line->isParsed() || !evaluable || !mayHold(evaluable->stringForEvaluation(), names)) continue;
        line->unparse();
        unparsed.push_back(line->index());
    }
    return TCLineIndexSet(std::move(unparsed));
}

TCLineIndexSet TCDeclaredNames::ownersUsedByLine(const TCLine& line) const {
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

std::shared_ptr<TCLineCollectionVariable> TCDeclaredNames::variableDeclaredBy(const TCLine& line) const {
    const auto declaration = line.variableDeclaration();
    return declaration ? lineCollectionVariableWithName(declaration->name(), true) : nullptr;
}

bool TCDeclaredNames::isReadAsVariable(std::size_t index, std::size_t readerIndex) const {
    if (!lines_.hasLineAtIndex(index)) return false;
    const auto variable = variableDeclaredBy(*lines_[index]);
    if (!variable) return false;
    const auto owners = ownersReadAt(*variable, readerIndex);
    return std::find(owners.begin(), owners.end(), lines_[index]) != owners.end();
}

void TCDeclaredNames::storeValueOfDeclaringLine(const std::shared_ptr<TCLine>& line) {
    const auto variable = variableDeclaredBy(*line);
    if (!variable || !variable->isOwnerLine(line)) return;
    int64_t error = 0;
    variable->setValueResult(line->_resultAlongPath(nullptr, &error), line);
}
