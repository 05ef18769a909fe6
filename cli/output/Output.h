#pragma once

// Where results go. Nothing is written in parts: a file has its old content or all of the new one. Main
// thread.

#include "Arguments.h"

#include <optional>
#include <string>
#include <string_view>

// Writes to the file at `path`, or to standard output without one. A reader of standard output that has gone
// is no failure; anything else that goes wrong is a CommandFailure.
void writeOutput(const std::optional<std::string>& path, std::string_view bytes);

// A CommandFailure of wrong usage if what is to be written is also read, by whatever name: the document, the
// colours, a file of the content or of the data folder. Content has to be known by then.
void refuseInputAsOutput(const Arguments& arguments);

// Whether something stands at `path` that is neither a file nor a folder, such as a device or a pipe, or that
// is an open descriptor of the process, and so can be written to but not be replaced.
bool isSpecialFile(const std::string& path);
