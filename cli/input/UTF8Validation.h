#pragma once

// Whether bytes are UTF-8 in the strict sense: shortest forms only, no surrogates, nothing above U+10FFFF.
// Pure.

#include <cstddef>
#include <string_view>

// The offset of the first byte that begins no valid sequence; the number of bytes if all is well.
std::size_t firstInvalidUTF8(std::string_view bytes);
