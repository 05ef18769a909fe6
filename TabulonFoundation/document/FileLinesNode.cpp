#include "document/FileLinesNode.h"

namespace TBF {

namespace {

struct CompatibilityKeys {
    Ref<String> decimalPlaces = String::create(u"decimal_places");
    Ref<String> trigonometryMode = String::create(u"trig_mode");
};

CompatibilityKeys& compatibilityKeys() {
    static auto& keys = *new CompatibilityKeys;
    return keys;
}

} // namespace

void FileLinesNode::setDecimalPlaces_0_5(std::size_t index, int64_t places) {
    lineAt(index).formattingAttributes.set(compatibilityKeys().decimalPlaces,
                                           String::createWithInteger(places));
}

void FileLinesNode::setTrigonometryMode_0_5(std::size_t index, int64_t mode) {
    lineAt(index).formattingAttributes.set(compatibilityKeys().trigonometryMode,
                                           String::createWithInteger(mode));
}

void FileLinesNode::setBackwardsCompatibilityFormattingAttributesDecimalPlacesKey(Ref<String> key) {
    compatibilityKeys().decimalPlaces = std::move(key);
}

void FileLinesNode::setBackwardsCompatibilityFormattingAttributesTrigonometryModeKey(Ref<String> key) {
    compatibilityKeys().trigonometryMode = std::move(key);
}

} // namespace TBF
