#include "Arguments.h"

#include "CommandFailure.h"
#include "environment/TCTrigonometryMode.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <iterator>
#include <string_view>
#include <vector>

namespace {

template <typename T>
struct Choice {
    const char* name;
    T value;
};

constexpr Choice<int32_t> angleModes[] = {
    {"degrees", TCTrigonometryModeDegrees},
    {"radians", TCTrigonometryModeRadians},
};

constexpr Choice<TCSimpleLocale> locales[] = {
    {"standard", {u'.', u','}},
    {"european", {u',', u'.'}},
};

constexpr Choice<ExportFormat> exportFormats[] = {
    {"html", ExportFormatHTML},
    {"html-inline", ExportFormatInlinedHTML},
};

struct StatisticFlag {
    const char* name;
    const char* description;
    TCStatisticType statistic;
};

constexpr StatisticFlag statisticFlags[] = {
    {"--total", "Behind the answers, their sum", TCStatisticTypeTotal},
    {"--average", "Behind the answers, their mean", TCStatisticTypeAverage},
    {"--variance", "Behind the answers, their variance", TCStatisticTypeVariance},
    {"--standard-deviation", "Behind the answers, the root of their variance",
     TCStatisticTypeStandardDeviation},
};

// An option that takes one of the names of a table; `take` gets the value.
template <typename T, std::size_t count, typename Take>
CLI::Option* addChoice(CLI::App& command, const char* option, const char* description,
                       const Choice<T> (&choices)[count], Take take) {
    std::vector<std::string> names;
    for (const Choice<T>& choice : choices)
        names.emplace_back(choice.name);
    const auto takeNamed = [&choices, take](const std::string& name) {
        take(std::find_if(std::begin(choices), std::end(choices), [&](const auto& choice) {
                 return choice.name == name;
             })->value);
    };
    return command.add_option_function<std::string>(option, takeNamed, description)
        ->check(CLI::IsMember(names))
        ->type_name("NAME");
}

void addReadingOptions(CLI::App& command, ReadingOptions& reading) {
    addChoice(command, "--trig", "How angles are read", angleModes,
              [&reading](int32_t mode) { reading.trigonometryMode = mode; });
    addChoice(command, "--locale", "1,234.5 (standard) or 1.234,5 (european); a document is converted",
              locales, [&reading](TCSimpleLocale locale) { reading.locale = locale; });
}

// In front of the command or behind it.
void addHostOptions(CLI::App& command, HostOptions& host) {
    const auto isLanguage = [](const std::string& name) {
        const bool isFine = !name.empty() && std::all_of(name.begin(), name.end(), [](unsigned char c) {
            return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '-' || c == '_';
        });
        return isFine ? std::string() : "'" + name + "' is not a code of a language";
    };
    command
        .add_option_function<std::string>(
            "--content", [&host](const std::string& path) { host.contentFolder = path; },
            "The folder with TBContent.bundle: units, currencies and words")
        ->type_name("DIR");
    command
        .add_option_function<std::string>(
            "--data", [&host](const std::string& path) { host.dataFolder = path; },
            "The folder with saved rates and variables")
        ->check(CLI::ExistingDirectory)
        ->type_name("DIR");
    command
        .add_option_function<std::string>(
            "--language", [&host](const std::string& code) { host.language = code; },
            "The language of units and phrases, as en or de")
        ->check(CLI::Validator(isLanguage, ""))
        ->type_name("CODE");
}

CLI::Option* addFile(CLI::App& command, const char* name, std::string& file, const char* description) {
    return command.add_option(name, file, description)->type_name("");
}

void addOutput(CLI::App& command, std::optional<std::string>& output) {
    command
        .add_option_function<std::string>(
            "-o,--output", [&output](const std::string& path) { output = path; },
            "Write to this file, not to standard output")
        ->type_name("FILE");
}

void addPlainRules(CLI::App& command, HostOptions& host) {
    command.add_flag("--plain-rules", host.plainRules, "Without the readings beyond the plain rules");
}

void addColors(CLI::App& command, std::optional<std::string>& colors) {
    command
        .add_option_function<std::string>(
            "--colors", [&colors](const std::string& path) { colors = path; },
            "Colours of the page, over the program's own")
        ->type_name("FILE");
}

constexpr uint32_t smallestThumbnail = 32;
constexpr uint32_t largestThumbnail = 4096;

// Empty if the text has no character that an address can't have.
std::string isWrittenAsURI(const std::string& text) {
    const bool isPlain = std::all_of(text.begin(), text.end(), [](char c) { return c > 0x20 && c < 0x7F; });
    return isPlain && !text.empty() ? "" : "not written as an address";
}

// The commands and what they fill in.
struct Parser {
    HostOptions host;
    CLI::App app{"Answers the lines of a document, each line with its own answer.", "tabulon"};
    PreviewArguments preview;
    ThumbnailArguments thumbnail;
    AnswersArguments answers;
    ExportArguments exporting;
    ConvertArguments conversion;
    CLI::App* previewCommand = nullptr;
    CLI::App* thumbnailCommand = nullptr;
    CLI::App* answersCommand = nullptr;
    CLI::App* exportCommand = nullptr;
    CLI::App* convertCommand = nullptr;

