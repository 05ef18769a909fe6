#pragma once

// The plain functions over functions and lists of them. Null handles give null, 0 or nothing. Functions
// are set up on one thread and only read afterwards.

#include "names/functions/FunctionImplementation.h"
#include "runtime/Ref.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace TBF {
class Function;
class FunctionList;
class String;
} // namespace TBF
using TBFFunctionRef = TBF::Function*;
using TBFFunctionListRef = TBF::FunctionList*;

// Create. The caller owns the result. Names are UTF-8.
TBFFunctionRef TBFFunctionCreate(const std::string& name, const std::vector<std::string>& aliases);
TBFFunctionRef TBFFunctionCreateWithName(const std::string& name);
TBFFunctionRef TBFFunctionCreateWithName(const TBF::String* name, uint8_t argumentCount);
TBFFunctionRef TBFFunctionRetain(TBFFunctionRef function);
void TBFFunctionRelease(const TBF::Function* function);

// Set up. Each of the Set...Implementation functions replaces an earlier implementation.
void TBFFunctionSetNumberOfArguments(TBFFunctionRef function, uint8_t count);
void TBFFunctionSetMAPMImplementation(TBFFunctionRef function,
                                      TBF::FunctionImplementationLegacyMAPM::Body body);
void TBFFunctionSetTBFNumberToMAPMImplementation(TBFFunctionRef function,
                                                 TBF::FunctionImplementationMAPM::Body body);
void TBFFunctionSetTBFValueToTBFValueImplementation(TBFFunctionRef function,
                                                    TBF::FunctionImplementationTBFValue::Body body);
void TBFFunctionSetTBFValueToTBFEvaluatedValueImplementation(
    TBFFunctionRef function, TBF::FunctionImplementationTBFEvaluatedValue::Body body);
void TBFFunctionSetFunctionImplementation(TBFFunctionRef function,
                                          std::unique_ptr<TBF::FunctionImplementation> implementation);

// Read. References are borrowed from the function.
uint8_t TBFFunctionGetNumberOfArguments(const TBF::Function* function);
const TBF::String* TBFFunctionGetNameReference(const TBF::Function* function);
const TBF::String* TBFFunctionGetLowercaseNameReference(const TBF::Function* function);
int32_t TBFFunctionGetCountOfAliases(const TBF::Function* function);
const std::vector<TBF::Ref<TBF::String>>& TBFFunctionGetAliasesReference(const TBF::Function* function);
TBFFunctionImplementationType TBFFunctionGetImplementationType(const TBF::Function* function);

// Execute. The values stand in the order of writing and are borrowed; the result is owned by the caller,
// and so is what `metadataOut` (may be null) receives. Null when there is no value.
TBF::Value* TBFFunctionExecute(const TBF::Function* function, TBF::Value* const* values, int32_t count,
                               TBF::MAPMContext* registers, TBF::EvaluationContext* context,
                               TBF::EvalMetadata** metadataOut);

// The same for plain digits, given in reverse order.
TBF::Value* TBFFunctionExecute(const TBF::Function* function, const M_APM* digits, int32_t count,
                               TBF::MAPMContext* registers, TBF::EvaluationContext* context);

// Lists: create. The caller owns the result.
TBFFunctionListRef TBFFunctionListCreate();
TBFFunctionListRef TBFFunctionListRetain(TBFFunctionListRef list);
void TBFFunctionListRelease(const TBF::FunctionList* list);

// Lists: change. The list takes references of its own.
void TBFFunctionListSetParentList(TBFFunctionListRef list, TBFFunctionListRef parent);
void TBFFunctionListAddFunction(TBFFunctionListRef list, TBFFunctionRef function);
void TBFFunctionListRemoveAll(TBFFunctionListRef list);

// Lists: read. Functions are borrowed; the out arguments may be null.
TBFFunctionRef TBFFunctionListGetFunctionWithName(const TBF::FunctionList* list, const TBF::String* name);
TBFFunctionRef TBFFunctionListGetFunctionWithName(const TBF::FunctionList* list, const std::string& name);
TBFFunctionRef TBFFunctionListFindFunctionByName(const TBF::FunctionList* list, const TBF::String* name,
                                                 bool* exactCase, bool* fromParent);
TBFFunctionRef TBFFunctionListFindFunctionByNameAndLowercaseName(const TBF::FunctionList* list,
                                                                 const TBF::String* name,
                                                                 const TBF::String* lowercaseName,
                                                                 bool searchParents, bool* exactCase,
                                                                 bool* fromParent);
TBFFunctionImplementationType TBFFunctionListGetImplementationType(const TBF::FunctionList* list,
                                                                   const TBF::String* name);
uint8_t TBFFunctionListGetArgumentCount(const TBF::FunctionList* list, const TBF::String* name);
TBFFunctionListRef TBFFunctionListGetStandardList();

// Makes the standard list, once; a later call does nothing.
void TBFStandardFunctionsInit();
TBFFunctionListRef TBFStandardFunctionsGetSharedListReference();
