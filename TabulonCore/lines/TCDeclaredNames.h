#pragma once

// The names that the lines of a document declare: which line declares which, and a variable for each name in
// the document's own list, with the declaring lines and their values. Says which lines read differently when
// a name comes or goes. Part of a `TCLineCollection`, used on the document's thread.

#include "lines/TCLineDeclarationIndex.h"
#include "lines/TCLineIndexSet.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

class TCEnvironment;
class TCLine;
class TCLineCollectionVariable;
class TCLineList;
class TCVariableList;

class TCDeclaredNames {
public:
    // Both are the document's, which owns this one; it may be given another environment.
    TCDeclaredNames(const TCLineList& lines, const std::shared_ptr<TCEnvironment>& environment)
        : lines_(lines)
        , environment_(environment) {}

    // The list that holds the variables; null if the environment has none.
    std::shared_ptr<TCVariableList> variables() const;

    // Every line that comes, goes, stands elsewhere or has a new text is reported.
    void lineDeclares(const std::shared_ptr<TCLine>& line) { declarations_.update(line); }
    void lineWent(const std::shared_ptr<TCLine>& line) { declarations_.remove(line); }
    void lineMoved(const std::shared_ptr<TCLine>& line) { declarations_.noteMove(line); }
    void allLinesWent(); // and with them all variables

    // The lines that declare exactly this name, in document order.
    std::vector<std::shared_ptr<TCLine>> linesDeclaringVariableWithName(const std::u16string& name) const;
    bool hasDeclarationOnOrAfterIndex(std::size_t index) const;

    // The variables that lines declare. In any case, or in exactly this one; null for another variable.
    std::shared_ptr<TCLineCollectionVariable> lineCollectionVariableWithName(const std::u16string& name,
                                                                             bool exactCase) const;
    std::vector<std::shared_ptr<TCLineCollectionVariable>>
    directLineCollectionVariableReferencesForLine(const TCLine& line) const;
    void updateLineCollectionVariableOwnership(TCLineCollectionVariable& variable);
    void removeVariableIfNeeded(const std::shared_ptr<TCLineCollectionVariable>& variable);

    // What the reports since the last call come to.
    struct Changes {
        bool declarationsChanged = false;        // some name is declared by other lines than before
        std::vector<std::u16string> comeAndGone; // lines with these words read differently

        // A name came or went that differs from another one by case alone: words in a third case, which no
        // line declares, mean something else now.
        bool spellingsChanged = false;
    };
    Changes bringVariablesUpToDate(bool positionsChanged);
    TCLineIndexSet unparseLinesThatMayUse(const std::vector<std::u16string>& names); // which those are

    // The declaring lines that count as dependencies of a line.
    TCLineIndexSet ownersUsedByLine(const TCLine& line) const;

    // Whether the line `readerIndex`, which uses the name that the line `index` declares, reads the value of
    // that one.
    bool isReadAsVariable(std::size_t index, std::size_t readerIndex) const;

    // The line's answer, or none while it has none, becomes the value of the name that it declares.
    void storeValueOfDeclaringLine(const std::shared_ptr<TCLine>& line);

private:
    std::shared_ptr<TCLineCollectionVariable> variableDeclaredBy(const TCLine& line) const;

    const TCLineList& lines_;
    const std::shared_ptr<TCEnvironment>& environment_;
    TCLineDeclarationIndex declarations_;
};
