#pragma once

// Texts as JSON writes them. Pure functions.

#include <optional>
#include <string>
#include <string_view>

// The UTF-8 text in quotes, with escapes for quotes, backslashes and control characters.
std::string jsonString(std::string_view text);

// The same, or "null" without a text.
std::string jsonStringOrNull(const std::optional<std::string>& text);
