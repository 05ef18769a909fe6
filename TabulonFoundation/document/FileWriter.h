#pragma once

// Writes the three nodes of a document as a file. The whole file is made in memory first. On disk there
// is always the old file or the new one, never a part of either, even if the machine stops. Characters
// that XML can't hold (control characters but tab, line feed and carriage return, U+FFFE, U+FFFF) are
// left out, and so are elements that have no text. Used by one thread at a time.

#include "document/FileInfoNode.h"
#include "document/FileLinesNode.h"
#include "document/FileSettingsNode.h"

#include <optional>
#include <string>

namespace TBF {

class FileWriter {
public:
    // Whether a file can have this code unit.
    static constexpr bool canHold(char16_t c) {
        return c >= 0x20 ? c < 0xFFFE : c == u'\t' || c == u'\n' || c == u'\r';
    }

    // Borrowed: the nodes outlive the writing. Null counts as a node that has nothing in it.
    void setInfoNode(const FileInfoNode* node) noexcept { infoNode = node; }
    void setSettingsNode(const FileSettingsNode* node) noexcept { settingsNode = node; }
    void setLinesNode(const FileLinesNode* node) noexcept { linesNode = node; }

    // False, with a reason, if the file could not be written; an old file is then as it was.
    bool writeFile(const std::string& path);

    // The bytes of the file, UTF-8; none if libxml2 has no memory.
    std::optional<std::string> text() const;

    // One sentence that names the file and says what is wrong; empty without a failure.
    const std::string& failureSentence() const noexcept { return sentence; }

private:
    const FileInfoNode* infoNode = nullptr;
    const FileSettingsNode* settingsNode = nullptr;
    const FileLinesNode* linesNode = nullptr;
    std::string sentence;
};

} // namespace TBF
