#include "document/FileReader.h"

#include "document/FileContents.h"
#include "runtime/TBFLog.h"
#include "xml/XMLBounds.h"
#include "xml/XMLFeed.h"

#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <libxml/xmlerror.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace TBF {

namespace {

constexpr std::string_view xmlStart = "<?xml";
constexpr std::size_t maxMessageLength = 1023;
constexpr std::size_t maxShownName = 40;

std::atomic<bool> lineNumbersEnabled{false};

class FileDescriptor {
public:
    explicit FileDescriptor(const std::string& path)
        : number(open(path.c_str(), O_RDONLY | O_CLOEXEC)) {}
    ~FileDescriptor() {
        if (number >= 0) close(number);
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    operator int() const { return number; }

private:
    int number;
};

// What the parser tells while it runs. It reaches the handlers through the parser context.
struct ParseRun {
    FileContents contents;
    std::string messages;
    std::string firstError;
    int firstCode = 0;
    int firstLine = 0;
    bool failedAtEnd = false; // the first error was that there is no more text
    bool hasTooManyLines = false;
};

std::string_view viewOf(const xmlChar* text) {
    return text ? reinterpret_cast<const char*>(text) : std::string_view();
}

xmlParserCtxt& contextOf(void* context) {
    return *static_cast<xmlParserCtxt*>(context);
}

ParseRun& runOf(void* context) {
    return *static_cast<ParseRun*>(contextOf(context)._private);
}

uint32_t lineOf(void* context) {
    if (!lineNumbersEnabled) return 0;
    return static_cast<uint32_t>(std::max(xmlSAX2GetLineNumber(context), 0));
}

void startElementHandler(void* context, const xmlChar* name, const xmlChar* prefix, const xmlChar* uri, int,
                         const xmlChar**, int, int, const xmlChar**) {
    FileContents& contents = runOf(context).contents;
    // A prefix that nobody declared belongs to the name.
    const bool isPlainName = !prefix || uri;
    contents.startElement(isPlainName ? viewOf(name)
                                      : std::string(viewOf(prefix)) + ':' + std::string(viewOf(name)),
                          lineOf(context));
    ParseRun& run = runOf(context);
    run.hasTooManyLines |= contents.lines && contents.lines->count() > FileLinesNode::mostLines;
    if (run.hasTooManyLines || !contents.foreignRoot().empty()) xmlStopParser(&contextOf(context));
}

void endElementHandler(void* context, const xmlChar*, const xmlChar*, const xmlChar*) {
    runOf(context).contents.endElement();
}

void textHandler(void* context, const xmlChar* text, int length) {
    runOf(context).contents.text({reinterpret_cast<const char*>(text), static_cast<std::size_t>(length)},
                                 lineOf(context));
}

void commentHandler(void* context, const xmlChar*) {
    runOf(context).contents.text({}, lineOf(context));
}

void structuredErrorHandler(void* context, xmlErrorPtr error) {
    ParseRun& run = runOf(context);
    const std::string message = error->message ? error->message : "";
    run.messages.append(message, 0, maxMessageLength - std::min(run.messages.size(), maxMessageLength));
    if (run.firstCode != 0 || error->level < XML_ERR_ERROR) return;
    run.firstCode = error->code;
    run.firstLine = error->line;
    run.firstError = message.substr(0, message.find_last_not_of("\n ") + 1);
    const xmlParserInput* const input = contextOf(context).input;
    run.failedAtEnd = input && input->cur >= input->end;
}

// The handlers belong to one context: the error functions of all of libxml2 stay as they are. No tree is
// built, which would cost many times the file's size.
void installHandlers(xmlParserCtxt& context, ParseRun& run) {
    context._private = &run;
    xmlSAXHandler handlers = {};
    handlers.initialized = XML_SAX2_MAGIC;
    handlers.startElementNs = startElementHandler;
    handlers.endElementNs = endElementHandler;
    handlers.characters = textHandler;
    handlers.ignorableWhitespace = textHandler; // a separator may be a space
    handlers.cdataBlock = textHandler;
    handlers.comment = commentHandler;
    handlers.serror = structuredErrorHandler;
    *context.sax = handlers;
}

// The lines of a document, or somewhat more: comments may hold the same text. Told before any memory is used.
bool mayHaveTooManyLines(std::string_view bytes) {
    constexpr std::string_view lineStart = "<line";
    std::size_t count = 0;
    for (std::size_t place = bytes.find(lineStart); place != std::string_view::npos;
         place = bytes.find(lineStart, place + lineStart.size())) {
        const std::size_t next = place + lineStart.size();
        if (next < bytes.size() && bytes[next] != 's' && ++count > FileLinesNode::mostLines) return true;
    }
    return false;
}

const std::string& reasonForTooManyLines() {
    static const std::string& reason =
        *new std::string("has more than " + std::to_string(FileLinesNode::mostLines) + " lines");
    return reason;
}

std::string reasonOf(const ParseRun& run) {
    if (run.hasTooManyLines) return reasonForTooManyLines();
    const std::string place = " (line " + std::to_string(run.firstLine) + ")";
    const bool isEncodingError = run.firstCode == XML_ERR_INVALID_ENCODING ||
                                 run.firstCode == XML_I18N_CONV_FAILED ||
                                 run.firstError.starts_with("Input is not proper UTF-8");
    if (isEncodingError) return "is not valid UTF-8" + place;
    if (run.failedAtEnd) return "is cut off: its XML ends too early" + place;
    std::string reason = run.firstError.empty() ? "unknown error" : run.firstError;
    std::replace(reason.begin(), reason.end(), '\n', ' ');
    return "is not well-formed XML: " + reason + place;
}

void logLoadError(const std::string& reason, const std::string& subject) {
    if (TBFErrorLogEnabled) std::fprintf(stderr, "File load error: %s%s\n", reason.c_str(), subject.c_str());
}

} // namespace

FileReader::FileReader(std::string filePath)
    : path(std::move(filePath)) {}

void FileReader::enableLineNumbers() {
    lineNumbersEnabled = true;
}

bool FileReader::fail(FileReaderError error, const std::string& reason) {
    failure = error;
    sentence = "'" + path + "' " + reason + ".";
    return false;
}

bool FileReader::readFile() {
    std::string bytes;
    return loadBytes(bytes) && readMemory(bytes);
}

bool FileReader::loadBytes(std::string& bytes) {
    const FileDescriptor file(path);
    if (file < 0) {
        if (errno == ENOENT) return fail(FileReaderErrorCannotRead, "doesn't exist");
        return fail(FileReaderErrorCannotRead, std::string("can't be opened: ") + std::strerror(errno));
    }
    struct stat status = {};
    if (fstat(file, &status) == 0) {
        if (S_ISDIR(status.st_mode)) return fail(FileReaderErrorCannotRead, "is a folder, not a document");
        if (status.st_size > 0)
            bytes.reserve(std::min(static_cast<std::size_t>(status.st_size), maxFileSize) + 1);
    }
    char buffer[65536];
    while (true) {
        const ssize_t count = read(file, buffer, sizeof buffer);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) {
            return fail(FileReaderErrorCannotRead, std::string("can't be read: ") + std::strerror(errno));
        }
        if (count == 0) return true;
        bytes.append(buffer, static_cast<std::size_t>(count));
        // Of something else than a document, however long, no more than the start is read.
        if (!platform::withoutByteOrderMark(bytes).starts_with(xmlStart)) return true;
        if (bytes.size() > maxFileSize) return fail(FileReaderErrorCannotRead, "is too large for a document");
    }
}

