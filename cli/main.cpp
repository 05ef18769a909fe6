// The command `tabulon`: a host of the preview plug-in, and of the engine beneath it.

#include "Arguments.h"
#include "CommandFailure.h"
#include "commands/Commands.h"
#include "m_apm.h"
#include "output/Output.h"
#include "process/LastWords.h"

#include <cstdio>
#include <exception>
#include <libxml/globals.h>
#include <libxml/parser.h>
#include <new>

namespace {

template <typename... Functions>
struct Overloaded : Functions... {
    using Functions::operator()...;
};
template <typename... Functions>
Overloaded(Functions...) -> Overloaded<Functions...>;

void run(const CommandArguments& arguments) {
    std::visit(Overloaded{
                   [](const PreviewArguments& each) { runPreview(each); },
                   [](const ThumbnailArguments& each) { runThumbnail(each); },
                   [](const AnswersArguments& each) { runAnswers(each); },
                   [](const ExportArguments& each) { runExport(each); },
                   [](const ConvertArguments& each) { runConvert(each); },
               },
               arguments);
}

void report(const CommandFailure& failure) {
    if (failure.file.empty()) {
        printLastLine({failure.why});
    } else {
        printLastLine({failure.file, ": ", failure.why});
    }
    if (failure.exitCode == ExitCodeUsage) std::fputs("Run \"tabulon --help\" for the usage.\n", stderr);
}

void ignore(void*, const char*, ...) {}

// Libraries that say on standard error what they give back as a failure, too.
void quietLibraries() {
    xmlSetGenericErrorFunc(nullptr, ignore);
    xmlThrDefSetGenericErrorFunc(nullptr, ignore);
    m_apm_set_out_of_memory_handler([] { throw std::bad_alloc(); });
}

} // namespace

int main(int count, char** values) {
    prepareForTheWorst();
    quietLibraries();
    try {
        if (const auto arguments = parseArguments(count, values)) {
            hostPlugIn(arguments->host);
            refuseInputAsOutput(*arguments);
            run(arguments->command);
        }
        return ExitCodeDone;
    } catch (const CommandFailure& failure) {
        report(failure);
        return failure.exitCode;
    } catch (const std::bad_alloc&) {
        printLastLine({"there is not enough memory"});
    } catch (const std::exception& error) {
        printLastLine({error.what()});
    }
    return ExitCodeFailed;
}
