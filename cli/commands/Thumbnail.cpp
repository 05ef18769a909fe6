#include "commands/Commands.h"

#include "Arguments.h"
#include "CommandFailure.h"
#include "GenerateThumbnailForURL.h"
#include "commands/Colors.h"
#include "commands/Generator.h"
#include "document/FileReader.h"
#include "files/FileURL.h"
#include "graphics/LocalFonts.h"
#include "graphics/PNGImage.h"
#include "input/InputFile.h"
#include "input/LineInput.h"
#include "lines/TCLineCollection.h"
#include "output/Output.h"
#include "process/OwnProcess.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <memory>
#include <sys/stat.h>

namespace {

// What is answered in well under two seconds; every line of a document may count for its first ones.
constexpr std::size_t maxSize = std::size_t{32} << 20;
constexpr std::size_t maxLines = 40000;

// Takes the drawing from the plug-in.
class PictureRequest final : public QLThumbnailRequest {
public:
    std::shared_ptr<platform::BitmapContext> picture; // null until it is complete

    std::shared_ptr<platform::DrawingContext> createContext(platform::Size size, bool,
                                                            const QLProperties*) override {
        context = platform::BitmapContext::make(size);
        return context;
    }
    void flushContext(platform::DrawingContext&) override { picture = context; }

private:
    std::shared_ptr<platform::BitmapContext> context;
};

[[noreturn]] void fail(const std::string& file, const std::string& why) {
    throw CommandFailure{ExitCodeFailed, file, why};
}

struct stat statusOf(const std::string& file) {
    struct stat status = {};
    if (stat(file.c_str(), &status) != 0) {
        fail(file,
             errno == ENOENT ? "doesn't exist" : std::string("can't be opened: ") + std::strerror(errno));
    }
    if (S_ISDIR(status.st_mode)) fail(file, "is a folder, not a document");
    if (!S_ISREG(status.st_mode)) fail(file, "is not a file with a document");
    if (static_cast<std::size_t>(status.st_size) > maxSize) {
        fail(file, "is too large for a thumbnail: it has at most " + std::to_string(maxSize >> 20) + " MiB");
    }
    return status;
}

void checkCountOfLines(const std::string& file, std::size_t count) {
    if (count > maxLines)
        fail(file, "is too long for a thumbnail: it has at most " + std::to_string(maxLines) + " lines");
}

// The plug-in draws an empty page of what it can't read, and of any length what it can.
void drawDocument(const ThumbnailArguments& arguments, PictureRequest& request) {
    const std::string& file = arguments.file;
    {
        TBF::FileReader reader(file);
        if (!reader.readFile()) fail(file, reasonWithoutFile(reader.failureSentence(), file));
        if (reader.lines()) checkCountOfLines(file, reader.lines()->count());
    }
    const Generator generator = loadGenerator();
    useColorsOfFile(arguments.colors);
    const QLProperties options;
    (*generator)
        ->GenerateThumbnailForURL(generator.get(), &request, platform::fileURLOfPath(file).c_str(), nullptr,
                                  &options, arguments.size, arguments.size);
}

void drawText(const ThumbnailArguments& arguments, PictureRequest& request) {
    const auto collection = readLines(arguments.file, {}).collection;
    checkCountOfLines(arguments.file, collection->countOfLines());
    useColorsOfFile(arguments.colors);
    drawThumbnailOfLines(&request, collection, arguments.size, arguments.size);
}

std::string uriOf(const std::string& file) {
    std::error_code ignored;
    const std::string path = std::filesystem::absolute(file, ignored).lexically_normal().string();
    return platform::fileURLOfPath(path.empty() ? file : path);
}

} // namespace

void runThumbnail(const ThumbnailArguments& arguments) {
    const std::string& file = arguments.file;
    refuseSameFile(file, arguments.output);
    const struct stat status = statusOf(file);
    const auto draw = [&] {
        platform::LocalFonts::makeSharedFontsTheOnlyOnes();
        PictureRequest request;
        isDocumentFile(file) ? drawDocument(arguments, request) : drawText(arguments, request);
        const std::string image =
            request.picture
                ? platform::pngImage(*request.picture,
                                     {{"Thumb::URI", arguments.uri ? *arguments.uri : uriOf(file)},
                                      {"Thumb::MTime", std::to_string(status.st_mtime)},
                                      {"Thumb::Size", std::to_string(status.st_size)},
                                      {"Software", "Tabulon"}})
                : std::string();
        if (image.empty()) fail(file, "can't be drawn");
        return image;
    };
    writeOutput(arguments.output, resultOfOwnProcess(draw, file, {static_cast<std::size_t>(status.st_size)}));
}
