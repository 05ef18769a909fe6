#include "names/functions/FunctionList.h"

#include "units/EvalMetadata.h"

namespace TBF {
namespace {

void releaseAll(CaseInsensitiveDictionary& dictionary) {
    std::vector<Ref<Function>> held;
    for (void* const item : dictionary.items())
        held.push_back(adopt(static_cast<Function*>(item)));
    dictionary.removeAll();
}

} // namespace

FunctionList::FunctionList()
    : functions(CaseInsensitiveDictionary::create())
    , aliases(CaseInsensitiveDictionary::create()) {}

FunctionList::~FunctionList() {
    removeAll();
}

void FunctionList::set(CaseInsensitiveDictionary& dictionary, String& key, const Ref<Function>& function) {
    void* replaced = nullptr;
    dictionary.setItem(Ref<Function>(function).leak(), key, false, &replaced);
    const Ref<Function> previous = adopt(static_cast<Function*>(replaced));
}

void FunctionList::add(const Ref<Function>& function) {
    if (!function) return;
    set(*functions, function->name(), function);
    for (const Ref<String>& alias : function->aliases())
        set(*aliases, *alias, function);
}

void FunctionList::removeAll() {
    releaseAll(*functions);
    releaseAll(*aliases);
}

void FunctionList::setParentList(Ref<FunctionList> list) {
    for (const FunctionList* each = list.get(); each; each = each->parentList.get())
        if (each == this) return;
    parentList = std::move(list);
}

FunctionList::Match FunctionList::find(const HashedText& name, const HashedText& lowercaseName,
                                       bool searchParents) const {
    bool isParent = false;
    for (const FunctionList* list = this; list; list = searchParents ? list->parentList.get() : nullptr) {
        for (const CaseInsensitiveDictionary* dictionary : {list->functions.get(), list->aliases.get()}) {
            Match match;
            match.function = static_cast<Function*>(dictionary->find(name, lowercaseName, &match.exactCase));
            match.fromParent = isParent;
            if (match.function) return match;
        }
        isParent = true;
    }
    return {};
}

FunctionList::Match FunctionList::find(const String& name, const String& lowercaseName,
                                       bool searchParents) const {
    return find(HashedText(name), HashedText(lowercaseName), searchParents);
}

FunctionList::Match FunctionList::find(const String& name) const {
    return find(name, *name.lowercase());
}

} // namespace TBF
