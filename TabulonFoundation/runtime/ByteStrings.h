#pragma once

// Work on `std::string` texts of UTF-8 bytes: splitting and replacing. Pure functions for any thread.

#include "runtime/TBFTypes.h"

#include <string>
#include <vector>

namespace tbf {

// For returning a text by const reference where there is none.
inline const std::string emptyString;

// The pieces between separators, without the empty ones.
std::vector<std::string> stringSplit(const std::string& text, char separator);

// Replaces every occurrence from left to right, and doesn't look at what it has inserted. An empty `from`
// occurs nowhere.
void stringReplaceAll(std::string& text, const std::string& from, const std::string& to);

// `from` is one code unit of the text's characters, `to` a byte or a text.
void stringReplaceAll(std::string& text, TBFChar from, char to);
void stringReplaceAll(std::string& text, TBFChar from, const std::string& to);

} // namespace tbf
