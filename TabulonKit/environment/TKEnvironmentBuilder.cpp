#include "environment/TKEnvironmentBuilder.h"

#include "environment/TKEnvironment.h"

std::shared_ptr<TKEnvironment> TKEnvironmentBuilder::build() const {
    return TKEnvironment::make(dataFolder, persistanceInfo, stocksMaker);
}
