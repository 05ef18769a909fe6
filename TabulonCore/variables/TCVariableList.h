#pragma once

// The variables of an environment or of one document, over a foundation list with the list of a parent behind
// it. Counts its changes, so that whoever read names can tell whether they still hold. Used on the
// document's thread.

#include "names/variables/VariableList.h"
#include "runtime/Ref.h"
#include "runtime/String.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class TCVariable;
class TCVariableList;

// Hears of changes of the variables of a list, after they have happened.
class TCVariableListDelegate {
public:
    virtual ~TCVariableListDelegate() = default;
    virtual void variableDidUpdateInVariableList(TCVariable&, TCVariableList&) {}
};

class TCVariableList {
public:
    TCVariableList();
    ~TCVariableList();
    TCVariableList(const TCVariableList&) = delete;
    TCVariableList& operator=(const TCVariableList&) = delete;

    // A new list that lists the standard variables; they are found in the foundation's parent list.
    static std::shared_ptr<TCVariableList> listWithStandardVariables();

    // That of the current environment; null without one.
    static std::shared_ptr<TCVariableList> sharedList();

    // Names that aren't here are looked up in the parent. May be null; a list that has this one behind it
    // isn't taken.
    void setParentList(std::shared_ptr<TCVariableList> list);

    // Goes up with every change of the list, though not with the values.
    uint64_t stateIndicator() const { return changes; }
    void registerStateChange() { ++changes; }

    // The names that expressions find in this list alone (the first two), and with those of all its parents.
    int32_t count() const { return countOfTopLevelVariables(); }
    int32_t countOfTopLevelVariables() const;
    int32_t countOfAllVariables() const;

    // What is listed here, enabled or not, in no particular order; the second with that of all parents.
    std::vector<std::shared_ptr<TCVariable>> variables() const;
    std::vector<std::shared_ptr<TCVariable>> allVariables() const;
    std::vector<std::u16string> variableNames() const;

    // Lookup, through aliases as well. Null for none, and for a variable that no core object stands for.
    // Without a word on it, parents are searched.
    std::shared_ptr<TCVariable> variableWithName(std::u16string_view name) const;
    std::shared_ptr<TCVariable> variableWithExactCaseName(std::u16string_view name) const;
    std::shared_ptr<TCVariable> variableWithName(std::u16string_view name, bool caseInsensitive,
                                                 bool searchParentList) const;
    bool containsVariableWithName(std::u16string_view name) const;
    bool containsVariableWithExactCaseName(std::u16string_view name) const;
    bool directlyContainsVariableWithExactCaseName(std::u16string_view name) const;
    bool containsVariableWithName(std::u16string_view name, bool caseInsensitive,
                                  bool searchParentList) const;

    // By name; nothing happens, and nothing comes, for an unknown one, but that a value makes a variable.
    std::optional<std::u16string> valueOfVariableWithName(std::u16string_view name) const;
    void setValueForVariableWithName(std::optional<std::u16string> value, std::u16string_view name);
    std::vector<std::u16string> aliasesOfVariableWithName(std::u16string_view name) const;
    void addAliasForVariableWithName(std::u16string_view alias, std::u16string_view name);
    void removeVariableWithName(std::u16string_view name);

    // Expressions find a variable that is enabled, and of several enabled ones of a name that which came
    // last. Adding replaces what was listed under the very name. Null does nothing.
    void addVariable(const std::shared_ptr<TCVariable>& variable);
    void addVariableWithName(std::u16string_view name, std::optional<std::u16string> value);
    void addVariableWithoutAddingToTBFVariableList(const std::shared_ptr<TCVariable>& variable);
    void removeVariable(const std::shared_ptr<TCVariable>& variable);
    void removeAllVariables();

    // Not owned; may be null.
    TCVariableListDelegate* delegate() const { return observer; }
    void setDelegate(TCVariableListDelegate* delegate) { observer = delegate; }

    // Called by the variables of the list.
    void variableDidUpdateName(TCVariable& variable, const std::optional<std::u16string>& oldName,
                               const std::u16string& newName);
    void variableDidUpdateValue(TCVariable& variable);
    void variableDidChangeEnabledState(TCVariable& variable, bool enabled);
    bool variableCanChangeNameTo(const TCVariable& variable, std::u16string_view name) const; // always true
    void variableDidChangeCaseSensitiveState(TCVariable& variable, bool isCaseSensitive);     // does nothing
    void _setVariableIsCaseSensitive(TCVariable& variable, bool isCaseSensitive);             // does nothing

    // Borrowed; never null.
    TBF::VariableList* tbfVariableList() const { return list.get(); }
    TBF::VariableList* combinedTBFVariableList() const { return list.get(); }

private:
    using Listed = std::unordered_multimap<TBF::Ref<TBF::String>, std::shared_ptr<TCVariable>,
                                           TBF::StringContentHash, TBF::StringContentEqual>;

    Listed::const_iterator placeOf(const TCVariable& variable, std::u16string_view name) const;
    std::shared_ptr<TCVariable> listedVariable(const TBF::Variable& variable) const;
    void letGo(Listed::const_iterator place);
    void removeFromTBFVariableList(const TCVariable& variable);
    void tellDelegate(TCVariable& variable);

    TBF::Ref<TBF::VariableList> list;
    std::shared_ptr<TCVariableList> parent;

    // By exact name, mostly the variable's own text. Those of one name are a variable and disabled ones that
    // it was renamed like.
    Listed listed;
    uint64_t changes = 0;
    TCVariableListDelegate* observer = nullptr;
};
