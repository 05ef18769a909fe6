#pragma once

// Replaces a file as a whole. Used by whoever writes user data: documents, property lists. Any thread, but
// two threads that write one path leave the file of either.

#include <string>
#include <string_view>

namespace platform {

// Writes to a new file in the same folder, flushes it to the disk and renames it over `path`. A symbolic
// link stays, and the file it leads to is replaced or made; the permissions and the owner of an old file are
// kept, and hold for the new one from its first byte. Gives 0, or the errno of what failed; the old file is
// then untouched and nothing is left behind. What a writer that was killed left in the folder is removed.
//
// A path that names an open descriptor of the process, such as /dev/stdout, is written to from where that
// descriptor stands.
int writeFileAtomically(const std::string& path, std::string_view bytes);

// Writes all of it to an open descriptor; 0 or an errno.
int writeToDescriptor(int descriptor, std::string_view bytes);

} // namespace platform
