#include "graphics/DrawingContext.h"

#include "graphics/Color.h"
#include "graphics/Font.h"
#include "graphics/GraphicsContext.h"
#include "graphics/LocalFonts.h"
#include "graphics/PNGImage.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace platform;
using testing::HasSubstr;
using testing::StartsWith;

struct Extent {
    uint32_t top = UINT32_MAX, bottom = 0, left = UINT32_MAX, right = 0;
    bool isEmpty() const { return top == UINT32_MAX; }
};

// Where anything was drawn.
Extent inkOf(const BitmapContext& bitmap) {
    const auto pixels = bitmap.pixels();
    Extent extent;
    for (uint32_t y = 0; y < bitmap.pixelHeight(); ++y) {
        for (uint32_t x = 0; x < bitmap.pixelWidth(); ++x) {
            if (pixels[(std::size_t{y} * bitmap.pixelWidth() + x) * 4 + 3] == 0) continue;
            extent.top = std::min(extent.top, y);
            extent.bottom = std::max(extent.bottom, y);
            extent.left = std::min(extent.left, x);
            extent.right = std::max(extent.right, x);
        }
    }
    return extent;
}

TEST(ColorTests, CSSFormCutsEachComponent) {
    const double notANumber = std::numeric_limits<double>::quiet_NaN();
    const std::pair<Color, const char*> rows[] = {
        {Color::rgb(1, 0.5, 0), "#ff7f00"},         {Color::rgb(0.999, 1.0 / 255, 0.0039), "#fe0100"},
        {Color::rgb(0, 0, 1, 0), "#0000ff"},        {Color::calibratedWhite(0.15, 0.75), "#262626"},
        {Color::rgb(7, -1, notANumber), "#ff0000"}, {Color(), "#000000"},
    };
    for (const auto& [color, text] : rows)
        EXPECT_EQ(color.cssHexString(), text);
}

TEST(BitmapContextTests, SizesAreRoundedAndBounded) {
    const auto bitmap = BitmapContext::make({0.4, 24.5});
    ASSERT_TRUE(bitmap);
    EXPECT_EQ(bitmap->pixelWidth(), 1u);
    EXPECT_EQ(bitmap->pixelHeight(), 25u);
    EXPECT_EQ(bitmap->pixels(), std::vector<uint8_t>(25 * 4, 0)) << "transparent at first";
    for (const Size size : {Size{16385, 1}, Size{1, INFINITY}, Size{-1, 5}, Size{NAN, 5}})
        EXPECT_FALSE(BitmapContext::make(size)) << size.width << " x " << size.height;
}

TEST(FontTests, TextIsMeasuredAndRememberedAlike) {
    const Font font(LocalFonts::shared(), "sans-serif", 20);
    const std::string longText(500, 'n');
    EXPECT_GT(font.sizeOfText("wide words").width, font.sizeOfText("words").width);
    EXPECT_NEAR(font.sizeOfText(longText).width, 500 * font.sizeOfText("n").width, 1);
    EXPECT_EQ(font.sizeOfText("n").width, font.sizeOfText("n").width);
    EXPECT_GT(font.ascent(), font.xHeight());
    EXPECT_GE(Font::boldSystemFontOfSize(20).sizeOfText("nnnn").width, font.sizeOfText("nnnn").width);
}

TEST(FontTests, MetricsGrowWithTheSize) {
    const Font small(LocalFonts::shared(), "sans-serif", 10);
    const Font large(LocalFonts::shared(), "sans-serif", 40);
    EXPECT_NEAR(large.ascent(), 4 * small.ascent(), 0.1);
    EXPECT_NEAR(large.sizeOfText("Tabulon").width, 4 * small.sizeOfText("Tabulon").width, 0.5);
}

TEST(FontTests, WithoutFontsWordsAreBars) {
    LocalFonts none({"/nonexistent"});
    EXPECT_TRUE(none.isEmpty());
    none.provideFor("\xE6\x97\xA5");
    const Font font(none, "Any", 20);
    EXPECT_GT(font.sizeOfText("four").width, font.sizeOfText("abc").width);
    EXPECT_EQ(font.sizeOfText("\xC3\xBC").width, font.sizeOfText("u").width);

    const auto bitmap = BitmapContext::make({100, 40});
    font.drawText(bitmap->cairo(), {10, 30}, "   ", Color());
    EXPECT_TRUE(inkOf(*bitmap).isEmpty());
    font.drawText(bitmap->cairo(), {10, 30}, "word", Color());
    const Extent ink = inkOf(*bitmap);
    EXPECT_GE(ink.left, 10u);
    EXPECT_LE(ink.right, 10 + font.sizeOfText("word").width);
    EXPECT_LE(ink.bottom, 30u);
}

TEST(GraphicsContextTests, TextStandsFromTheOriginOn) {
    const Font font = Font::boldSystemFontOfSize(20);
    for (const bool flipped : {false, true}) {
        const auto bitmap = BitmapContext::make({200, 100});
        GraphicsContext context(*bitmap, flipped);
        drawTextAtPoint("nothing", {0, 0}, font, Color());
        EXPECT_TRUE(inkOf(*bitmap).isEmpty()) << "no context is current";
        {
            const GraphicsStateScope scope(context);
            EXPECT_EQ(GraphicsContext::currentContext(), &context);
            drawTextAtPoint("TABULON", {30, 10}, font, Color::calibratedWhite(0, 0.5));
        }
        EXPECT_EQ(GraphicsContext::currentContext(), nullptr);
        const Extent ink = inkOf(*bitmap);
        EXPECT_NEAR(ink.left, 31, 2);
        // Ten units from the lower or the upper edge to the box of the letters.
        if (flipped)
            EXPECT_NEAR(ink.top, 10 + font.ascent() * 0.2, 4);
        else
            EXPECT_NEAR(ink.bottom, 90 - font.descent(), 2);
    }
    EXPECT_EQ(boundingSizeOfText("TABULON", font, {40, 10000}).width, 40);
    EXPECT_GT(boundingSizeOfText("TABULON", font, {10000, 10000}).width, 40);
}

TEST(PNGImageTests, ThePictureCarriesItsTexts) {
    const auto bitmap = BitmapContext::make({32, 32});
    const std::string image = pngImage(*bitmap, {{"Software", "a test"}, {"Thumb::Size", "17"}});
    EXPECT_THAT(image, StartsWith("\x89PNG\r\n\x1A\n"));
    EXPECT_THAT(image, HasSubstr(std::string("tEXtSoftware\0a test", 19)));
    EXPECT_THAT(image, HasSubstr(std::string("tEXtThumb::Size\0"
                                             "17",
                                             18)));
    EXPECT_EQ(image,
              pngImage(*BitmapContext::make({32, 32}), {{"Software", "a test"}, {"Thumb::Size", "17"}}));
    EXPECT_EQ(pngImage(*bitmap, {{"", "x"}}), "") << "no keyword";
}

} // namespace
