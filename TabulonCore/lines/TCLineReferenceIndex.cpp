#include "lines/TCLineReferenceIndex.h"

#include <string>

int64_t TCLineReferenceIndex(TCLineReferenceType type, int64_t number, int64_t ownerIndex) {
    switch (type) {
    case TCLineReferenceTypeRelative:
    case TCLineReferenceTypeFixedRelative:
        return number + ownerIndex;
    case TCLineReferenceTypeAbsoluteByLineNumber:
        return number - 1;
    case TCLineReferenceTypeNull:
        return 0;
    default:
        return number;
    }
}

std::u16string TCLineReferenceIdentifier(TCLineReferenceType type, int64_t number) {
    const std::string text =
        std::to_string(static_cast<int32_t>(type)) + (number < 0 ? "" : "+") + std::to_string(number);
    return std::u16string(text.begin(), text.end());
}

std::u16string TCLineReferenceWords(TCLineReferenceType type, int64_t number, int64_t ownerIndex) {
    if (type == TCLineReferenceTypeNull) return u"line";
    const std::string position = std::to_string(TCLineReferenceIndex(type, number, ownerIndex) + 1);
    return u"line " + std::u16string(position.begin(), position.end());
}
