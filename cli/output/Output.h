#pragma once

// Where results go. Nothing is written in parts: a file has its old content or all of the new one. Main
// thread.

#include <optional>
#include <string>
#include <string_view>

// Writes to the file at `path`, or to standard output without one. A reader of standard output that has gone
// is no failure; anything else that goes wrong is a CommandFailure.
void writeOutput(const std::optional<std::string>& path, std::string_view bytes);

// A CommandFailure of wrong usage if both name one file, whose content would be lost.
void refuseSameFile(const std::string& input, const std::string& output);

// Whether something stands at `path` that is neither a file nor a folder, such as a device or a pipe, and so
// can be written to but not be replaced.
bool isSpecialFile(const std::string& path);
