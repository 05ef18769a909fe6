#pragma once

// Pixels as a PNG file. The same pixels and texts always make the same bytes.

#include "graphics/DrawingContext.h"

#include <string>
#include <utility>
#include <vector>

namespace platform {

// Texts that a picture carries along: a keyword of 1 to 79 Latin letters, signs and single blanks, and the
// text in Latin-1 letters.
using PNGTexts = std::vector<std::pair<std::string, std::string>>;

// The bytes of the file; empty if the pixels can't be written, for want of memory or because a keyword is
// no keyword.
std::string pngImage(const BitmapContext& bitmap, const PNGTexts& texts);

} // namespace platform
