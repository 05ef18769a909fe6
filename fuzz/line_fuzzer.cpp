// A line's road, from its text to its formatted answer and its row of a page, with all units, currencies and
// phrases of the content: the input is a document of UTF-8 lines, the first byte of which chooses locale,
// angle mode and display format.

#include "environment/TCSettings.h"
#include "environment/TKEnvironment.h"
#include "environment/TKEnvironmentBuilder.h"
#include "export/TKLineCollectionExporter.h"
#include "lines/TCLine.h"
#include "lines/TCLineCollection.h"
#include "results/TCResultFormattingOptions.h"
#include "runtime/TBFLog.h"
#include "runtime/Unicode.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace {

void startOnce() {
    if (TCSettings::isSet()) return;
    TBFErrorLogSetEnabled(0);
    TCSettings::make()->set();
    const auto environment = TKEnvironmentBuilder().build();
    environment->setUpdatesValuesFromWeb(false);
    environment->loadFromBundleAtPath(CONTENT_BUNDLE, "en");
    environment->completeLoading();
    environment->set();
}

// Factorials of large numbers are allowed to take seconds, which would be all that the fuzzer does.
bool holdsLargeFactorial(std::u16string_view text) {
    std::size_t digits = 0;
    for (const char16_t unit : text) {
        if (unit == u'!' && digits > 4) return true;
        if (unit >= u'0' && unit <= u'9')
            ++digits;
        else if (unit != u' ' && unit != u',')
            digits = 0;
    }
    return false;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) return 0;
    startOnce();
    const uint8_t choices = data[0];
    const std::u16string text =
        TBF::utf16(std::string_view(reinterpret_cast<const char*>(data) + 1, size - 1));

    if (holdsLargeFactorial(text)) return 0;

    const auto lines = std::make_shared<TCLineCollection>();
    const auto options = std::make_shared<TCResultFormattingOptions>();
    options->setDisplayFormat((choices >> 2) & 7);
    options->setFallbackToDefaultDisplayFormat(choices & 0x20);
    if (choices & 0x40) options->setDisplayBase(16);
    lines->setDefaultResultFormattingOptions(options);
    if (choices & 1) lines->setTrigonometryMode(2);
    if (choices & 2) lines->setLocaleWithDecimalPoint(u',', u'.');

    lines->beginBatchUpdate();
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t end = std::min(text.find(u'\n', start), text.size());
        lines->addLine(TCLine::lineWithExpressionString(text.substr(start, end - start)));
        start = end + 1;
    }
    lines->endBatchUpdate();
    TKLineCollectionExporter exporter(lines);
    exporter.HTMLSource();

    // An edit of the first line goes the same road again, through the dependents.
    lines->lineAtIndex(0)->setExpressionString(text.substr(0, text.size() / 2));
    return 0;
}
