#include "commands/Commands.h"

#include "Arguments.h"
#include "CommandFailure.h"
#include "commands/Colors.h"
#include "commands/Generator.h"
#include "files/FileURL.h"
#include "input/LineInput.h"
#include "output/Output.h"

#include <filesystem>

namespace {

// Takes what the plug-in hands over.
class PageRequest final : public QLPreviewRequest {
public:
    std::optional<std::string> page;

    void setDataRepresentation(std::optional<std::string_view> data, std::string_view,
                               const QLProperties&) override {
        page = data;
    }
};

// The plug-in hands over no page and no reason, so the file is asked.
std::string reasonForNoPage(const std::string& file) {
    // What isn't a file can't be read twice.
    std::error_code ignored;
    const auto kind = std::filesystem::status(file, ignored).type();
    using std::filesystem::file_type;
    if (kind == file_type::fifo || kind == file_type::character || kind == file_type::socket)
        return "is not a file with a document";
    return reasonForUnreadableDocument(file);
}

} // namespace

void runPreview(const PreviewArguments& arguments) {
    const Generator generator = loadGenerator();
    useColorsOfFile(arguments.colors);
    const QLProperties options;
    PageRequest request;
    (*generator)
        ->GeneratePreviewForURL(generator.get(), &request, platform::fileURLOfPath(arguments.file).c_str(),
                                nullptr, &options);
    if (!request.page) throw CommandFailure{ExitCodeFailed, arguments.file, reasonForNoPage(arguments.file)};
    writeOutput(arguments.output, *request.page);
}
