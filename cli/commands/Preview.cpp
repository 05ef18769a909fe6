#include "commands/Commands.h"

#include "Arguments.h"
#include "CommandFailure.h"
#include "GeneratePreviewForURL.h"
#include "commands/Colors.h"
#include "commands/Generator.h"
#include "files/FileURL.h"
#include "input/InputFile.h"
#include "input/LineInput.h"
#include "output/Output.h"

#include <utility>

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

// As a host of previews gets it. The plug-in hands over no page and no reason, so the file is asked for that.
std::string pageOfDocument(const PreviewArguments& arguments) {
    const Generator generator = loadGenerator();
    useColorsOfFile(arguments.colors);
    const QLProperties options;
    PageRequest request;
    (*generator)
        ->GeneratePreviewForURL(generator.get(), &request, platform::fileURLOfPath(arguments.file).c_str(),
                                nullptr, &options);
    if (request.page) return std::move(*request.page);
    throw CommandFailure{ExitCodeFailed, arguments.file, reasonForUnreadableDocument(arguments.file)};
}

// No host would ask for it: the same page of a text, and of what can be read once only.
std::string pageOfLines(const PreviewArguments& arguments) {
    const auto collection = readLines(arguments.file, {}).collection;
    useColorsOfFile(arguments.colors);
    return htmlStringForLineCollection(collection).value_or(std::string());
}

} // namespace

void runPreview(const PreviewArguments& arguments) {
    if (arguments.output) refuseSameFile(arguments.file, *arguments.output);
    writeOutput(arguments.output,
                isDocumentFile(arguments.file) ? pageOfDocument(arguments) : pageOfLines(arguments));
}
