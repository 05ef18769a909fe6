#include "face/names/functions/TBFFunction.h"

#include "names/functions/Function.h"
#include "names/functions/FunctionList.h"
#include "numbers/Number.h"
#include "units/EvalMetadata.h"
#include "units/Value.h"

#include <algorithm>

using TBF::Function;
using TBF::FunctionList;
using TBF::Ref;
using TBF::String;
using TBF::Value;

namespace {

template <typename Implementation, typename Body>
void setBody(Function* function, Body body) {
    if (function) function->setImplementation(std::make_unique<Implementation>(body));
}

TBFFunctionRef report(const FunctionList::Match& match, bool* exactCase, bool* fromParent) {
    if (exactCase) *exactCase = match.exactCase;
    if (fromParent) *fromParent = match.fromParent;
    return match.function;
}

} // namespace

TBFFunctionRef TBFFunctionCreate(const std::string& name, const std::vector<std::string>& aliases) {
    std::vector<Ref<String>> names;
    names.reserve(aliases.size());
    for (const std::string& alias : aliases)
        names.push_back(String::createWithUTF8(alias));
    return Function::create(String::createWithUTF8(name), std::move(names)).leak();
}

TBFFunctionRef TBFFunctionCreateWithName(const std::string& name) {
    return TBFFunctionCreate(name, {});
}

TBFFunctionRef TBFFunctionCreateWithName(const String* name, uint8_t argumentCount) {
    return Function::create(TBF::retain(const_cast<String*>(name)), {}, argumentCount).leak();
}

TBFFunctionRef TBFFunctionRetain(TBFFunctionRef function) {
    return TBF::retain(function).leak();
}

void TBFFunctionRelease(const Function* function) {
    if (function) function->release();
}

void TBFFunctionSetNumberOfArguments(TBFFunctionRef function, uint8_t count) {
    if (function) function->setArgumentCount(count);
}

void TBFFunctionSetMAPMImplementation(TBFFunctionRef function,
                                      TBF::FunctionImplementationLegacyMAPM::Body body) {
    setBody<TBF::FunctionImplementationLegacyMAPM>(function, body);
}

void TBFFunctionSetTBFNumberToMAPMImplementation(TBFFunctionRef function,
                                                 TBF::FunctionImplementationMAPM::Body body) {
    setBody<TBF::FunctionImplementationMAPM>(function, body);
}

void TBFFunctionSetTBFValueToTBFValueImplementation(TBFFunctionRef function,
                                                    TBF::FunctionImplementationTBFValue::Body body) {
    setBody<TBF::FunctionImplementationTBFValue>(function, body);
}

void TBFFunctionSetTBFValueToTBFEvaluatedValueImplementation(
    TBFFunctionRef function, TBF::FunctionImplementationTBFEvaluatedValue::Body body) {
    setBody<TBF::FunctionImplementationTBFEvaluatedValue>(function, body);
}

void TBFFunctionSetFunctionImplementation(TBFFunctionRef function,
                                          std::unique_ptr<TBF::FunctionImplementation> implementation) {
    if (function) function->setImplementation(std::move(implementation));
}

uint8_t TBFFunctionGetNumberOfArguments(const Function* function) {
    return function ? function->argumentCount() : 0;
}

const String* TBFFunctionGetNameReference(const Function* function) {
    return function ? &function->name() : nullptr;
}

const String* TBFFunctionGetLowercaseNameReference(const Function* function) {
    return function ? &function->lowercaseName() : nullptr;
}

int32_t TBFFunctionGetCountOfAliases(const Function* function) {
    return function ? static_cast<int32_t>(function->aliases().size()) : 0;
}

const std::vector<TBF::Ref<TBF::String>>& TBFFunctionGetAliasesReference(const TBF::Function* function) {
    static const std::vector<TBF::Ref<TBF::String>> none;
    return function ? function->aliases() : none;
}

TBFFunctionImplementationType TBFFunctionGetImplementationType(const Function* function) {
    return function ? function->implementationType() : TBFFunctionImplementationTypeNone;
}