bool FileReader::readMemory(std::string_view bytes) {
    bytes = platform::withoutByteOrderMark(bytes);
    if (!bytes.starts_with(xmlStart)) {
        const bool isBeginning = xmlStart.starts_with(bytes) && !bytes.empty();
        return fail(FileReaderErrorWrongFormat, bytes.empty() ? "is empty, and so is not a document"
                                                : isBeginning
                                                    ? "is cut off: its XML ends too early (line 1)"
                                                    : "is not a document: it doesn't begin with \"<?xml\"");
    }
    return parse(bytes);
}

bool FileReader::parse(std::string_view bytes) {
    if (bytes.size() > maxFileSize) return fail(FileReaderErrorCannotRead, "is too large for a document");
    if (mayHaveTooManyLines(bytes)) return fail(FileReaderErrorCannotRead, reasonForTooManyLines());
    if (const platform::XMLExcess excess = platform::firstExcessOfXML(bytes)) {
        return fail(FileReaderErrorBadContent,
                    std::string(excess.what) + " (line " + std::to_string(excess.line) + ")");
    }
    platform::XMLFeed feed(bytes);
    const platform::XMLParser context = feed.makeParser();
    if (!context) return fail(FileReaderErrorBadContent, "can't be parsed: there is no memory");

    ParseRun run;
    installHandlers(*context, run);
    const int status = xmlParseDocument(context.get());
    messages = std::move(run.messages);
    const std::string& foreignRoot = run.contents.foreignRoot();
    if (!foreignRoot.empty()) {
        logLoadError("document of the wrong type, root node != ", std::string(FileContents::rootName));
        return fail(FileReaderErrorBadContent, "is not a document: its root element is <" +
                                                   foreignRoot.substr(0, maxShownName) + "> and not <" +
                                                   std::string(FileContents::rootName) + ">");
    }
    if (feed.hasTooManyNames()) return fail(FileReaderErrorBadContent, "has over 10,000 different names");
    if (status != 0 || !context->wellFormed || run.hasTooManyLines)
        return fail(FileReaderErrorBadContent, reasonOf(run));
    infoNode = std::move(run.contents.info);
    settingsNode = std::move(run.contents.settings);
    linesNode = std::move(run.contents.lines);
    return true;
}

} // namespace TBF
