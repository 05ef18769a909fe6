#pragma once

// The variables of an environment or of one document, over a foundation list with the list of a parent behind
// it. Counts its changes, so that whoever read names can tell whether they still hold. Used on the
// document's thread.

#include "eval/variables/TBFVariableList.h"
#include "runtime/Ref.h"

#include <cstdint>
#include <memory>

class TCVariableList {
public:
    TCVariableList();
    ~TCVariableList();
    TCVariableList(const TCVariableList&) = delete;
    TCVariableList& operator=(const TCVariableList&) = delete;

    // A new list, empty but for the standard variables behind it.
    static std::shared_ptr<TCVariableList> listWithStandardVariables();

    // That of the current environment; null without one.
    static std::shared_ptr<TCVariableList> sharedList();

    // Names that aren't here are looked up in the parent. May be null.
    void setParentList(std::shared_ptr<TCVariableList> list);

    // Goes up with every change of the list.
    uint64_t stateIndicator() const { return changes; }
    void registerStateChange() { ++changes; }

    // The names in this list alone, and with those of all its parents.
    int32_t countOfTopLevelVariables() const;
    int32_t countOfAllVariables() const;

    void removeAllVariables();

    // Borrowed; never null.
    TBFVariableListRef tbfVariableList() const { return list.get(); }

private:
    TBF::Ref<TBF::VariableList> list;
    std::shared_ptr<TCVariableList> parent;
    uint64_t changes = 0;
};
