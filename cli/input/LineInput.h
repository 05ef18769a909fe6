#pragma once

// From a file, or standard input, to lines with answers. On the main thread.

#include "Arguments.h"

#include <memory>
#include <string>

class TCLineCollection;

struct LineInput {
    std::shared_ptr<TCLineCollection> collection; // never null; evaluated
    bool isDocument = false;                      // or else text, a line for each of its lines
};

// A CommandFailure if there is no document and no UTF-8 text, or the content is damaged.
LineInput readLines(const std::string& file, const ReadingOptions& options);

// The same of a text that is given as such: one line, or several with line feeds between them.
std::shared_ptr<TCLineCollection> readLine(const std::string& text, const ReadingOptions& options);

// Why there is no document at this path; one line without the name of the file.
std::string reasonForUnreadableDocument(const std::string& path);

// What a sentence that begins with the quoted path says of it.
std::string reasonWithoutFile(const std::string& sentence, const std::string& path);
