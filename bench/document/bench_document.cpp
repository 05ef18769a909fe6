// What an edit of one line costs in documents of two sizes, at the front, in the middle and at the end: the
// time must not grow with the document. The larger document's row is given as a ratio to the smaller one's.

#include "environment/TCBuiltins.h"
#include "environment/TCEnvironment.h"
#include "environment/TCEvaluator.h"
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
    const auto environment = TCEnvironment::make();
    environment->setFunctions(TCBuiltins::functions());
    environment->setVariables(TCBuiltins::variables());
    environment->setWordOperators(TCBuiltins::wordOperators());
    environment->setSharedEvaluator(
        std::make_shared<TCEvaluator>(nullptr, environment->variables(), environment->wordOperators()));
    environment->set();
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

// The median of many edits, in microseconds.
double editTime(TCLineCollection& lines, std::size_t index) {
    std::vector<double> times;
    for (std::size_t i = 0; i < 501; ++i) {
        const auto begin = std::chrono::steady_clock::now();
        lines.lineAtIndex(index)->setExpressionString(text(i));
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
        const double inSmall = editTime(*small, at(*small)), inLarge = editTime(*large, at(*large));
        std::printf("%-28s%9.1f us%9.1f us   %.2f\n", row.name, inSmall, inLarge, inLarge / inSmall);
    }
}
