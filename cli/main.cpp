// The command `tabulon`: a host of the preview plug-in, and of the engine beneath it.

#include "Arguments.h"
#include "CommandFailure.h"
#include "commands/Commands.h"
#include "m_apm.h"
#include "output/Output.h"
#include "process/LastWords.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <libxml/globals.h>
#include <libxml/parser.h>
#include <new>
#include <unicode/uclean.h>

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
}

// ICU uses what it asked for before it looks whether it got it.
void* allocateForICU(const void*, std::size_t size) {
    void* const memory = std::malloc(std::max<std::size_t>(size, 1));
    return memory ? memory : (endWithoutMemory(), nullptr);
}

void* reallocateForICU(const void*, void* old, std::size_t size) {
    void* const memory = std::realloc(old, std::max<std::size_t>(size, 1));
    return memory ? memory : (endWithoutMemory(), nullptr);
}

void freeForICU(const void*, void* memory) {
    std::free(memory);
}

// Before anything is asked of these libraries.
void prepareLibrariesForShortMemory() {
    m_apm_set_out_of_memory_handler([] { throw std::bad_alloc(); });
    UErrorCode ignored = U_ZERO_ERROR;
    u_setMemoryFunctions(nullptr, allocateForICU, reallocateForICU, freeForICU, &ignored);
}

} // namespace

int main(int count, char** values) {
    prepareForTheWorst();
    quietLibraries();
    prepareLibrariesForShortMemory();
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
