#pragma once

// A name that stands for a value, which may differ from line to line of a document: the values live in a map
// from ranges of line indexes. A variable knows the lists that hold it, so that a change of its name
// reaches them. Used on the thread that runs the document; the standard variables are only read.

#include "names/variables/VariableValue.h"
#include "numbers/Number.h"
#include "runtime/IndexRangeMap.h"
#include "runtime/Object.h"
#include "runtime/TBFTypes.h"

#include <vector>

namespace TBF {

class VariableList;

class Variable final : public Object<Variable> {
public:
    // The scope that reads the value behind the last line.
    static constexpr int32_t endScope = TBFRangeLengthMax;

    static Ref<Variable> create() { return make<Variable>(); }

    // False, without a change, for the very handle held, and when a list that holds this variable already
    // finds a variable of exactly that name. With the name null the variable leaves its lists.
    bool setName(Ref<String> newName);
    String* name() const { return ownName.get(); }
    String* lowercaseName() const;

    void addAlias(Ref<String> alias);
    void removeAlias(const String& alias); // the first one that is equal
    const std::vector<Ref<String>>& aliases() const { return otherNames; }

    // The value for the lines of the range, replacing what stood there.
    void setValue(Ref<String> string, uint32_t flags, Ref<UnitContainer> unitContainer,
                  TBFRange scopes = {0, TBFRangeLengthMax});

    // The value at a line index; null where none stands. Borrowed until the next change.
    const VariableValue* valueAt(int32_t scope) const;

    // A number of the digits, plain or a percentage; null without digits.
    Ref<Number> numberAt(int32_t scope) const;

    // The core layer's object over this variable. Borrowed: it clears itself when it goes.
    void* wrapperObject() const { return wrapper; }
    void setWrapperObject(void* object) { wrapper = object; }

private:
    friend class Object<Variable>;
    friend class VariableList; // enters and leaves owningLists

    Variable();
    ~Variable() override;

    Ref<String> ownName;
    mutable Ref<String> lowercase; // made on demand, cleared with the name
    std::vector<Ref<String>> otherNames;
    Ref<IndexRangeMap> values; // of VariableValue, freed by the map
    void* wrapper = nullptr;
    std::vector<VariableList*> owningLists; // not owned: a list takes itself out; each stands here once
};

} // namespace TBF
