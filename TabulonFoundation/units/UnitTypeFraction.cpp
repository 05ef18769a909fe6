#include "units/UnitTypeFraction.h"

#include "runtime/TBFLog.h"
#include "units/UnitFraction.h"

namespace TBF {

UnitTypeFraction::UnitTypeFraction(std::initializer_list<Component> components) {
    for (const auto& [type, degree] : components)
        setDegree(type, degree);
}

UnitTypeFraction::UnitTypeFraction(const UnitFraction& fraction) {
    for (const UnitFraction::TypeDegree& component : fraction.typeDegrees()) {
        if (component.degree != 0) setDegree(component.type, component.degree);
    }
}

std::size_t UnitTypeFraction::slot(TBFUnitType type) {
    VerifyTrue(type >= 0 && type < TBFUnitTypeCount, "Unexpected unit type %d", static_cast<int>(type));
    return static_cast<std::size_t>(type);
}

void UnitTypeFraction::setDegree(TBFUnitType type, int32_t degree) {
    const std::size_t index = slot(type);
    degrees[index] = degree;
    present |= uint32_t{1} << index;
}

void UnitTypeFraction::add(const UnitTypeFraction& other, int32_t times) {
    for (std::size_t i = 0; i < degrees.size(); ++i)
        degrees[i] += other.degrees[i] * times;
    present |= other.present;
}

std::vector<UnitTypeFraction::Component> UnitTypeFraction::components() const {
    std::vector<Component> result;
    forEachComponent([&](TBFUnitType type, int32_t degree) { result.emplace_back(type, degree); });
    return result;
}

int32_t UnitTypeFraction::countOfComponents() const {
    int32_t count = 0;
    for (const int32_t degree : degrees)
        count += degree != 0 ? 1 : 0;
    return count;
}

UnitTypeFraction UnitTypeFraction::inverse() const {
    UnitTypeFraction result = *this;
    for (int32_t& degree : result.degrees)
        degree = -degree;
    return result;
}

bool UnitTypeFraction::isSubsetOf(const UnitTypeFraction& other) const {
    for (uint32_t rest = present; rest != 0; rest &= rest - 1) {
        const auto index = static_cast<std::size_t>(std::countr_zero(rest));
        const int32_t wanted = degrees[index];
        const int32_t held = other.degrees[index];
        if (wanted >= 0 ? held < wanted : held > wanted) return false;
    }
    return true;
}

std::string UnitTypeFraction::stringRepresentation() const {
    std::string text;
    forEachComponent([&](TBFUnitType type, int32_t degree) {
        if (degree == 0) return;
        const char* const identifier = TBFUnitTypeIdentifier(type);
        text += "[";
        if (identifier) text += identifier;
        text += ":" + std::to_string(degree) + "]";
    });
    return text;
}

std::size_t UnitTypeFraction::DegreesHash::operator()(const UnitTypeFraction& fraction) const noexcept {
    // Over what isn't 0, so that components of degree 0 make no difference.
    uint64_t hash = 0xcbf29ce484222325; // FNV-1a, a component at a time
    fraction.forEachComponent([&hash](TBFUnitType type, int32_t degree) {
        if (degree == 0) return;
        const auto word = (static_cast<uint64_t>(type) << 32) | static_cast<uint32_t>(degree);
        hash = (hash ^ word) * 0x100000001b3;
        hash ^= hash >> 29;
    });
    return static_cast<std::size_t>(hash);
}

} // namespace TBF
