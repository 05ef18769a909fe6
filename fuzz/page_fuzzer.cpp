// The road of several lines, from their text to the page, with all units, currencies and
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
#include <memory>
#include <string_view>

namespace {

void startOnce() {
    if (TCSettings::isSet()) return;
    TBFErrorLogSetEnabled(0);
    const auto settings = TCSettings::make();
    settings->setLineBudget(10'000'000); // a line that goes past it has gone the same road
    settings->set();
    const auto environment = TKEnvironmentBuilder().build();
    environment->setUpdatesValuesFromWeb(false);
    environment->loadFromBundleAtPath(CONTENT_BUNDLE, "en");
    environment->completeLoading();
    environment->set();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) return 0;
    startOnce();
    const uint8_t choices = data[0];
    const std::u16string text =
        TBF::utf16(std::string_view(reinterpret_cast<const char*>(data) + 1, size - 1));

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
