#pragma once

// A collection of units over a collection of the foundation.

#include "runtime/Ref.h"
#include "units/TCUnitCollection.h"

#include <map>
#include <mutex>
#include <string>
#include <string_view>
#include <unordered_map>

class TCNewUnitManager final : public TCUnitCollection {
public:
    // One for the process, made at the first question.
    static const std::shared_ptr<TCNewUnitManager>& sharedManager();

    TCNewUnitManager();

    // Over units that are there already; as objects of this layer they aren't known.
    explicit TCNewUnitManager(TBF::Ref<TBF::UnitCollection> collection);
    ~TCNewUnitManager() override;

    std::size_t countOfUnits() const override;
    std::size_t countUnitsOfType(TCUnitType type) const override;
    std::vector<std::shared_ptr<TCUnit>> allUnits() const override;
    void addUnits(std::span<const std::shared_ptr<TCUnit>> units) override;
    void addUnit(const std::shared_ptr<TCUnit>& unit) override;
    void removeUnit(const std::shared_ptr<TCUnit>& unit) override;
    std::shared_ptr<TCUnit> unitWithName(std::u16string_view name) const override;
    std::shared_ptr<TCUnit> unitWithIdentifier(std::u16string_view identifier) const override;
    void setDefaultUnitForClashingName(const std::shared_ptr<TCUnit>& unit,
                                       std::u16string_view name) override;
    void setDefaultUnitForType(const std::shared_ptr<TCUnit>& unit, TCUnitType type) override;
    TBF::UnitCollection* tbfUnitCollection() const override { return unitCollection.get(); }

private:
    std::shared_ptr<TCUnit> unitWithIdentifierBytes(std::string_view identifier) const;

    TBF::Ref<TBF::UnitCollection> unitCollection;
    // The keys are views of the units' own identifiers.
    std::unordered_map<std::string_view, std::shared_ptr<TCUnit>> unitsByIdentifier;
    std::map<std::u16string, std::string, std::less<>> nameClashIdentifiersByName;
    std::mutex mutex; // around writes to the tables
};
