#pragma once

// What the user asked for, read from the command line. Values only.

#include "PlugInHost.h"
#include "environment/TCSimpleLocale.h"
#include "lines/TCLineCollectionStatistics.h"

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

// How lines are to be read and answered. What isn't given is as the document says, or the default for text.
struct ReadingOptions {
    std::optional<int32_t> trigonometryMode; // a TCTrigonometryMode
    std::optional<TCSimpleLocale> locale;
};

// "-" as a file to read is standard input. An output without a path is standard output.
struct PreviewArguments {
    std::string file;
    std::optional<std::string> output;
    std::optional<std::string> colors; // a file of colours that take the place of the program's own
};

struct ThumbnailArguments {
    std::string file;
    std::string output;
    uint32_t size = 256;            // of the longer side, in pixels
    std::optional<std::string> uri; // by which the picture names the document; that of the file otherwise
    std::optional<std::string> colors;
};

struct AnswersArguments {
    std::string file = "-";
    std::optional<std::string> line; // to be answered instead of a file
    ReadingOptions reading;
    bool asJSON = false;
    std::vector<TCStatisticType> statistics; // to print behind the answers, in this order
};

enum ExportFormat : int32_t {
    ExportFormatHTML = 0,
    ExportFormatInlinedHTML = 1,
};

struct ExportArguments {
    std::string file;
    ExportFormat format = ExportFormatHTML;
    ReadingOptions reading;
    std::optional<std::string> output;
    std::optional<std::string> colors;
};

struct ConvertArguments {
    std::string source;
    std::string destination;
    ReadingOptions reading;
};

using CommandArguments =
    std::variant<PreviewArguments, ThumbnailArguments, AnswersArguments, ExportArguments, ConvertArguments>;

struct Arguments {
    CommandArguments command;
    HostOptions host;
};

// Reads the command line. Help and version are printed, and then there is nothing left to do; a command line
// that makes no sense is a CommandFailure of wrong usage.
std::optional<Arguments> parseArguments(int count, const char* const* values);
