#pragma once

// The colours of pages as the user wants them. Main thread, when the engine has been set up.

#include <optional>
#include <string>

// Lays the colours of a file over those that are there. A CommandFailure if it has none.
void useColorsOfFile(const std::optional<std::string>& file);
