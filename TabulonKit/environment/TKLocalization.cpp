#include "environment/TKLocalization.h"

#include "bundle/Bundle.h"

#include <mutex>
#include <utility>

namespace {

struct MainBundle {
    std::mutex mutex;
    std::shared_ptr<const platform::Bundle> bundle;

    static MainBundle& shared() {
        static auto& main = *new MainBundle;
        return main;
    }
};

} // namespace

std::shared_ptr<const platform::Bundle> TKLocalization::mainBundle() {
    MainBundle& main = MainBundle::shared();
    const std::lock_guard lock(main.mutex);
    return main.bundle;
}

void TKLocalization::setMainBundle(std::shared_ptr<const platform::Bundle> bundle) {
    MainBundle& main = MainBundle::shared();
    const std::lock_guard lock(main.mutex);
    main.bundle.swap(bundle);
}

std::string TKLocalization::currentLanguageCode() {
    const auto bundle = mainBundle();
    const auto localizations = bundle ? bundle->preferredLocalizations() : std::vector<std::string>();
    return localizations.empty() ? std::string(kTKLocalizationNameEnglish) : localizations.front();
}
