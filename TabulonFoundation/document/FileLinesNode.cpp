#include "document/FileLinesNode.h"

#include "runtime/TBFLog.h"

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

FileLine* FileLinesNode::lineWithinBounds(std::size_t index) {
    if (index < mostLines) return &lineAt(index);
    TBFErrorLog("a document has at most %zu lines, and so none at index %zu", mostLines, index);
    return nullptr;
}

void FileLinesNode::setDecimalPlaces_0_5(std::size_t index, int64_t places) {
    if (FileLine* const line = lineWithinBounds(index))
        line->formattingAttributes.set(compatibilityKeys().decimalPlaces, String::createWithInteger(places));
}

void FileLinesNode::setTrigonometryMode_0_5(std::size_t index, int64_t mode) {
    if (FileLine* const line = lineWithinBounds(index))
        line->formattingAttributes.set(compatibilityKeys().trigonometryMode, String::createWithInteger(mode));
}

void FileLinesNode::setBackwardsCompatibilityFormattingAttributesDecimalPlacesKey(Ref<String> key) {
    compatibilityKeys().decimalPlaces = std::move(key);
}

void FileLinesNode::setBackwardsCompatibilityFormattingAttributesTrigonometryModeKey(Ref<String> key) {
    compatibilityKeys().trigonometryMode = std::move(key);
}

} // namespace TBF
