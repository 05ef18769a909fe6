#include "GeneratePreviewForURL.h"

#include "TBColorController.h"
#include "export/TKLineCollectionExporter.h"
#include "files/FileURL.h"
#include "lines/TCFile.h"

namespace {

constexpr int32_t totalStatistic = 1;

// The page of the file at `path`. Sets `isDocument` to false for a file that is something else.
std::optional<std::string> pageOfFile(const std::string& path, bool& isDocument) {
    TCFile file(path);
    isDocument = file.fileFormat() != TCFileFormatOther;
    return isDocument ? htmlStringForLineCollection(file.lineCollection()) : std::nullopt;
}

} // namespace

std::optional<std::string> htmlStringForLineCollection(const std::shared_ptr<TCLineCollection>& collection) {
    TKLineCollectionExporter exporter(collection);
    exporter.setDocumentStatistic(totalStatistic);
    // The page fills the host's window, and what the window's frame tells is left out of it.
    TKLineCollectionExporterHTMLStyle style = TBColorController::htmlStyle();
    style.setShowsDocumentTitle(false);
    style.setShowsDocumentDate(false);
    style.setShowsDocumentStatistic(false);
    style.setSideInset(0);
    style.setTopInset(0);
    style.setBottomInset(0);
    style.setEnableVerticalAutoresizing(true);
    return exporter.HTMLSourceWithStyle(style);
}

int32_t GeneratePreviewForURL(void*, QLPreviewRequest* request, const char* url, const char*,
                              const QLProperties*) {
    // A URL that is no file's leads to a file that doesn't exist.
    const std::string path = platform::pathOfFileURL(url ? url : "").value_or("");
    bool isDocument = true;
    const std::optional<std::string> page = pageOfFile(path, isDocument);
    if (!isDocument) return 0;
    const QLProperties properties = {
        {std::string(kQLPreviewPropertyTextEncodingNameKey), "UTF-8"},
        {std::string(kQLPreviewPropertyMIMETypeKey), "text/html"},
    };
    QLPreviewRequestSetDataRepresentation(request, page, kUTTypeHTML, properties);
    return 0;
}

void CancelPreviewGeneration(void*, QLPreviewRequest*) {}
