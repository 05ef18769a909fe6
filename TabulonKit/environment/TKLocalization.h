#pragma once

// Which language the program speaks. Set when content is loaded; any thread may ask.

#include <memory>
#include <string>
#include <string_view>

namespace platform {
class Bundle;
}

inline constexpr std::string_view kTKLocalizationNameEnglish = "en";

// Also for no localization at all, the empty name.
constexpr bool TKLocalizationIsEnglish(std::string_view localization) {
    return localization.empty() || localization == kTKLocalizationNameEnglish;
}

class TKLocalization {
public:
    // The first localization of the main bundle that the user wants; "en" without one.
    static std::string currentLanguageCode();

    // The bundle with the program's content; null before one is loaded.
    static std::shared_ptr<const platform::Bundle> mainBundle();
    static void setMainBundle(std::shared_ptr<const platform::Bundle> bundle);
};
