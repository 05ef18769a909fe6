// What an edit of one line costs in documents of two sizes, at the front, in the middle and at the end, and
// in documents a tenth of whose lines declare variables that the others use: the time must not grow with the
// document. The larger document's row is given as a ratio to the smaller one's.

#include "environment/TCBuiltins.h"
#include "environment/TCEnvironment.h"
#include "environment/TCSettings.h"
#include "lines/TCLine.h"
#include "lines/TCLineCollection.h"
#include "results/TCResult.h"
#include "runtime/Unicode.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

namespace {

void start() {
    TCSettings::make()->set();
    TCBuiltins::environment()->set();
}

std::u16string text(std::size_t number) {
    return TBF::utf16("Item: " + std::to_string(number % 977 + 1) + " * (3.5 + " +
                      std::to_string(number % 31) + ") - 10%");
}

std::shared_ptr<TCLineCollection> document(std::size_t count) {
    auto lines = std::make_shared<TCLineCollection>();
    lines->beginBatchUpdate();
    for (std::size_t i = 0; i < count; ++i)
        lines->addLine(TCLine::lineWithExpressionString(text(i)));
    lines->endBatchUpdate();
    return lines;
}

// Each tenth line declares a variable, and most others use two that may stand anywhere.
std::u16string textWithNames(std::size_t index, std::size_t count) {
    const auto name = [&](std::size_t number) { return "name" + std::to_string(number % (count / 10)); };
    if (index % 10 == 0) return TBF::utf16(name(index / 10) + " = " + std::to_string(index + 1));
    if (index % 10 == 1) return u"(___rel_line(-1)) * 2";
    return TBF::utf16("3 * " + name(index * 7) + " + " + name(index * 13));
}

std::shared_ptr<TCLineCollection> documentWithNames(std::size_t count) {
    auto lines = std::make_shared<TCLineCollection>();
    lines->beginBatchUpdate();
    for (std::size_t i = 0; i < count; ++i)
        lines->addLine(TCLine::lineWithExpressionString(textWithNames(i, count)));
    lines->endBatchUpdate();
    return lines;
}

// The median of many edits, in microseconds.
template <typename Text>
double editTime(TCLineCollection& lines, std::size_t index, const Text& textOf) {
    std::vector<double> times;
    for (std::size_t i = 0; i < 501; ++i) {
        const auto begin = std::chrono::steady_clock::now();
        lines.lineAtIndex(index)->setExpressionString(textOf(i));
        const std::chrono::duration<double, std::micro> time = std::chrono::steady_clock::now() - begin;
        times.push_back(time.count());
    }
    std::nth_element(times.begin(), times.begin() + 250, times.end());
    return times[250];
}

} // namespace

int main() {
    start();
    const auto small = document(100), large = document(10'000);
    std::printf("%-28s%12s%12s   ratio\n", "edit of one line", "100 lines", "10,000 lines");
    const struct {
        const char* name;
        double place;
    } rows[] = {{"first line", 0}, {"middle line", 0.5}, {"last line", 1}};
    for (const auto& row : rows) {
        const auto at = [&](const TCLineCollection& lines) {
            return static_cast<std::size_t>(row.place * static_cast<double>(lines.countOfLines() - 1));
        };
        const double inSmall = editTime(*small, at(*small), text),
                     inLarge = editTime(*large, at(*large), text);
        std::printf("%-28s%9.1f us%9.1f us   %.2f\n", row.name, inSmall, inLarge, inLarge / inSmall);
    }

    const auto fewNames = documentWithNames(100), manyNames = documentWithNames(10'000);
    const auto usingText = [](std::size_t i) { return TBF::utf16("2 * name7 + " + std::to_string(i)); };
    const auto declaringText = [](std::size_t i) { return TBF::utf16("name5 = " + std::to_string(i)); };
    const auto report = [](const char* name, double inSmall, double inLarge) {
        std::printf("%-28s%9.1f us%9.1f us   %.2f\n", name, inSmall, inLarge, inLarge / inSmall);
    };
    std::printf("with 10 and 1,000 names\n");
    report("a line without names", editTime(*fewNames, 55, text), editTime(*manyNames, 5555, text));
    report("a line that uses a name", editTime(*fewNames, 55, usingText),
           editTime(*manyNames, 5555, usingText));
    report("a declaration, 17 users", editTime(*fewNames, 50, declaringText),
           editTime(*manyNames, 50, declaringText));
}
