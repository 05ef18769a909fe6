// What a line costs from its text to the answer as it is shown, beside libqalculate evaluating and printing
// the same calculation at the same precision in the same run. Each section of a corpus is a document of its
// own. Prints a row for each section, the shares of the stages, and every line on whose answer the two don't
// agree; sections whose name begins with "~" aren't compared. Exit code 1 when a corpus takes more than half
// of libqalculate's time, or when answers differ.
//
// usage: bench_lines CONTENT-BUNDLE|- CORPUS...
//
// "-" measures with the built-in lists alone: functions, word operators and constants, as a host without
// content has them.

#include "environment/TCBuiltins.h"
#include "environment/TCEnvironment.h"
#include "environment/TCSettings.h"
#include "environment/TKEnvironment.h"
#include "environment/TKEnvironmentBuilder.h"
#include "lines/TCLine.h"
#include "lines/TCLineCollection.h"
#include "results/TCResult.h"
#include "runtime/Unicode.h"

#include <libqalculate/qalculate.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kDigits = 100;
constexpr int kRounds = 101;
constexpr double kHighestRatio = 0.5;

struct Line {
    std::string text;
    std::string peerText;
};

struct Section {
    std::string name;
    std::vector<Line> lines;
};

// Microseconds of one round over a section: the least of many rounds counts, since other work on the machine
// only adds to it.
struct Times {
    double analysis = 1e18; // scanning and reading of the words
    double evaluation = 1e18;
    double formatting = 1e18;
    double whole = 1e18;
    double peerEvaluation = 1e18;
    double peerPrinting = 1e18;
    double peer = 1e18;
};

void start(std::string_view contentBundle) {
    TCSettings::make()->set();
    if (contentBundle == "-") {
        TCBuiltins::environment()->set();
        return;
    }
    const auto environment = TKEnvironmentBuilder().build();
    environment->setUpdatesValuesFromWeb(false);
    environment->loadFromBundleAtPath(std::string(contentBundle), "en");
    environment->completeLoading();
    environment->set();
}

std::vector<Section> sectionsOfFile(const char* path) {
    std::vector<Section> sections;
    std::ifstream file(path);
    bool opening = true; // the lines about the file, ahead of the first empty line
    for (std::string text; std::getline(file, text);) {
        if (text.empty()) {
            opening = false;
        } else if (opening) {
            continue;
        } else if (text.starts_with("# ")) {
            sections.push_back({text.substr(2), {}});
        } else if (!sections.empty()) {
            const std::size_t tab = text.find('\t');
            sections.back().lines.push_back(
                {text.substr(0, tab), tab == std::string::npos ? text : text.substr(tab + 1)});
        }
    }
    return sections;
}

double microseconds(Clock::time_point from, Clock::time_point to) {
    return std::chrono::duration<double, std::micro>(to - from).count();
}

void keepLeast(double& least, double time) {
    least = std::min(least, time);
}

// The lines stay in `document`, and their ending out of the time, as with the peer's structures.
void measure(const std::vector<std::u16string>& texts, TCLineCollection& document, Times& times) {
    const auto begin = Clock::now();
    document.beginBatchUpdate();
    for (const std::u16string& text : texts)
        document.addLine(TCLine::lineWithExpressionString(text));
    const auto analysed = Clock::now();
    document.endBatchUpdate();
    const auto evaluated = Clock::now();
    std::size_t length = 0;
    for (const auto& line : document)
        length += line->formattedResult().value_or(u"").size();
    const auto end = Clock::now();
    if (length == 0) std::printf("a section without any answer\n");
    keepLeast(times.analysis, microseconds(begin, analysed));
    keepLeast(times.evaluation, microseconds(analysed, evaluated));
    keepLeast(times.formatting, microseconds(evaluated, end));
    keepLeast(times.whole, microseconds(begin, end));
}

class Peer {
public:
    Peer() {
        calculator.loadGlobalDefinitions();
        calculator.loadExchangeRates();
        calculator.setPrecision(kDigits);
        evaluation.parse_options.angle_unit = ANGLE_UNIT_DEGREES;
        evaluation.approximation = APPROXIMATION_APPROXIMATE;
        evaluation.mixed_units_conversion = MIXED_UNITS_CONVERSION_NONE;
        evaluation.local_currency_conversion = false;
        printing.number_fraction_format = FRACTION_DECIMAL;
        printing.interval_display = INTERVAL_DISPLAY_SIGNIFICANT_DIGITS;
    }

    void measure(const std::vector<Line>& lines, Times& times) {
        std::vector<MathStructure> values;
        values.reserve(lines.size());
        const auto begin = Clock::now();
        for (const Line& line : lines)
            values.push_back(calculator.calculate(line.peerText, evaluation));
        const auto evaluated = Clock::now();
        std::size_t length = 0;
        for (MathStructure& value : values)
            length += print(value).size();
        const auto end = Clock::now();
        if (length == 0) std::printf("a section without any answer of libqalculate\n");
        calculator.clearMessages();
        keepLeast(times.peerEvaluation, microseconds(begin, evaluated));
        keepLeast(times.peerPrinting, microseconds(evaluated, end));
        keepLeast(times.peer, microseconds(begin, end));
    }

