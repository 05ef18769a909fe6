#pragma once

// What stands where something is to be written, so that a slip of the hand doesn't cost a file. Any thread.

#include <cstdint>
#include <string>

enum class OutputKind : uint8_t { document, text };

// A CommandFailure if a file stands at `path` that has something in it and is not of the kind that is to be
// written: no document, or no plain text. What is "-" or no file has nothing to lose.
void refuseOtherKind(const std::string& path, OutputKind written);
