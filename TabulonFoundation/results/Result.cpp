#include "results/Result.h"

#include "numbers/DecimalText.h"
#include "numbers/KernelLock.h"
#include "numbers/Number.h"
#include "units/Unit.h"
#include "units/UnitFraction.h"

#include <algorithm>
#include <string>
#include <utility>

namespace TBF {

Result::Result() noexcept = default;
Result::~Result() = default;

Ref<Result> Result::create() {
    return make<Result>();
}

Ref<Result> Result::create(std::string_view text) {
    auto result = create();
    result->text = String::createWithUTF8(text);
    return result;
}

Ref<Result> Result::create(std::string_view text, Ref<Number> number) {
    auto result = create(text);
    result->number = std::move(number);
    return result;
}

void Result::setString(Ref<String> string) {
    text = std::move(string);
    trimmed.reset();
    number.reset();
    digits.reset();
}

const Ref<String>& Result::completeString() {
    if (trimmed || !text) return trimmed;
    const auto view = withoutTrailingZeros(text->view());
    trimmed = view.size() == text->view().size() ? text : String::create(view);
    return trimmed;
}

M_APM Result::mapm() {
    if (!text || text->isEmpty()) return nullptr;
    if (number) return number->mapmRef();
    if (!digits) digits.emplace(text->utf8().c_str());
    return digits->get();
}

void Result::dropDigits() noexcept {
    number.reset();
    digits.reset();
}

int32_t Result::exponent() {
    const M_APM value = mapm();
    return value ? m_apm_exponent(value) : 0;
}

UnitFraction* Result::unitFraction() const noexcept {
    return fraction.get();
}

void Result::setUnitFraction(const UnitFraction* newFraction) {
    if (!newFraction) return;
    // Fractions are immutable: without an extra multiplier the object itself serves as the copy.
    fraction = newFraction->hasExtraMultiplier() ? newFraction->copyWithRecomputedMultiplier()
                                                 : TBF::retain(const_cast<UnitFraction*>(newFraction));
}

TBFUnitFormatType Result::nameFormat(const Unit& unit) const {
    const auto found = std::find_if(nameFormats.begin(), nameFormats.end(),
                                    [&](const auto& entry) { return entry.first == unit.identifier(); });
    return found == nameFormats.end() ? TBFUnitFormatTypeNone : found->second;
}

bool Result::isEqualTo(Result& other) {
    if (this == &other) return true;
    if (!text || !other.text) {
        return !text && !other.text && errorBits == other.errorBits && stoppedBy == other.stoppedBy;
    }
    if (text->equals(*other.text)) return true;
    const M_APM own = mapm();
    const M_APM others = other.mapm();
    if (!own || !others) return false; // one of the texts is empty
    const int32_t places = std::max(comparedPlaces, other.comparedPlaces);
    const KernelLock lock;
    return fixedText(own, places) == fixedText(others, places);
}

} // namespace TBF
