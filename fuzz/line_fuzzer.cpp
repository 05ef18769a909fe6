// A line's road, from its text to its formatted answer, with all units, currencies and phrases of the
// content: the first byte chooses locale, angle mode and display format, the rest is the text. Lines are
// short and may take little work, so that thousands are read in a second; documents and pages have a target
// of their own.

#include "environment/TCSettings.h"
#include "environment/TKEnvironment.h"
#include "environment/TKEnvironmentBuilder.h"
#include "lines/TCLine.h"
#include "lines/TCLineCollection.h"
#include "lines/TCLineRecalculation.h"
#include "results/TCResult.h"
#include "results/TCResultFormattingOptions.h"
#include "runtime/TBFLog.h"
#include "runtime/Unicode.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>

namespace {

constexpr std::size_t longestLine = 256;
constexpr int64_t lineBudget = 300'000; // steps, below a millisecond

void startOnce() {
    if (TCSettings::isSet()) return;
    TBFErrorLogSetEnabled(0);
    const auto settings = TCSettings::make();
    settings->setLineBudget(lineBudget);
    settings->set();
    const auto environment = TKEnvironmentBuilder().build();
    environment->setUpdatesValuesFromWeb(false);
    environment->loadFromBundleAtPath(CONTENT_BUNDLE, "en");
    environment->completeLoading();
    environment->set();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0 || size > longestLine) return 0;
    startOnce();
    const uint8_t choices = data[0];
    const auto options = std::make_shared<TCResultFormattingOptions>();
    options->setDisplayFormat((choices >> 2) & 7);
    options->setFallbackToDefaultDisplayFormat(choices & 0x20);
    if (choices & 0x40) options->setDisplayBase(16);

    TCLineCollection lines;
    lines.setDefaultResultFormattingOptions(options);
    if (choices & 1) lines.setTrigonometryMode(2);
    if (choices & 2) lines.setLocaleWithDecimalPoint(u',', u'.');
    const auto line = TCLine::lineWithExpressionString(
        TBF::utf16(std::string_view(reinterpret_cast<const char*>(data) + 1, size - 1)));
    lines.addLine(line);
    line->formattedResult();

    // What a small budget has no answer for is answered, or refused, by a larger one.
    lines.recalculation().finishLines(2 * lineBudget);
    const auto answer = line->result();
    if (answer && answer->resultType() == TCResultTypeError && answer->errorType() == TCErrorTypeNone)
        abort();
    return 0;
}
