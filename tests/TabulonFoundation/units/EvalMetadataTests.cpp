#include "units/EvalMetadata.h"

#include "eval/EvaluationTestSupport.h"
#include "numbers/TBFOperatorType.h"
#include "units/Unit.h"
#include "units/UnitFraction.h"

#include <gtest/gtest.h>

using namespace TBF;

namespace {

Ref<EvalMetadata> naming(std::string_view unit) {
    auto metadata = EvalMetadata::create();
    metadata->appendUnitFraction(evaltest::value("1 " + std::string(unit))->unitFraction());
    return metadata;
}

std::string identifier(const Unit* unit) {
    return unit ? unit->identifier().string() : "none";
}

std::string preferred(const EvalMetadata& metadata, TBFUnitType type) {
    return identifier(metadata.preferredUnit(type));
}

std::string required(const EvalMetadata& metadata, TBFUnitType type) {
    return identifier(metadata.requiredUnit(type));
}

TEST(EvalMetadata, ALaterMentionOfATypeWins) {
    const auto metadata = naming("km");
    metadata->append(*naming("m"));
    EXPECT_EQ(preferred(*metadata, TBFUnitTypeLength), "m");
    EXPECT_EQ(required(*metadata, TBFUnitTypeLength), "none");
}

TEST(EvalMetadata, TheNumeratorIsAskedBeforeTheDenominator) {
    const auto metadata = naming("m/h");
    EXPECT_EQ(preferred(*metadata, TBFUnitTypeLength), "m");
    EXPECT_EQ(preferred(*metadata, TBFUnitTypeTime), "h");
    metadata->append(*naming("s"));
    EXPECT_EQ(preferred(*metadata, TBFUnitTypeTime), "s");
}

TEST(EvalMetadata, AConversionRequiresItsTargetUntilTheTypeIsNamedAgain) {
    const auto metadata = naming("m");
    metadata->append(*naming("km"), TBFOperatorTypeUnitConversion);
    EXPECT_EQ(required(*metadata, TBFUnitTypeLength), "km");
    EXPECT_EQ(preferred(*metadata, TBFUnitTypeLength), "km");

    metadata->append(*naming("s"));
    EXPECT_EQ(required(*metadata, TBFUnitTypeLength), "km") << "another type leaves the requirement";

    metadata->append(*naming("ft"));
    EXPECT_EQ(required(*metadata, TBFUnitTypeLength), "none");
    EXPECT_EQ(preferred(*metadata, TBFUnitTypeLength), "ft");
}

TEST(EvalMetadata, ASecondConversionReplacesAllRequirements) {
    const auto metadata = naming("m");
    metadata->append(*naming("km/h"), TBFOperatorTypeUnitConversion);
    metadata->append(*naming("ft"), TBFOperatorTypeUnitConversion);
    EXPECT_EQ(required(*metadata, TBFUnitTypeLength), "ft");
    EXPECT_EQ(required(*metadata, TBFUnitTypeTime), "none");
}

TEST(EvalMetadata, MapsHoldTheTypesThatHaveAUnit) {
    const auto metadata = naming("km/h");
    const auto units = metadata->preferredUnits();
    ASSERT_EQ(units.size(), 2u);
    EXPECT_EQ(identifier(units.at(TBFUnitTypeLength)), "km");
    EXPECT_EQ(identifier(units.at(TBFUnitTypeTime)), "h");
    EXPECT_TRUE(metadata->requiredUnits().empty());
}

} // namespace
