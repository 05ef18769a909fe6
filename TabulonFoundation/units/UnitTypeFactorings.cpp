#include "units/UnitTypeFactorings.h"

#include "runtime/Settings.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <initializer_list>
#include <map>
#include <unordered_set>
#include <utility>

namespace TBF {

namespace {

// Which instances a row belongs to.
enum Membership : uint8_t {
    MembershipBoth = 0,
    MembershipStandard = 1,
    MembershipExperimental = 2,
};

constexpr std::size_t maximalTermCount = 4;

struct Term {
    TBFUnitType type;
    int8_t degree; // 0 for an unused place
};
using Terms = std::array<Term, maximalTermCount>;

struct Relation {
    Membership membership;
    Terms decomposed;
    Terms factorized;
    bool trivial;
};

// The relations that are declared; all others follow from them.
constexpr std::array relations = {
    Relation{MembershipBoth, {{{TBFUnitTypeLength, 3}}}, {{{TBFUnitTypeVolume, 1}}}, true},
    Relation{MembershipBoth, {{{TBFUnitTypeLength, 2}}}, {{{TBFUnitTypeArea, 1}}}, true},
    Relation{MembershipBoth,
             {{{TBFUnitTypeLength, 2}}},
             {{{TBFUnitTypeVolume, 1}, {TBFUnitTypeLength, -1}}},
             false},
    Relation{MembershipBoth,
             {{{TBFUnitTypeLength, 1}, {TBFUnitTypeTime, -1}}},
             {{{TBFUnitTypeVelocity, 1}}},
             true},
    Relation{MembershipBoth,
             {{{TBFUnitTypeLength, 1}, {TBFUnitTypeTime, -2}}},
             {{{TBFUnitTypeAcceleration, 1}}},
             true},
    Relation{MembershipBoth, {{{TBFUnitTypeTime, -1}}}, {{{TBFUnitTypeFrequency, 1}}}, false},
    Relation{MembershipStandard,
             {{{TBFUnitTypeCurrent, 1}, {TBFUnitTypeResistance, 1}}},
             {{{TBFUnitTypeVoltage, 1}}},
             false},
    Relation{MembershipStandard,
             {{{TBFUnitTypeVoltage, 1}, {TBFUnitTypeResistance, -1}}},
             {{{TBFUnitTypeCurrent, 1}}},
             false},
    Relation{MembershipStandard,
             {{{TBFUnitTypeVoltage, 1}, {TBFUnitTypeCurrent, -1}}},
             {{{TBFUnitTypeResistance, 1}}},
             false},
    Relation{MembershipStandard,
             {{{TBFUnitTypeVoltage, 1}, {TBFUnitTypeCurrent, 1}}},
             {{{TBFUnitTypePower, 1}}},
             false},
    Relation{MembershipExperimental,
             {{{TBFUnitTypeMass, 1}, {TBFUnitTypeLength, 2}, {TBFUnitTypeTime, -2}}},
             {{{TBFUnitTypeEnergy, 1}}},
             false},
    Relation{MembershipExperimental,
             {{{TBFUnitTypeMass, 1}, {TBFUnitTypeLength, 2}, {TBFUnitTypeTime, -3}}},
             {{{TBFUnitTypePower, 1}}},
             false},
    Relation{
        MembershipExperimental,
        {{{TBFUnitTypeMass, 1}, {TBFUnitTypeLength, 2}, {TBFUnitTypeCurrent, -1}, {TBFUnitTypeTime, -3}}},
        {{{TBFUnitTypeVoltage, 1}}},
        false},
    Relation{
        MembershipExperimental,
        {{{TBFUnitTypeMass, 1}, {TBFUnitTypeLength, 2}, {TBFUnitTypeCurrent, -2}, {TBFUnitTypeTime, -3}}},
        {{{TBFUnitTypeResistance, 1}}},
        false},
    Relation{MembershipExperimental,
             {{{TBFUnitTypeMass, 1}, {TBFUnitTypeLength, 1}, {TBFUnitTypeTime, -2}}},
             {{{TBFUnitTypeForce, 1}}},
             false},
};

constexpr std::array baseTypes = {TBFUnitTypeLength, TBFUnitTypeMass,        TBFUnitTypeMoney,
                                  TBFUnitTypeTime,   TBFUnitTypeTemperature, TBFUnitTypeComputerStorage,
                                  TBFUnitTypeCurrent};

// Base types of the standard instance only.
constexpr std::array standardBaseTypes = {TBFUnitTypeVoltage, TBFUnitTypeResistance};

// A bound on the fractions that one search finds. Products that people write have dozens of factorizations;
// it takes powers like m^30/s^30 to reach this, and the forms found first are the simple ones.
constexpr std::size_t maximalFactorizationCount = 2000;

// Lines use few combinations of types; the cache starts over when a document has shown that many.
constexpr std::size_t maximalCacheCount = 256;

UnitTypeFraction fractionOf(const Terms& terms) {
    UnitTypeFraction fraction;
    for (const Term& term : terms) {
        if (term.degree != 0) fraction.setDegree(term.type, term.degree);
    }
    return fraction;
}

Ref<UnitTypeFactorings> makeInstance(bool experimental) {
    const Membership other = experimental ? MembershipStandard : MembershipExperimental;
    std::vector<Ref<UnitTypeFactoring>> declared;
    for (const Relation& relation : relations) {
        if (relation.membership == other) continue;
        declared.push_back(UnitTypeFactoring::create(fractionOf(relation.decomposed),
                                                     fractionOf(relation.factorized), relation.trivial));
    }
    return UnitTypeFactorings::create(declared, experimental);
}

// A closed set by key, while it is made.
using Closure = std::map<std::string, Ref<UnitTypeFactoring>>;

void enter(Closure& closure, Ref<UnitTypeFactoring> factoring) {
    closure.insert_or_assign(factoring->key(), std::move(factoring));
}

void enterUnlessLonger(Closure& closure, Ref<UnitTypeFactoring> factoring) {
    if (factoring->decomposed().countOfComponents() >= factoring->factorized().countOfComponents()) {
        enter(closure, std::move(factoring));
    }
}

// A relation, its inverse, and those that come of moving one degree of a type from the decomposed side over
// to the other, as far as this makes nothing longer.
void enterWithConsequences(Closure& closure, const Ref<UnitTypeFactoring>& factoring) {
    enter(closure, factoring);
    enter(closure, factoring->createInverse());
    for (const auto& [type, degree] : factoring->decomposed().components()) {
        if (degree == 0) continue;
        UnitTypeFraction decomposed = factoring->decomposed();
        UnitTypeFraction factorized = factoring->factorized();
        decomposed.degreeOffset(type, degree > 0 ? -1 : 1);
        factorized.degreeOffset(type, degree > 0 ? -1 : 1);
        const Ref<UnitTypeFactoring> moved = UnitTypeFactoring::create(decomposed, factorized);
        enterUnlessLonger(closure, moved);
        enterUnlessLonger(closure, moved->createInverse());
    }
}

} // namespace

UnitTypeFactorings::UnitTypeFactorings(std::span<const Ref<UnitTypeFactoring>> declared, bool isExperimental)
    : experimental(isExperimental) {
    Closure closure;
    for (const Ref<UnitTypeFactoring>& factoring : declared)
        enterWithConsequences(closure, factoring);
    for (const auto& [key, factoring] : closure) {
        closed.push_back(factoring);
        byFactorized.insert_or_assign(factoring->factorized(), factoring.get());
        byDecomposed.insert_or_assign(factoring->decomposed(), factoring.get());
    }
    for (const Ref<UnitTypeFactoring>& factoring : declared) {
        const auto sides = factoring->factorized().components();
        if (sides.size() != 1 || sides[0].second != 1 || isBaseUnitType(sides[0].first)) continue;
        definitions[static_cast<std::size_t>(sides[0].first)] = factoring->decomposed();
    }
}

Ref<UnitTypeFactorings> UnitTypeFactorings::create(std::span<const Ref<UnitTypeFactoring>> declared,
                                                   bool experimental) {
    return make<UnitTypeFactorings>(declared, experimental);
}

void UnitTypeFactorings::initialize() {
    standardInstance();
    experimentalInstance();
}

const Ref<UnitTypeFactorings>& UnitTypeFactorings::instance() {
    return Settings::current().boolValue(TBFSettingEnableExperimentalUnits) ? experimentalInstance()
                                                                            : standardInstance();
}

const Ref<UnitTypeFactorings>& UnitTypeFactorings::standardInstance() {
    static const Ref<UnitTypeFactorings> standard = makeInstance(false);
    return standard;
}

const Ref<UnitTypeFactorings>& UnitTypeFactorings::experimentalInstance() {
    static const Ref<UnitTypeFactorings> experimental = makeInstance(true);
    return experimental;
}

std::vector<const UnitTypeFactoring*>
UnitTypeFactorings::factorizations(const UnitTypeFraction& fraction) const {
    std::vector<const UnitTypeFactoring*> result;
    for (const Ref<UnitTypeFactoring>& factoring : closed) {
        if (factoring->decomposed().isSubsetOf(fraction)) result.push_back(factoring.get());
    }
    return result;
}

std::vector<const UnitTypeFactoring*> UnitTypeFactorings::decompositions(TBFUnitType type) const {
    std::vector<const UnitTypeFactoring*> result;
    for (const Ref<UnitTypeFactoring>& factoring : closed) {
        const auto components = factoring->factorized().components();
        const bool hasType = std::any_of(components.begin(), components.end(),
                                         [type](const auto& component) { return component.first == type; });
        if (hasType) result.push_back(factoring.get());
    }
    return result;
}

const UnitTypeFactoring*
UnitTypeFactorings::factoringForFactorizedUnitTypeFraction(const UnitTypeFraction& fraction) const {
    const auto found = byFactorized.find(fraction);
    return found == byFactorized.end() ? nullptr : found->second;
}

const UnitTypeFactoring*
UnitTypeFactorings::factoringForDecomposedUnitTypeFraction(const UnitTypeFraction& fraction) const {
    const auto found = byDecomposed.find(fraction);
    return found == byDecomposed.end() ? nullptr : found->second;
}

bool UnitTypeFactorings::isBaseUnitType(TBFUnitType type) const noexcept {
    if (std::find(baseTypes.begin(), baseTypes.end(), type) != baseTypes.end()) return true;
    return !experimental &&
           std::find(standardBaseTypes.begin(), standardBaseTypes.end(), type) != standardBaseTypes.end();
}

const UnitTypeFraction* UnitTypeFactorings::definition(TBFUnitType type) const noexcept {
    const auto index = static_cast<std::size_t>(type);
    return index < definitions.size() && definitions[index] ? &*definitions[index] : nullptr;
}

std::shared_ptr<const UnitTypeFactorings::Fractions>
UnitTypeFactorings::allFactorizations(const UnitTypeFraction& start) const {
    const std::lock_guard guard(cacheLock);
    const auto found = cache.find(start);
    if (found != cache.end()) return found->second;
    if (cache.size() >= maximalCacheCount) cache.clear();
    return cache.emplace(start, std::make_shared<const Fractions>(searchFactorizations(start))).first->second;
}

// A breadth-first search. Fractions are the same if their degrees are, whatever components of degree 0 they
// have.
UnitTypeFactorings::Fractions UnitTypeFactorings::searchFactorizations(const UnitTypeFraction& start) const {
    Fractions found;
    std::unordered_set<UnitTypeFraction, UnitTypeFraction::DegreesHash, UnitTypeFraction::DegreesEqual> seen;
    std::deque<UnitTypeFraction> queue{start};
    seen.insert(start);
    while (!queue.empty()) {
        const UnitTypeFraction current = queue.front();
        queue.pop_front();
        if (!current.hasSameDegrees(start)) found.push_back(current);
        for (const Ref<UnitTypeFactoring>& factoring : closed) {
            if (!factoring->decomposed().isSubsetOf(current)) continue;
            UnitTypeFraction next = current;
            next.add(factoring->decomposed(), -1);
            next.add(factoring->factorized(), 1);
            if (seen.size() <= maximalFactorizationCount && seen.insert(next).second) queue.push_back(next);
        }
    }
    return found;
}

} // namespace TBF

void TBF_UnitTypeFactorings_initialize() {
    TBF::UnitTypeFactorings::initialize();
}
