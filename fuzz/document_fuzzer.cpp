// Reads any bytes as a document. What can be read must come out of the writer in a form that can be read
// again and is written alike.

#include "document/FileReader.h"
#include "document/FileWriter.h"
#include "runtime/TBFLog.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

namespace {

// Documents are always written in the current version, whatever they were read from.
std::string written(const TBF::FileReader& reader) {
    TBF::FileInfoNode info;
    info.isEvaluationTest = reader.info() && reader.info()->isEvaluationTest;
    TBF::FileWriter writer;
    writer.setInfoNode(&info);
    writer.setSettingsNode(reader.settings());
    writer.setLinesNode(reader.lines());
    const std::optional<std::string> text = writer.text();
    if (!text) std::abort();
    return *text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    TBFErrorLogSetEnabled(0);
    TBF::FileReader first("input");
    if (!first.readMemory({reinterpret_cast<const char*>(data), size})) {
        if (first.failureSentence().empty()) std::abort();
        return 0;
    }
    const std::string once = written(first);
    TBF::FileReader second("written");
    if (!second.readMemory(once)) std::abort();
    if (written(second) != once) std::abort();
    return 0;
}
