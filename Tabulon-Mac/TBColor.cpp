#include "TBColor.h"

#include "runtime/TBFLog.h"

namespace {

constexpr const char* identifierKey = "identifier";
constexpr const char* redKey = "redComponent";
constexpr const char* greenKey = "greenComponent";
constexpr const char* blueKey = "blueComponent";
constexpr const char* alphaKey = "alphaComponent";

double floatOf(const platform::PropertyList& number) {
    const double value = number.real().value_or(static_cast<double>(number.integer().value_or(0)));
    return static_cast<double>(static_cast<float>(value));
}

double asFloat(double component) {
    return static_cast<double>(static_cast<float>(component));
}

} // namespace

TBColor::TBColor(const platform::PropertyList& dictionaryRep)
    : name(dictionaryRep[identifierKey].string().value_or("Undefined"))
    , value(platform::Color::rgb(floatOf(dictionaryRep[redKey]), floatOf(dictionaryRep[greenKey]),
                                 floatOf(dictionaryRep[blueKey]), floatOf(dictionaryRep[alphaKey]))) {}

TBColor::TBColor(platform::Color color, std::string identifier)
    : name(std::move(identifier))
    , value(color) {}

platform::PropertyList TBColor::dictionaryRepresentation() const {
    if (!persistent)
        TBFErrorLog("TBColor: Why do you want a dictionary rep when im not supposed to be persistant?");
    const platform::RGBA& part = value.components();
    return platform::PropertyList::Dictionary{
        {identifierKey, name},         {redKey, asFloat(part.red)},     {greenKey, asFloat(part.green)},
        {blueKey, asFloat(part.blue)}, {alphaKey, asFloat(part.alpha)},
    };
}
