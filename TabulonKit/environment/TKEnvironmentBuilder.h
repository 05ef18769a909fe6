#pragma once

// What an environment needs to know before it is made.

#include "environment/TKStocksLoading.h"
#include "propertylist/PropertyList.h"

#include <memory>
#include <optional>
#include <string>

class TKEnvironment;

class TKEnvironmentBuilder {
public:
    // Where saved values are read and written. None: nothing is read, and nothing can be saved.
    void setDataSourceDirectoryPath(std::optional<std::string> path) { dataFolder = std::move(path); }

    // Who writes saved files; goes into each of them.
    void setPersistanceInfoDictionary(platform::PropertyList info) { persistanceInfo = std::move(info); }

    // Makes the manager of stocks; without one there are none.
    void setStocksMaker(TKStocksMaker maker) { stocksMaker = std::move(maker); }

    std::shared_ptr<TKEnvironment> build() const;

private:
    std::optional<std::string> dataFolder;
    platform::PropertyList persistanceInfo;
    TKStocksMaker stocksMaker;
};
