#pragma once

// The plain functions over evaluation metadata: which units a line named. Null handles are accepted
// everywhere. One thread uses a metadata object.

#include "units/UnitNameFormats.h"

#include <cstdint>
#include <map>

enum TBFUnitType : int32_t;
enum TBFOperatorType : int32_t;

namespace TBF {
class EvalMetadata;
class UnitFraction;
} // namespace TBF
using TBFEvalMetadataRef = TBF::EvalMetadata*;

// Create. The caller owns the result.
TBFEvalMetadataRef TBFEvalMetadataCreate();
TBFEvalMetadataRef TBFEvalMetadataRetain(TBFEvalMetadataRef metadata);
void TBFEvalMetadataRelease(const TBF::EvalMetadata* metadata);

// Gather. On a conflict the later entry wins; an `operatorType` of unit conversion makes the other's units
// the required ones.
void TBFEvalMetadataAppendUnitFraction(TBFEvalMetadataRef metadata, const TBF::UnitFraction* fraction);
void TBFEvalMetadataAppendUnitNameFormatMapping(TBFEvalMetadataRef metadata, const TBF::Unit* unit,
                                                TBFUnitFormatType format);
void TBFEvalMetadataAppendAccumulator(TBFEvalMetadataRef metadata, const TBF::EvalMetadata* other);
void TBFEvalMetadataAppendAccumulatorForOperation(TBFEvalMetadataRef metadata, const TBF::EvalMetadata* other,
                                                  TBFOperatorType operatorType);

// Read. Units are borrowed from the unit collection; null or an empty map where there is none.
TBF::Unit* TBFEvalMetadataGetPreferredUnitOfType(const TBF::EvalMetadata* metadata, TBFUnitType type);
TBF::Unit* TBFEvalMetadataGetRequiredUnitOfType(const TBF::EvalMetadata* metadata, TBFUnitType type);
std::map<TBFUnitType, TBF::Unit*> TBFEvalMetadataGetPreferredUnitsMap(const TBF::EvalMetadata* metadata);
std::map<TBFUnitType, TBF::Unit*> TBFEvalMetadataGetRequiredUnitsMap(const TBF::EvalMetadata* metadata);
const TBF::UnitNameFormats& TBFEvalMetadataGetUnitNameFormatMap(const TBF::EvalMetadata* metadata);
