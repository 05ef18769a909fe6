#include "environment/TCUserLocale.h"

#include "defaults/UserDefaults.h"
#include "locale/Locale.h"
#include "runtime/Unicode.h"

#include <string>

namespace {

TBFChar firstCharacter(const std::string& text, TBFChar otherwise) {
    const std::u16string characters = TBF::utf16(text);
    return characters.empty() ? otherwise : characters.front();
}

} // namespace

TCSimpleLocale simpleLocale(const platform::UserDefaults& defaults) {
    const platform::Locale locale = platform::Locale::current();
    const auto decimalPoint = defaults.string("TBDecimalPointSign");
    const auto thousandsSeparator = defaults.string("TBThousandsSeperatorSign");
    return {firstCharacter(decimalPoint ? *decimalPoint : locale.decimalSeparator(),
                           kTCSimpleLocalDefault.decimalPoint),
            firstCharacter(thousandsSeparator ? *thousandsSeparator : locale.groupingSeparator(),
                           kTCSimpleLocalDefault.thousandsSeparator)};
}
