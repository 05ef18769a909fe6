#include "environment/TCFunctionList.h"

#include "names/functions/FunctionList.h"

TCFunctionList::TCFunctionList()
    : list(TBF::FunctionList::create()) {}

TCFunctionList::TCFunctionList(TBF::Ref<TBF::FunctionList> foundationList)
    : list(std::move(foundationList)) {}

TCFunctionList::~TCFunctionList() = default;
