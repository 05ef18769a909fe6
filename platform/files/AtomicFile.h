#pragma once

// Replaces a file as a whole. Used by whoever writes user data: documents, property lists. Any thread, but
// two threads that write one path leave the file of either.

#include <string>
#include <string_view>

namespace platform {

// Writes to a new file in the same folder, flushes it to the disk and renames it over `path`. A symbolic
// link stays, and the file it leads to is replaced; the permissions of an old file are kept. Gives 0, or
// the errno of what failed; the old file is then untouched and nothing is left behind.
int writeFileAtomically(const std::string& path, std::string_view bytes);

} // namespace platform
