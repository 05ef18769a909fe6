#include "document/FileWriter.h"

#include "files/AtomicFile.h"
#include "runtime/TBFLog.h"
#include "runtime/Unicode.h"

#include <libxml/globals.h>
#include <libxml/xmlerror.h>
#include <libxml/xmlwriter.h>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <memory>
#include <string_view>

namespace TBF {

namespace {

struct BufferDeleter {
    void operator()(xmlBuffer* buffer) const { xmlBufferFree(buffer); }
};
struct WriterDeleter {
    void operator()(xmlTextWriter* writer) const { xmlFreeTextWriter(writer); }
};

// What goes wrong is told by the writer's result: libxml2 prints nothing meanwhile, on this thread.
class Silence {
public:
    Silence() {
        xmlSetStructuredErrorFunc(nullptr, [](void*, xmlErrorPtr) {});
    }
    ~Silence() { xmlSetStructuredErrorFunc(oldContext_, oldFunction_); }
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;

private:
    void* const oldContext_ = xmlStructuredErrorContext;
    const xmlStructuredErrorFunc oldFunction_ = xmlStructuredError;
};

const xmlChar* xmlText(const char* text) {
    return reinterpret_cast<const xmlChar*>(text);
}

std::string encoded(std::u16string_view text) {
    std::u16string kept;
    kept.reserve(text.size());
    for (const char16_t c : text) {
        if (FileWriter::canHold(c)) kept.push_back(c);
    }
    return utf8(kept);
}

struct EscapeRow {
    char character;
    std::string_view text;
};

constexpr EscapeRow escapes[] = {
    {'<', "&lt;"}, {'>', "&gt;"}, {'&', "&amp;"}, {'"', "&quot;"}, {'\r', "&#13;"},
};

// As libxml2 escapes a text. Its own function gives no text at all where there is no memory, and the writer
// takes that for an empty one.
std::string escaped(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (const char c : text) {
        const auto* const row = std::find_if(std::begin(escapes), std::end(escapes),
                                             [c](const EscapeRow& each) { return each.character == c; });
        if (row == std::end(escapes)) {
            result += c;
        } else {
            result += row->text;
        }
    }
    return result;
}

// As "%g" writes it where the decimal point is ".".
std::string textOf(double number) {
    char text[32] = {};
    std::to_chars(text, text + sizeof text - 1, number, std::chars_format::general, 6);
    return text;
}

// The calls that make the layout of the file. A failed call leaves a buffer that can't be used, which
// only happens without memory; no other call follows it, since a writer that can't end its elements takes
// longer for each new one.
class Layout {
public:
    explicit Layout(xmlTextWriter* textWriter)
        : writer(textWriter) {}

    void start(const char* name) {
        if (complete) check(xmlTextWriterStartElement(writer, xmlText(name)));
    }
    void end() {
        if (complete) check(xmlTextWriterEndElement(writer));
    }
    void comment(const char* text) {
        if (complete) check(xmlTextWriterWriteComment(writer, xmlText(text)));
    }
    void emptyLine() { raw("\n"); }

    void element(const char* name, const std::string& text) {
        start(name);
        raw(escaped(text));
        end();
    }

    // An element without text reads as absent, and so is left out.
    void textElement(const char* name, const String* text) {
        const std::string bytes = text ? encoded(text->view()) : std::string();
        if (!bytes.empty()) element(name, bytes);
    }

    void dictionary(const char* name, const FileDictionary& dictionary) {
        start(name);
        for (const auto& [key, value] : dictionary) {
            const std::string keyBytes = encoded(key->view());
            const std::string valueBytes = encoded(value->view());
            if (keyBytes.empty() || valueBytes.empty()) continue;
            start("item");
            element("key", keyBytes);
            element("value", valueBytes);
            end();
        }
        end();
    }

    bool isComplete() const { return complete; }

private:
    void raw(const std::string& text) {
        if (complete) check(xmlTextWriterWriteRaw(writer, xmlText(text.c_str())));
    }
    void check(int result) { complete = complete && result >= 0; }