    Parser() {
        app.require_subcommand(1);
        app.set_version_flag("--version", "tabulon " TABULON_VERSION, "Print the version and exit");
        app.footer("Exit codes: 0 done, 1 a file could not be read or written, 2 wrong usage.");
        addPreview();
        addThumbnail();
        addAnswers();
        addExport();
        addConvert();
        for (CLI::App* const each :
             {&app, previewCommand, thumbnailCommand, answersCommand, exportCommand, convertCommand})
            addHostOptions(*each, host);
    }

    void addPreview() {
        previewCommand = app.add_subcommand("preview", "The page of a document, as a preview shows it");
        addFile(*previewCommand, "FILE", preview.file, "A document")->required();
        addOutput(*previewCommand, preview.output);
        addColors(*previewCommand, preview.colors);
    }

    void addThumbnail() {
        thumbnailCommand = app.add_subcommand("thumbnail", "A small picture of a document, as a PNG file");
        addFile(*thumbnailCommand, "FILE", thumbnail.file, "A document")->required();
        thumbnailCommand->add_option("-o,--output", thumbnail.output, "The file to write")
            ->type_name("FILE")
            ->required();
        thumbnailCommand->add_option("-s,--size", thumbnail.size, "The longer side, in pixels")
            ->type_name("N")
            ->check(CLI::Range(smallestThumbnail, largestThumbnail));
        thumbnailCommand
            ->add_option_function<std::string>(
                "--uri", [this](const std::string& uri) { thumbnail.uri = uri; },
                "The document's address, where FILE is a copy of it")
            ->type_name("URI")
            ->check(isWrittenAsURI, "");
        addColors(*thumbnailCommand, thumbnail.colors);
    }

    void addAnswers() {
        answersCommand = app.add_subcommand("answers", "One line of output for each line: its answer");
        addFile(*answersCommand, "FILE", answers.file, "A document, UTF-8 text, or - for standard input");
        addReadingOptions(*answersCommand, answers.reading);
        addPlainRules(*answersCommand, host);
        answersCommand->add_flag("--json", answers.asJSON, "An array of line, text, answer and error");
        for (const StatisticFlag& flag : statisticFlags)
            answersCommand->add_flag_callback(
                flag.name, [this, &flag] { answers.statistics.push_back(flag.statistic); }, flag.description);
    }

    void addExport() {
        exportCommand = app.add_subcommand("export", "The lines and their answers in another format");
        addFile(*exportCommand, "FILE", exporting.file, "A document, UTF-8 text, or - for standard input")
            ->required();
        addChoice(*exportCommand, "--format", "The format to write", exportFormats,
                  [this](ExportFormat format) { exporting.format = format; })
            ->required();
        addReadingOptions(*exportCommand, exporting.reading);
        addPlainRules(*exportCommand, host);
        addOutput(*exportCommand, exporting.output);
        addColors(*exportCommand, exporting.colors);
    }

    void addConvert() {
        convertCommand = app.add_subcommand("convert", "Text to a document, or a document to text");
        addFile(*convertCommand, "SOURCE", conversion.source, "UTF-8 text or a document, or -")->required();
        addFile(*convertCommand, "DESTINATION", conversion.destination, "The file to write")->required();
        convertCommand->add_flag("--force", conversion.isForced,
                                 "Write over a file of another kind than the one written");
        addReadingOptions(*convertCommand, conversion.reading);
    }

    CommandArguments chosen() const {
        if (previewCommand->parsed()) return preview;
        if (thumbnailCommand->parsed()) return thumbnail;
        if (answersCommand->parsed()) return answers;
        if (exportCommand->parsed()) return exporting;
        return conversion;
    }
};

} // namespace

std::optional<Arguments> parseArguments(int count, const char* const* values) {
    Parser parser;
    try {
        parser.app.parse(count, values);
    } catch (const CLI::Success& wish) { // help or version
        parser.app.exit(wish, std::cout, std::cerr);
        return std::nullopt;
    } catch (const CLI::ParseError& error) {
        throw CommandFailure{ExitCodeUsage, {}, error.what()};
    }
    return Arguments{parser.chosen(), parser.host};
}
