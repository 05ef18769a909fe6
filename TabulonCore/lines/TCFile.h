#pragma once

// A document as a file: reads one into a line collection, and writes a collection as one. Nothing is read
// until something of the file is asked for. Texts in files are independent of the locale, and answers are
// computed afresh whatever the file says. Used on the document's thread.

#include "document/FileDictionary.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

class TCLine;
class TCLineCollection;
class TCResult;

namespace TBF {
class FileLinesNode;
class FileReader;
struct FileLine;
} // namespace TBF

enum TCFileFormat : int32_t {
    TCFileFormatUnreadable = 0,
    TCFileFormatOther = 1, // doesn't begin with an XML declaration
    TCFileFormatDocument = 2,
    TCFileFormatNotRead = 1024, // not yet, or because there is no such file
};

class TCFile {
public:
    // What an application keeps with a document, by key.
    using Value = std::variant<std::u16string, double>;
    using UserInfo = std::map<std::u16string, Value>;

    TCFile() = default;
    explicit TCFile(std::string filePath);
    explicit TCFile(std::shared_ptr<TCLineCollection> lineCollection); // for writing
    ~TCFile();

    // The collection of the file at `path`; null if it can't be read.
    static std::shared_ptr<TCLineCollection> lineCollectionFromPath(const std::string& path);

    // Writes the collection with these values. False if it could not be written.
    static bool archiveToPath(std::shared_ptr<TCLineCollection> collection, const std::string& path,
                              const UserInfo& info);

    // These read the file first, if that hasn't succeeded yet. Null after a failure.
    std::shared_ptr<TCLineCollection> lineCollection();
    TCFileFormat fileFormat();
    bool isEvaluationTestFile();

    // What a test file expects of its lines, one entry each; nothing for any other file. A result without
    // a text is empty; a line may have no unit. Units are read with those of the current environment.
    const std::optional<std::vector<std::shared_ptr<TCResult>>>& expectedResults() const;
    const std::optional<std::vector<std::optional<std::u16string>>>& expectedUnitStrings() const;

    void setLineCollection(std::shared_ptr<TCLineCollection> lineCollection);

    // Where in the XML text the line stands, from 1 on; 0 if that isn't known, -1 for a line of another
    // collection or one that was not in the file.
    int64_t fileLineNumberForLine(const TCLine& line) const;

    // Values that are kept with the document. Either form is read from the other: a number from what a
    // text begins with, 0 without one.
    void setValue(Value value, std::u16string key);
    std::optional<std::u16string> stringForKey(const std::u16string& key) const;
    std::optional<double> numberForKey(const std::u16string& key) const;
    const UserInfo& userInfo() const { return miscellaneous; }

    // The values as the file has them; none if there is nothing.
    std::optional<TBF::FileDictionary> tbfMisclaneousDictionary() const;
    void readTBFMisclaneousDictionary(const TBF::FileDictionary* dictionary);

    // Replaces the collection on success, and leaves everything but the format on failure. False with a
    // reason in `failureSentence`.
    bool readFromPath(const std::string& path);

    // The same of a file's bytes that are there already; the failure calls them by the name.
    bool readFromBytes(std::string bytes, const std::string& name);

    // Replaces the file as a whole. False with a reason in `failureSentence`; the file is then as it was.
    bool writeToPath(const std::string& path);

    // One sentence for a user on the last read or write that failed; empty after one that did not.
    const std::string& failureSentence() const { return failure; }

    static void writeLineFormattingAttributesFromLine(const TCLine& line, TBF::FileLinesNode& lines,
                                                      std::size_t index);
    static void readLineFormattingAttributesIntoLine(TCLine& line, const TBF::FileLinesNode& lines,
                                                     std::size_t index);

private:
    void takeFailure(const TBF::FileReader& reader);
    void takeContents(const TBF::FileReader& reader);
    void takeExpectations(const TBF::FileLine& line);

    std::string path;
    std::shared_ptr<TCLineCollection> collection;
    TCFileFormat format = TCFileFormatNotRead;
    bool isTest = false;
    std::optional<std::vector<std::shared_ptr<TCResult>>> results;         // of a test file only
    std::optional<std::vector<std::optional<std::u16string>>> unitStrings; // of a test file only
    std::vector<int64_t> fileLineNumbers;                                  // by line index when read
    UserInfo miscellaneous;
    std::string failure;
};
