#include "DocumentPage.h"

#include "GeneratePreviewForURL.h"
#include "TBColorController.h"
#include "export/TKLineCollectionExporter.h"
#include "files/FileURL.h"
#include "lines/TCFile.h"

#include <cmath>

namespace {

constexpr int32_t totalStatistic = 1;

// More text than fits on a screen in one line's cells, in UTF-16 units.
constexpr std::size_t maxLineLength = 10000;

// The application's look of pages. The page fills the host's window, and what the window's frame tells is
// left out of it.
TKLineCollectionExporterHTMLStyle pageStyle() {
    TKLineCollectionExporterHTMLStyle style = TBColorController::htmlStyle();
    style.setShowsDocumentTitle(false);
    style.setShowsDocumentDate(false);
    style.setShowsDocumentStatistic(false);
    style.setSideInset(0);
    style.setTopInset(0);
    style.setBottomInset(0);
    style.setEnableVerticalAutoresizing(true);
    style.setEnableAdaptiveRules(true);
    return style;
}

template <typename MakePage>
DocumentPage pageOfURL(const char* url, MakePage makePage) {
    // A URL that is no file's leads to a file that doesn't exist.
    TCFile file(platform::pathOfFileURL(url ? url : "").value_or(""));
    if (file.fileFormat() == TCFileFormatOther) return {false, std::nullopt};
    return {true, makePage(file.lineCollection())};
}

} // namespace

std::optional<std::string> htmlStringForLineCollection(const std::shared_ptr<TCLineCollection>& collection) {
    TKLineCollectionExporter exporter(collection);
    exporter.setDocumentStatistic(totalStatistic);
    return exporter.HTMLSourceWithStyle(pageStyle());
}

DocumentPage pageOfDocumentAtURL(const char* url) {
    return pageOfURL(url, htmlStringForLineCollection);
}

DocumentPage firstScreenOfDocumentAtURL(const char* url, double height) {
    return pageOfURL(url,
                     [height](const auto& collection) { return firstScreenOfLines(collection, height); });
}

std::optional<std::string> firstScreenOfLines(const std::shared_ptr<TCLineCollection>& collection,
                                              double height) {
    const TKLineCollectionExporterHTMLStyle style = pageStyle();
    const auto rowHeight = static_cast<double>(style.fontSize() * 2);
    TKLineCollectionExporter exporter(collection);
    exporter.setDocumentStatistic(totalStatistic);
    exporter.setCountOfLinesLimit(static_cast<std::size_t>(std::ceil(height / rowHeight)));
    exporter.setLineLengthLimit(maxLineLength);
    return exporter.HTMLSourceWithStyle(style);
}
