#pragma once

// Variables found by name or alias in any case, with a parent list behind. A document has a list of its
// own, whose parents are the lists of the environment. Changed on the document's thread alone.

#include "names/variables/Variable.h"
#include "runtime/CaseInsensitiveDictionary.h"

#include <vector>

namespace TBF {

class ScopedVariable;

class VariableList final : public Object<VariableList> {
public:
    struct Match {
        Variable* variable = nullptr; // borrowed from the list
        bool exactCase = false;       // the word equals the name, or alias, in every code unit
        bool fromParent = false;
    };

    static Ref<VariableList> create() { return make<VariableList>(); }

    // Replaces what stood under the variable's name, which then is in this list no more, and under its
    // aliases. A variable without a name isn't taken.
    void add(const Ref<Variable>& variable);
    void remove(Variable& variable); // only if it is what stands under its name
    void removeAll();
    void setParentList(Ref<VariableList> list); // not one that has this list behind it

    // A name beats an alias, and this list its parent, however the case fits.
    Match find(const HashedText& name, const HashedText& lowercaseName, bool searchParents = true) const;
    Match find(const String& name, const String& lowercaseName, bool searchParents = true) const;
    Match find(const String& name) const;

    // The form in which a variable stands in an expression on the line of that index.
    Ref<ScopedVariable> resolve(Variable& variable, int32_t scope) const;

    int32_t countOfTopLevelVariables() const;
    int32_t countOfVariables() const; // with those of all parents
    std::vector<Variable*> topLevelVariables() const;

    // The variables that every environment has: "pi".
    static VariableList& standard();

    // The same list for who may ask only after the start-up: asking before it ends the process.
    static void startStandard();
    static VariableList& startedStandard();

private:
    friend class Object<VariableList>;
    friend class Variable; // moves its entry on a change of name, and the alias entries

    VariableList();
    ~VariableList() override;

    bool refusesName(const String& name) const;
    void moveEntry(Variable& variable, String* oldName);
    void addAlias(Variable& variable, String& alias);
    void removeAlias(Variable& variable, String& alias);
    void enter(Variable& variable);
    void forget(Variable& variable);

    // Each holds a reference to a variable for every key under which it stands. A variable stands in
    // `variables` under its present name if and only if it has this list in its `owningLists`, and only then
    // among the aliases.
    Ref<CaseInsensitiveDictionary> variables;
    Ref<CaseInsensitiveDictionary> aliases;
    Ref<VariableList> parentList;
};

} // namespace TBF
