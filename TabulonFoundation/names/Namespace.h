#pragma once

// Says what a word is. It bundles the four lists that can give a word a meaning, and decides between them
// where several claim the same word: the exact spelling of a variable, a unit or a function wins, in this
// order; then a variable or a function in another case, but not if there are both; then a word operator; then
// a unit in another case. Only read once it is filled, as its lists are; may then be shared by analyses.

#include "names/WordMeaning.h"
#include "runtime/Object.h"
#include "runtime/Ref.h"
#include "runtime/String.h"

#include <cstdint>
#include <span>
#include <string_view>

enum TBFNamespaceType : int32_t {
    TBFNamespaceTypeNone = 0,
    TBFNamespaceTypeFunction = 1,
    TBFNamespaceTypeVariable = 2,
    TBFNamespaceTypeUnit = 3,
    TBFNamespaceTypeWordOperator = 4,
};

namespace TBF {

class FunctionList;
class UnitCollection;
class VariableList;
class WordOperatorList;

class Namespace final : public Object<Namespace> {
public:
    static Ref<Namespace> create();
    static Ref<Namespace> create(Ref<FunctionList> functions, Ref<VariableList> variables,
                                 Ref<WordOperatorList> wordOperators, Ref<UnitCollection> units);

    // Null for a list that isn't there.
    void setFunctionList(Ref<FunctionList> list);
    void setVariableList(Ref<VariableList> list);
    void setUnitCollection(Ref<UnitCollection> collection);
    void setWordOperatorList(Ref<WordOperatorList> list);

    // Borrowed; null if not set.
    UnitCollection* unitCollection() const { return units.get(); }
    WordOperatorList* wordOperatorList() const { return wordOperators.get(); }

    // What the words mean together; several words can only be a unit. `meaning`, which comes empty,
    // receives everything that was found, not only what the answer names, and stays empty if the answer
    // is None. Variables are taken as they read at the line `scope`.
    // `mayBeUnit` is false if the caller knows that they are no unit's name.
    TBFNamespaceType lookUp(std::span<const std::u16string_view> words, int32_t scope, WordMeaning& meaning,
                            bool mayBeUnit = true) const;

    // False if no name of several words begins with `word`, in any case. `*mayBeUnit` tells whether any
    // unit's name begins with it, and may be null.
    bool mayBeginLongerName(std::u16string_view word, bool* mayBeUnit = nullptr) const;

private:
    friend class Object<Namespace>;

    Namespace();
    ~Namespace() override;

    Ref<FunctionList> functions;
    Ref<VariableList> variables;
    Ref<UnitCollection> units;
    Ref<WordOperatorList> wordOperators;
};

} // namespace TBF
