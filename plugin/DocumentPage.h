#pragma once

// The page of the document in a file, for the generators. Each call reads the file afresh.

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

class TCLineCollection;

struct DocumentPage {
    bool isDocument = true;          // false for a file that is something else than XML
    std::optional<std::string> html; // UTF-8; none for a document that can't be read
};

// `path` names no file if the URL wasn't a file's; that is a file that can't be read.
DocumentPage pageOfDocumentAtURL(const char* url);

// The same with no more of it than the first screenful of `height` CSS pixels needs. The document is read and
// answered as a whole.
DocumentPage firstScreenOfDocumentAtURL(const char* url, double height);

// The same of lines that are there already; none for a null collection.
std::optional<std::string> firstScreenOfLines(const std::shared_ptr<TCLineCollection>& collection,
                                              double height);
