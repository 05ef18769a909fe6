#include "bootstrap.h"

#include "TBColorManager.h"
#include "TBPaths.h"
#include "bundle/Bundle.h"
#include "environment/TCBuiltins.h"
#include "environment/TCEnvironment.h"
#include "environment/TCSettings.h"
#include "environment/TKEnvironment.h"
#include "environment/TKEnvironmentBuilder.h"
#include "environment/TKFolders.h"
#include "environment/TKLog.h"

#include <mutex>
#include <utility>

namespace {

BootstrapChoices& choices() {
    static auto& chosen = *new BootstrapChoices;
    return chosen;
}

std::shared_ptr<TKEnvironment> environmentForBundle(const platform::Bundle& bundle) {
    const std::optional<std::string>& chosenFolder = choices().dataFolder;
    TKEnvironmentBuilder builder;
    builder.setDataSourceDirectoryPath(chosenFolder ? chosenFolder
                                                    : TBPaths::quicklookDataFolderForBundle(bundle));
    builder.setPersistanceInfoDictionary(TKApplicationInfoDictionary(bundle));
    return builder.build();
}

void loadColors(const platform::Bundle& bundle) {
    if (const auto defaults = bundle.pathForResource("Colors", "plist"))
        TBColorManager::sharedInstance().loadDefaultsFromPath(*defaults);
}

// True if the environment stands.
bool loadEnvironment(const platform::Bundle& bundle) {
    const auto content = bundle.pathForResource("TBContent", "bundle");
    if (!content) {
        if (!choices().tellsOfContent) TKLog("There is no content at %s", bundle.path().c_str());
        loadColors(bundle);
        return false;
    }
    const auto environment = environmentForBundle(bundle);
    environment->setUpdatesValuesFromWeb(false); // a preview never goes to the network
    environment->setLogsContentFailures(!choices().tellsOfContent);
    environment->loadFromBundleAtPath(*content, choices().localization);
    loadColors(bundle); // meanwhile
    environment->completeLoading();
    environment->set();
    return true;
}

} // namespace

void setBootstrapChoices(BootstrapChoices newChoices) {
    choices() = std::move(newChoices);
}

void bootstrap(const platform::Bundle* bundle) {
    static std::once_flag once;
    std::call_once(once, [bundle] {
        if (!TCSettings::isSet()) {
            const auto settings = TCSettings::make();
            if (choices().batchBudget) settings->setBatchBudget(*choices().batchBudget);
            settings->setReadings(choices().readings);
            settings->set();
        }
        if (!bundle || !loadEnvironment(*bundle)) TCBuiltins::environment()->set();
    });
}
