#pragma once

// The functions of a line's language, found by name or alias in any case, with a parent list behind. A
// list is filled on one thread while an environment is built, and only read afterwards.

#include "names/functions/Function.h"
#include "runtime/CaseInsensitiveDictionary.h"

#include <string_view>

namespace TBF {

class FunctionList final : public Object<FunctionList> {
public:
    struct Match {
        Function* function = nullptr; // borrowed from the list
        bool exactCase = false;       // the word equals the name, or alias, in every code unit
        bool fromParent = false;
    };

    static Ref<FunctionList> create() { return make<FunctionList>(); }

    // Replaces what stood under the function's name and aliases.
    void add(const Ref<Function>& function);
    void removeAll();
    void setParentList(Ref<FunctionList> list); // not one that has this list behind it

    // A name beats an alias, and this list its parent.
    Match find(const HashedText& name, const HashedText& lowercaseName, bool searchParents = true) const;
    Match find(const String& name, const String& lowercaseName, bool searchParents = true) const;
    Match find(const String& name) const;

    // The functions that every environment has.
    static FunctionList& standard();

private:
    friend class Object<FunctionList>;

    FunctionList();
    ~FunctionList() override;

    static void set(CaseInsensitiveDictionary& dictionary, String& key, const Ref<Function>& function);

    Ref<CaseInsensitiveDictionary> functions; // holds a reference to each function
    Ref<CaseInsensitiveDictionary> aliases;   // holds a reference for each alias
    Ref<FunctionList> parentList;
};

} // namespace TBF
