#include "Arguments.h"

#include "CommandFailure.h"
#include "environment/TCTrigonometryMode.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <filesystem>
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
    CLI::Option* const content =
        command
            .add_option_function<std::string>(
                "--content", [&host](const std::string& path) { host.contentFolder = path; },
                "The folder with TBContent.bundle: units, currencies and words")
            ->check(CLI::ExistingDirectory)
            ->type_name("DIR");
    command.add_flag("--no-content", host.isWithoutContent, "Do without units and currencies")
        ->excludes(content);
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

[[noreturn]] void failForUsage(const std::string& why) {
    throw CommandFailure{ExitCodeUsage, {}, why};
}

// What somebody writes who means a command or a file: "answer", "notes.txt", "~/notes". A line to answer
// begins with a digit, or has a blank, an operator or a bracket in it.
bool looksLikeName(std::string_view text) {
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    const auto isOfName = [&](char c) {
        constexpr std::string_view marks = "._-/~";
        return isDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
               static_cast<unsigned char>(c) >= 0x80 || marks.find(c) != marks.npos;
    };
    const std::string_view start = text.substr(text.starts_with('.') || text.starts_with('-') ? 1 : 0);
    return (start.empty() || !isDigit(start.front())) && std::ranges::all_of(text, isOfName);
}

// The commands and what they fill in.
struct Parser {
    HostOptions host;
    CLI::App app{"Answers the lines of a document, each line with its own answer.", "tabulon"};
    PreviewArguments preview;
    ThumbnailArguments thumbnail;
    std::optional<std::string> line; // in the place of a command
    AnswersArguments answers;
    ExportArguments exporting;
    ConvertArguments conversion;
    CLI::App* previewCommand = nullptr;
    CLI::App* thumbnailCommand = nullptr;
    CLI::App* answersCommand = nullptr;
    CLI::App* exportCommand = nullptr;
    CLI::App* convertCommand = nullptr;

    Parser() {
        app.require_subcommand(0, 1);
        app.add_option("LINE", line, "A line to answer, instead of a command")->type_name("");
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
        previewCommand =
            app.add_subcommand("preview", "The page of a document or a text, as a preview shows it");
        addFile(*previewCommand, "FILE", preview.file, "A document, UTF-8 text, or - for standard input")
            ->required();
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
        addReadingOptions(*convertCommand, conversion.reading);
    }

    CommandArguments chosen() const {
        if (previewCommand->parsed()) return preview;
        if (thumbnailCommand->parsed()) return thumbnail;
        if (answersCommand->parsed()) return answers;
        if (exportCommand->parsed()) return exporting;
        if (convertCommand->parsed()) return conversion;
        AnswersArguments answer;
        answer.line = line;
        return answer;
    }

    // Who mistypes a command, leaves it out or forgets the quotes gets no answer to something else.
    void checkUse(bool hasExtras) const {
        if (!line) {
            if (!app.get_subcommands().empty()) return;
            failForUsage(
                "a command or a line is needed, as in: tabulon answers notes.txt, or: tabulon '2 kg in lb'");
        }
        std::error_code ignored;
        if (std::filesystem::exists(*line, ignored)) {
            failForUsage(*line +
                         " is a file, and needs a command: tabulon answers, preview, thumbnail, export or "
                         "convert FILE");
        }
        if (looksLikeName(*line)) {
            failForUsage(*line +
                         " is neither a command nor a file; a line to answer is given in quotes, as in: "
                         "tabulon '2 kg in lb'");
        }
        if (hasExtras || !app.get_subcommands().empty()) {
            failForUsage("a line is one argument, and takes quotes, as in: tabulon '2 kg in lb'");
        }
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
        if (parser.line && dynamic_cast<const CLI::ExtrasError*>(&error)) parser.checkUse(true);
        failForUsage(error.what());
    }
    parser.checkUse(false);
    return Arguments{parser.chosen(), parser.host};
}
