#include "GenerateThumbnailForURL.h"

#include "DocumentPage.h"
#include "graphics/Color.h"
#include "graphics/Font.h"
#include "graphics/GraphicsContext.h"
#include "htmlview/HTMLView.h"

#include <cmath>

namespace {

using platform::Size;

constexpr Size pageSize = {600.0, 800.0};
constexpr double smallestSide = 32.0;
constexpr double contextWidthPart = 0.75;

constexpr std::string_view overlayText = "TABULON"; // the product's name in upper case
constexpr double overlaySizePart = 0.15;            // of the height, in whole points
constexpr double overlayBottomPart = 0.15;          // of the text's own height
constexpr Size unbounded = {10000.0, 10000.0};

void drawOverlay(platform::GraphicsContext& context, Size size) {
    const platform::GraphicsStateScope scope(context);
    const auto font = platform::Font::boldSystemFontOfSize(std::floor(size.height) * overlaySizePart);
    const Size text = platform::boundingSizeOfText(overlayText, font, unbounded);
    platform::drawTextAtPoint(overlayText, {(size.width - text.width) * 0.5, text.height * overlayBottomPart},
                              font, platform::Color::calibratedWhite(0.15, 0.75));
}

bool isLargeEnough(double maxWidth, double maxHeight) {
    return maxWidth >= smallestSide && maxHeight >= smallestSide;
}

void drawPage(QLThumbnailRequest* request, const std::optional<std::string>& page, double maxWidth,
              double maxHeight) {
    const double scale = static_cast<float>(maxHeight / pageSize.height);
    platform::HTMLView view({{0, 0}, pageSize});
    view.scaleUnitSquareToSize({scale, scale});
    if (page) view.loadData(*page, "text/html", "UTF-8");

    const Size size = {maxWidth * contextWidthPart, maxHeight};
    const auto context = QLThumbnailRequestCreateContext(request, size, false, nullptr);
    if (!context) return;
    platform::GraphicsContext graphics(*context, view.isFlipped());
    view.displayRect(view.bounds(), graphics);
    drawOverlay(graphics, size);
    QLThumbnailRequestFlushContext(request, *context);
}

} // namespace

int32_t GenerateThumbnailForURL(void*, QLThumbnailRequest* request, const char* url, const char*,
                                const QLProperties*, double maxWidth, double maxHeight) {
    const DocumentPage page = firstScreenOfDocumentAtURL(url, pageSize.height);
    if (page.isDocument && isLargeEnough(maxWidth, maxHeight))
        drawPage(request, page.html, maxWidth, maxHeight);
    return 0;
}

void drawThumbnailOfLines(QLThumbnailRequest* request, const std::shared_ptr<TCLineCollection>& collection,
                          double maxWidth, double maxHeight) {
    if (isLargeEnough(maxWidth, maxHeight))
        drawPage(request, firstScreenOfLines(collection, pageSize.height), maxWidth, maxHeight);
}

void CancelThumbnailGeneration(void*, QLThumbnailRequest*) {}