    xmlTextWriter* writer; // owned by the caller, outlives the layout
    bool complete = true;
};

void writeInfo(Layout& layout, const FileInfoNode& info) {
    layout.comment(" General document info section ");
    layout.start("info");
    layout.element("version", textOf(info.version));
    if (info.isEvaluationTest) layout.element("mode", "test");
    layout.end();
}

void writeSettings(Layout& layout, const FileSettingsNode& settings) {
    layout.comment("Document specific settings section ");
    layout.start("settings");
    if (settings.decimalPlaces != FileSettingsNode::decimalPlacesNotSet) {
        layout.element("dp", std::to_string(settings.decimalPlaces));
    }
    if (settings.trigonometryMode != 0) {
        layout.element("trig_mode", std::to_string(static_cast<int32_t>(settings.trigonometryMode)));
    }
    if (settings.decimalPoint != 0) layout.element("dp_char", encoded({&settings.decimalPoint, 1}));
    if (settings.thousandsSeparator != 0)
        layout.element("th_char", encoded({&settings.thousandsSeparator, 1}));
    if (settings.miscellaneous) layout.dictionary("misc", *settings.miscellaneous);
    layout.end();
}

void writeLines(Layout& layout, const FileLinesNode& lines) {
    layout.comment(" Main body ");
    layout.start("lines");
    for (std::size_t i = 0; i < lines.count(); ++i) {
        const FileLine& line = *lines.find(i);
        layout.start("line");
        layout.textElement("expression", line.expression.get());
        layout.textElement("answer", line.answer.get());
        layout.dictionary("formatting", line.formattingAttributes);
        layout.end();
    }
    layout.end();
}

} // namespace

std::optional<std::string> FileWriter::text() const {
    const Silence silence;
    const std::unique_ptr<xmlBuffer, BufferDeleter> buffer(xmlBufferCreate());
    if (!buffer) return std::nullopt;
    // Growing by doubling: documents may have any number of lines.
    xmlBufferSetAllocationScheme(buffer.get(), XML_BUFFER_ALLOC_DOUBLEIT);
    std::unique_ptr<xmlTextWriter, WriterDeleter> writer(xmlNewTextWriterMemory(buffer.get(), 0));
    if (!writer || xmlTextWriterStartDocument(writer.get(), nullptr, "UTF-8", nullptr) < 0)
        return std::nullopt;
    xmlTextWriterSetIndent(writer.get(), 1);
    xmlTextWriterSetIndentString(writer.get(), xmlText("\t"));

    Layout layout(writer.get());
    layout.start("data");
    writeInfo(layout, infoNode ? *infoNode : FileInfoNode());
    layout.emptyLine();
    writeSettings(layout, settingsNode ? *settingsNode : FileSettingsNode());
    layout.emptyLine();
    writeLines(layout, linesNode ? *linesNode : FileLinesNode());
    layout.end();
    const bool isWhole = layout.isComplete() && xmlTextWriterEndDocument(writer.get()) >= 0 &&
                         xmlTextWriterFlush(writer.get()) >= 0;
    if (!isWhole) return std::nullopt;
    writer.reset();
    return std::string(reinterpret_cast<const char*>(xmlBufferContent(buffer.get())),
                       static_cast<std::size_t>(xmlBufferLength(buffer.get())));
}

bool FileWriter::writeFile(const std::string& path) {
    sentence.clear();
    const std::optional<std::string> bytes = text();
    if (!bytes) {
        TBFErrorLog("Error creating buffer, writer and starting document");
        sentence = "'" + path + "' can't be written: there is no memory.";
        return false;
    }
    const int error = platform::writeFileAtomically(path, *bytes);
    if (error == 0) return true;
    TBFErrorLog("TBFFileWriter: err: %d could not open file for writing at path: '%s'", error, path.c_str());
    sentence = "'" + path + "' can't be written: " + std::strerror(error) + ".";
    return false;
}

} // namespace TBF
