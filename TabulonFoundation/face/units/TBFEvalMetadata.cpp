#include "face/units/TBFEvalMetadata.h"

#include "units/EvalMetadata.h"

using TBF::EvalMetadata;

TBFEvalMetadataRef TBFEvalMetadataCreate() {
    return EvalMetadata::create().leak();
}

TBFEvalMetadataRef TBFEvalMetadataRetain(TBFEvalMetadataRef metadata) {
    return TBF::retain(metadata).leak();
}

void TBFEvalMetadataRelease(const EvalMetadata* metadata) {
    if (metadata) metadata->release();
}

void TBFEvalMetadataAppendUnitFraction(TBFEvalMetadataRef metadata, const TBF::UnitFraction* fraction) {
    if (metadata) metadata->appendUnitFraction(fraction);
}

void TBFEvalMetadataAppendUnitNameFormatMapping(TBFEvalMetadataRef metadata, const TBF::Unit* unit,
                                                TBFUnitFormatType format) {
    if (metadata) metadata->appendUnitNameFormatMapping(unit, format);
}

void TBFEvalMetadataAppendAccumulator(TBFEvalMetadataRef metadata, const EvalMetadata* other) {
    if (metadata && other) metadata->append(*other);
}

void TBFEvalMetadataAppendAccumulatorForOperation(TBFEvalMetadataRef metadata, const EvalMetadata* other,
                                                  TBFOperatorType operatorType) {
    if (metadata && other) metadata->append(*other, operatorType);
}

TBF::Unit* TBFEvalMetadataGetPreferredUnitOfType(const EvalMetadata* metadata, TBFUnitType type) {
    return metadata ? metadata->preferredUnit(type) : nullptr;
}

TBF::Unit* TBFEvalMetadataGetRequiredUnitOfType(const EvalMetadata* metadata, TBFUnitType type) {
    return metadata ? metadata->requiredUnit(type) : nullptr;
}

std::map<TBFUnitType, TBF::Unit*> TBFEvalMetadataGetPreferredUnitsMap(const EvalMetadata* metadata) {
    return metadata ? metadata->preferredUnits() : EvalMetadata::UnitsByType{};
}

std::map<TBFUnitType, TBF::Unit*> TBFEvalMetadataGetRequiredUnitsMap(const EvalMetadata* metadata) {
    return metadata ? metadata->requiredUnits() : EvalMetadata::UnitsByType{};
}

const TBF::UnitNameFormats& TBFEvalMetadataGetUnitNameFormatMap(const EvalMetadata* metadata) {
    static const TBF::UnitNameFormats none;
    return metadata ? metadata->unitNameFormats() : none;
}