Value* TBFFunctionExecute(const Function* function, Value* const* values, int32_t count,
                          TBF::MAPMContext* registers, TBF::EvaluationContext* context,
                          TBF::EvalMetadata** metadataOut) {
    if (metadataOut) *metadataOut = nullptr;
    if (!function || !registers || count < 0 || (!values && count > 0)) return nullptr;
    Ref<TBF::EvalMetadata> metadata;
    Ref<Value> value = function->execute({{values, static_cast<std::size_t>(count)}, *registers, context},
                                         metadataOut ? &metadata : nullptr);
    if (metadataOut) *metadataOut = metadata.leak();
    return value.leak();
}

Value* TBFFunctionExecute(const Function* function, const M_APM* digits, int32_t count,
                          TBF::MAPMContext* registers, TBF::EvaluationContext* context) {
    if (!digits && count > 0) return nullptr;
    std::vector<Ref<Value>> owners;
    for (int32_t i = count; i > 0; --i)
        owners.push_back(Value::create(TBF::Number::create(digits[i - 1], TBFNumberTypeDecimal)));
    std::vector<Value*> values(owners.size());
    std::transform(owners.begin(), owners.end(), values.begin(),
                   [](const auto& owner) { return owner.get(); });
    return TBFFunctionExecute(function, values.data(), static_cast<int32_t>(values.size()), registers,
                              context, nullptr);
}

TBFFunctionListRef TBFFunctionListCreate() {
    return FunctionList::create().leak();
}

TBFFunctionListRef TBFFunctionListRetain(TBFFunctionListRef list) {
    return TBF::retain(list).leak();
}

void TBFFunctionListRelease(const FunctionList* list) {
    if (list) list->release();
}

void TBFFunctionListSetParentList(TBFFunctionListRef list, TBFFunctionListRef parent) {
    if (list) list->setParentList(TBF::retain(parent));
}

void TBFFunctionListAddFunction(TBFFunctionListRef list, TBFFunctionRef function) {
    if (list && function) list->add(TBF::retain(function));
}

void TBFFunctionListRemoveAll(TBFFunctionListRef list) {
    if (list) list->removeAll();
}

TBFFunctionRef TBFFunctionListGetFunctionWithName(const FunctionList* list, const String* name) {
    return TBFFunctionListFindFunctionByName(list, name, nullptr, nullptr);
}

TBFFunctionRef TBFFunctionListGetFunctionWithName(const FunctionList* list, const std::string& name) {
    return TBFFunctionListGetFunctionWithName(list, String::createWithUTF8(name).get());
}

TBFFunctionRef TBFFunctionListFindFunctionByName(const FunctionList* list, const String* name,
                                                 bool* exactCase, bool* fromParent) {
    return report(list && name ? list->find(*name) : FunctionList::Match{}, exactCase, fromParent);
}

TBFFunctionRef TBFFunctionListFindFunctionByNameAndLowercaseName(const FunctionList* list, const String* name,
                                                                 const String* lowercaseName,
                                                                 bool searchParents, bool* exactCase,
                                                                 bool* fromParent) {
    const bool canSearch = list && name && lowercaseName;
    return report(canSearch ? list->find(*name, *lowercaseName, searchParents) : FunctionList::Match{},
                  exactCase, fromParent);
}

TBFFunctionImplementationType TBFFunctionListGetImplementationType(const FunctionList* list,
                                                                   const String* name) {
    return TBFFunctionGetImplementationType(TBFFunctionListGetFunctionWithName(list, name));
}

uint8_t TBFFunctionListGetArgumentCount(const FunctionList* list, const String* name) {
    return TBFFunctionGetNumberOfArguments(TBFFunctionListGetFunctionWithName(list, name));
}

TBFFunctionListRef TBFFunctionListGetStandardList() {
    return &FunctionList::standard();
}

void TBFStandardFunctionsInit() {
    FunctionList::standard();
}

TBFFunctionListRef TBFStandardFunctionsGetSharedListReference() {
    return &FunctionList::standard();
}
