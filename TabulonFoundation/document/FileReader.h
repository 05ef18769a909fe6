#pragma once

// Reads a document file into its three nodes. The XML is read as data and nothing else: no external
// entity, DTD or network resource is ever fetched, and a file with definitions of its own is refused, so that
// a small file can't grow in memory or take long. A byte order mark is passed over. A reader is used by one
// thread at a time; readers on different threads don't meet.

#include "document/FileInfoNode.h"
#include "document/FileLinesNode.h"
#include "document/FileSettingsNode.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace TBF {

enum FileReaderError : int32_t {
    FileReaderErrorNone = 0,
    FileReaderErrorWrongFormat = 1, // doesn't begin with an XML declaration
    FileReaderErrorBadContent = 2,  // not well-formed, or not a document
    FileReaderErrorCannotRead = 3,
};

class FileReader {
public:
    explicit FileReader(std::string filePath);

    // Once per reader. False on failure, with the reason in `error`.
    bool readFile();

    // The same on the bytes of a file; the path only names them in messages.
    bool readMemory(std::string_view bytes);

    FileReaderError error() const noexcept { return failure; }

    // One sentence that names the file and says what is wrong; empty without a failure.
    const std::string& failureSentence() const noexcept { return sentence; }

    // The parser's own messages, as far as they fit; empty without any.
    const std::string& errorMessage() const noexcept { return messages; }

    // Owned by the reader; null for a section that the file doesn't have.
    FileInfoNode* info() const noexcept { return infoNode.get(); }
    FileSettingsNode* settings() const noexcept { return settingsNode.get(); }
    FileLinesNode* lines() const noexcept { return linesNode.get(); }

    // The largest file that is read, in bytes.
    static constexpr std::size_t maxFileSize = std::size_t{1} << 30;

    // Line numbers of records are 0 unless this was called, before any file is read.
    static void enableLineNumbers();

private:
    bool fail(FileReaderError error, const std::string& reason);
    bool loadBytes(std::string& bytes);
    bool parse(std::string_view bytes);

    std::string path;
    FileReaderError failure = FileReaderErrorNone;
    std::string sentence;
    std::string messages;
    std::unique_ptr<FileInfoNode> infoNode;
    std::unique_ptr<FileSettingsNode> settingsNode;
    std::unique_ptr<FileLinesNode> linesNode;
};

} // namespace TBF
