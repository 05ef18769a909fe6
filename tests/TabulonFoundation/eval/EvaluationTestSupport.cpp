#include "eval/EvaluationTestSupport.h"

#include "eval/Foundation.h"
#include "numbers/TBFMAPMExtensions.h"
#include "runtime/Settings.h"
#include "units/Unit.h"
#include "units/UnitContainer.h"
#include "units/UnitFraction.h"
#include "units/UnitFractionBuilder.h"

#include <map>
#include <utility>

using namespace TBF;

namespace evaltest {

namespace {

struct UnitRow {
    const char* identifier;
    TBFUnitType type;
    const char* factor;
    const char* offset;
};

constexpr UnitRow unitRows[] = {
    {"m", TBFUnitTypeLength, "1", nullptr},          {"km", TBFUnitTypeLength, "1000", nullptr},
    {"ft", TBFUnitTypeLength, "0.3048", nullptr},    {"kg", TBFUnitTypeMass, "1", nullptr},
    {"g", TBFUnitTypeMass, "0.001", nullptr},        {"s", TBFUnitTypeTime, "1", nullptr},
    {"h", TBFUnitTypeTime, "3600", nullptr},         {"K", TBFUnitTypeTemperature, "1", nullptr},
    {"degC", TBFUnitTypeTemperature, "1", "273.15"}, {"J", TBFUnitTypeEnergy, "1", nullptr},
    {"L", TBFUnitTypeVolume, "0.001", nullptr},
};

struct World {
    Ref<UnitCollection> collection = UnitCollection::create();
    std::map<std::string, Ref<Unit>, std::less<>> byIdentifier;

    World() {
        for (const UnitRow& row : unitRows) {
            const auto name = String::createWithUTF8(row.identifier);
            auto unit = Unit::create(row.type, row.factor, name);
            if (row.offset) unit->setOffset(String::createWithUTF8(row.offset));
            UnitContainer::Names names;
            names.byType[TBFUnitNameTypeVeryShort] = name;
            const auto container = UnitContainer::create(row.identifier, std::move(names));
            container->setUnitFraction(UnitFractionBuilder::create(unit.get())->unitFraction());
            collection->addUnit(*container);
            byIdentifier.emplace(row.identifier, std::move(unit));
        }
    }
};

World& world() {
    startFoundation();
    static auto* const shared = new World();
    return *shared;
}

Ref<Number> number(std::string_view text) {
    if (text == "nan") return Number::notANumber();
    if (text == "inf") return Number::infinity();
    if (text == "-inf") return Number::negativeInfinity();
    const bool percent = text.ends_with('%');
    const std::string digits(text.substr(0, text.size() - (percent ? 1 : 0)));
    return Number::create(digits.c_str(), percent ? TBFNumberTypePercent : TBFNumberTypeDecimal);
}

void addUnit(UnitFractionBuilder& builder, std::string_view identifier, int32_t degree) {
    const auto found = world().byIdentifier.find(identifier);
    if (found != world().byIdentifier.end()) builder.addUnit(found->second.get(), degree);
}

std::string joined(const std::vector<Unit*>& units) {
    std::string text;
    for (const Unit* const unit : units) {
        if (!text.empty()) text += '*';
        text += unit->identifier().string();
    }
    return text;
}

} // namespace

void startFoundation() {
    static const bool started = [] {
        TBF::startFoundation(Settings::create());
        return true;
    }();
    (void)started;
}

UnitCollection& units() {
    return *world().collection;
}

Ref<Value> value(std::string_view text) {
    startFoundation();
    const auto space = text.find(' ');
    if (space == text.npos) return Value::create(number(text));
    const auto unitText = text.substr(space + 1);
    const auto slash = unitText.find('/');
    const auto builder = UnitFractionBuilder::create();
    addUnit(*builder, unitText.substr(0, slash), 1);
    if (slash != unitText.npos) addUnit(*builder, unitText.substr(slash + 1), -1);
    return Value::create(number(text.substr(0, space)), builder->unitFraction());
}

std::string text(const Value* value) {
    if (!value) return "none";
    const Number& number = *value->number();
    std::string text;
    switch (number.specialType()) {
    case TBFNumberSpecialTypeInfinity:
        text = "inf";
        break;
    case TBFNumberSpecialTypeNegativeInfinity:
        text = "-inf";
        break;
    case TBFNumberSpecialTypeNaN:
        text = "nan";
        break;
    default:
        text = TBF_mapm_to_fitted_string(number.mapmRef(), 100);
    }
    if (number.isPercent()) text += '%';
    const UnitFraction* const fraction = value->unitFraction();
    if (!fraction) return text;
    text += ' ' + joined(fraction->numeratorUnits());
    if (!fraction->denominatorUnits().empty()) text += '/' + joined(fraction->denominatorUnits());
    return text;
}

std::string applied(TBFOperatorType operation, std::string_view left, std::string_view right) {
    const auto leftValue = left.empty() ? Ref<Value>() : value(left);
    const auto rightValue = right.empty() ? Ref<Value>() : value(right);
    TBFEvaluationError error = TBFEvaluationErrorNone;
    const auto evaluator = ExpressionNodeEvaluator::create(&units());
    const auto result = evaluator->apply(operation, leftValue.get(), rightValue.get(), error);
    return error == TBFEvaluationErrorNone ? text(result.get()) : "error " + std::to_string(error);
}

} // namespace evaltest
