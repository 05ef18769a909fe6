#pragma once

// The functions of an environment: a foundation list in the core layer's hands. Filled while an environment
// is made, only read afterwards.

#include "names/functions/FunctionList.h"
#include "runtime/Ref.h"

class TCFunctionList {
public:
    // Of a new, empty foundation list, or of the given one.
    TCFunctionList();
    explicit TCFunctionList(TBF::Ref<TBF::FunctionList> list);
    ~TCFunctionList();

    // Borrowed; never null.
    TBF::FunctionList* tbfFunctionList() const { return list.get(); }

private:
    TBF::Ref<TBF::FunctionList> list;
};
