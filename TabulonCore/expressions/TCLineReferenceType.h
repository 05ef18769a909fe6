#pragma once

// The kinds of references to other lines, as bits, so that an operation can ask for several kinds at once. In
// a text each is a bracketed call of a reserved function. Constant, for use on any thread.

#include <array>
#include <cstdint>
#include <string_view>

enum TCLineReferenceType : int32_t {
    TCLineReferenceTypeNone = 0,
    TCLineReferenceTypeRelative = 1,             // an offset from the owning line
    TCLineReferenceTypeAbsolute = 2,             // a zero-based line index
    TCLineReferenceTypeAbsoluteByLineNumber = 4, // a one-based line number
    TCLineReferenceTypeFixedRelative = 8,        // an offset from the owning line
    TCLineReferenceTypeNull = 16,                // the target is gone
};

struct TCLineReferenceFunctionName {
    TCLineReferenceType type;
    std::u16string_view name;
};

inline constexpr std::array TCLineReferenceFunctionNames = {
    TCLineReferenceFunctionName{TCLineReferenceTypeRelative, u"___rel_line"},
    TCLineReferenceFunctionName{TCLineReferenceTypeAbsolute, u"___abs_line"},
    TCLineReferenceFunctionName{TCLineReferenceTypeAbsoluteByLineNumber, u"___abs_line_numbered"},
    TCLineReferenceFunctionName{TCLineReferenceTypeFixedRelative, u"___rel_line_fixed"},
    TCLineReferenceFunctionName{TCLineReferenceTypeNull, u"___dead_line"},
};

// None for any other name.
constexpr TCLineReferenceType TCLineReferenceTypeForFunctionName(std::u16string_view name) {
    for (const TCLineReferenceFunctionName& row : TCLineReferenceFunctionNames) {
        if (row.name == name) return row.type;
    }
    return TCLineReferenceTypeNone;
}

// Empty for anything but one single kind.
constexpr std::u16string_view TCLineReferenceFunctionNameForType(TCLineReferenceType type) {
    for (const TCLineReferenceFunctionName& row : TCLineReferenceFunctionNames) {
        if (row.type == type) return row.name;
    }
    return {};
}
