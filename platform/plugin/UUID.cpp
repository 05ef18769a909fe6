#include "plugin/UUID.h"

namespace platform {

std::string UUID::string() const {
    constexpr std::string_view hexDigits = "0123456789ABCDEF";
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10) text += '-';
        text += hexDigits[bytes[i] >> 4];
        text += hexDigits[bytes[i] & 0xF];
    }
    return text;
}

} // namespace platform