    std::string answer(const std::string& text) {
        MathStructure value = calculator.calculate(text, evaluation);
        calculator.clearMessages();
        return print(value);
    }

private:
    std::string print(MathStructure& value) const {
        value.format(printing);
        return value.print(printing);
    }

    // The library's one calculator, which lives as long as the process.
    Calculator& calculator = *new Calculator(true);
    EvaluationOptions evaluation;
    PrintOptions printing;
};

// Whether two numbers agree in their first ten digits, whatever unit stands behind the peer's or in front of
// it. Anything but a number agrees with nothing.
bool agree(const std::string& answer, const std::string& peerAnswer) {
    const std::size_t digits = peerAnswer.find_first_of("-0123456789");
    if (answer.empty() || digits == std::string::npos) return false;
    char *end = nullptr, *peerEnd = nullptr;
    const char* const peerStart = peerAnswer.c_str() + digits;
    const long double value = std::strtold(answer.c_str(), &end),
                      peerValue = std::strtold(peerStart, &peerEnd);
    if (*end != '\0' || peerEnd == peerStart || (*peerEnd != '\0' && *peerEnd != ' ')) return false;
    return std::fabs(value - peerValue) <= 1e-10L * std::max(std::fabs(value), std::fabs(peerValue));
}

// All digits of an answer; a percentage keeps its sign as an exponent, as libqalculate has no percentages.
std::string exactAnswer(TCLine& line) {
    const auto result = line.result();
    if (!result) return {};
    const bool percentage = line.formattedResult().value_or(u"").ends_with(u'%');
    return TBF::utf8(result->rawResult().value_or(u"")) + (percentage ? "e-2" : "");
}

std::size_t printDifferences(const Section& section, const TCLineCollection& document, Peer& peer) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < section.lines.size(); ++i) {
        const Line& line = section.lines[i];
        const std::string answer = exactAnswer(*document.lineAtIndex(i)),
                          peerAnswer = peer.answer(line.peerText);
        if (agree(answer, peerAnswer)) continue;
        ++count;
        std::printf("differs: %s: \"%s\" gives %s, \"%s\" gives %s\n", section.name.c_str(),
                    line.text.c_str(), answer.c_str(), line.peerText.c_str(), peerAnswer.c_str());
    }
    return count;
}

void printRow(const std::string& name, std::size_t count, const Times& times) {
    const double lines = static_cast<double>(count);
    std::printf("%-28s%6zu%9.1f us%12.1f us   %.2f\n", name.c_str(), count, times.whole / lines,
                times.peer / lines, times.whole / times.peer);
}

// Whether the corpus was answered fast enough, and alike.
bool measureCorpus(const char* path, Peer& peer) {
    const auto sections = sectionsOfFile(path);
    if (sections.empty()) return std::fprintf(stderr, "bench_lines: %s: no lines to measure\n", path), false;

    std::printf("%-28s%6s%12s%15s   ratio\n", "text to shown answer", "lines", "a line", "libqalculate");
    Times sum{0, 0, 0, 0, 0, 0, 0};
    std::size_t count = 0, differences = 0;
    for (const Section& section : sections) {
        std::vector<std::u16string> texts;
        for (const Line& line : section.lines)
            texts.push_back(TBF::utf16(line.text));
        Times times;
        for (int round = 0; round < kRounds; ++round) {
            TCLineCollection document;
            measure(texts, document, times);
            peer.measure(section.lines, times);
            const bool isCompared = !section.name.starts_with('~');
            if (round == 0 && isCompared) differences += printDifferences(section, document, peer);
        }
        printRow(section.name, texts.size(), times);
        count += texts.size();
        sum.analysis += times.analysis, sum.evaluation += times.evaluation;
        sum.formatting += times.formatting, sum.whole += times.whole;
        sum.peerEvaluation += times.peerEvaluation, sum.peerPrinting += times.peerPrinting;
        sum.peer += times.peer;
    }
    printRow("all", count, sum);

    const double lines = static_cast<double>(count);
    std::printf("a line: analysis %.1f us, parsing and evaluation %.1f us, formatting %.1f us\n",
                sum.analysis / lines, sum.evaluation / lines, sum.formatting / lines);
    std::printf("libqalculate: calculation %.1f us, printing %.1f us\n", sum.peerEvaluation / lines,
                sum.peerPrinting / lines);
    std::printf("ratio %.2f, at most %.2f; %zu answers differ\n\n", sum.whole / sum.peer, kHighestRatio,
                differences);
    return sum.whole <= kHighestRatio * sum.peer && differences == 0;
}

} // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount < 3) return std::fprintf(stderr, "usage: bench_lines CONTENT-BUNDLE|- CORPUS...\n"), 2;
    start(arguments[1]);
    Peer peer;
    bool isFine = true;
    for (int i = 2; i < argumentCount; ++i)
        isFine = measureCorpus(arguments[i], peer) && isFine;
    return isFine ? 0 : 1;
}
