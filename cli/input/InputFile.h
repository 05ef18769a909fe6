#pragma once

// The bytes of an input, taken in whole before anything is done with them, and the text in them. Any thread.

#include <string>
#include <string_view>

// All bytes of a file, or of standard input for "-". A CommandFailure if they can't be read or are more than
// a document may have, or if they are no document and more than a text may have.
std::string readInputFile(const std::string& file);

// How failures name a file.
std::string displayNameOf(const std::string& file);

// Whether the bytes are to be read as a document, and not as text.
bool looksLikeDocument(std::string_view bytes);

// Whether the path is that of a file, which can be read again, and looks like a document.
bool isDocumentFile(const std::string& file);

// The bytes as text, without a byte order mark. A CommandFailure, with the line, if they are not valid UTF-8
// or hold a NUL character.
std::string_view validatedText(const std::string& file, std::string_view bytes);
