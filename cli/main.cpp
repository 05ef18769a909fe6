// The command `tabulon`: a host of the preview plug-in, and of the engine beneath it.

#include "Arguments.h"
#include "CommandFailure.h"
#include "commands/Commands.h"
#include "m_apm.h"

#include <algorithm>
#include <csignal>
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

// One line, whatever the names of files hold.
void report(const CommandFailure& failure) {
    std::string line = failure.file.empty() ? failure.why : failure.file + ": " + failure.why;
    std::replace_if(
        line.begin(), line.end(), [](unsigned char c) { return c < 0x20 || c == 0x7F; }, '?');
    std::fprintf(stderr, "tabulon: %s\n", line.c_str());
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
    // A reader that has seen enough is met as an error of writing.
    std::signal(SIGPIPE, SIG_IGN);
    quietLibraries();
    try {
        if (const auto arguments = parseArguments(count, values)) {
            hostPlugIn(arguments->host);
            run(arguments->command);
        }
        return ExitCodeDone;
    } catch (const CommandFailure& failure) {
        report(failure);
        return failure.exitCode;
    } catch (const std::bad_alloc&) {
        report({ExitCodeFailed, {}, "there is not enough memory"});
    } catch (const std::exception& error) {
        report({ExitCodeFailed, {}, error.what()});
    }
    return ExitCodeFailed;
}
