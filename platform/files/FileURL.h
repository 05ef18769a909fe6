#pragma once

// The URL form of file paths, in which hosts name documents. Paths are bytes, whatever they stand for. Pure
// functions, but for the current folder.

#include <optional>
#include <string>
#include <string_view>

namespace platform {

// "file:///tmp/my%20notes.tabulon". A relative path is taken from the current folder.
std::string fileURLOfPath(std::string_view path);

// The path of a file URL without a host or of this host ("localhost"). None for any other URL, and for one
// with a broken escape or an escaped NUL.
std::optional<std::string> pathOfFileURL(std::string_view url);

} // namespace platform
