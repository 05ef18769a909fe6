#include "htmlview/HTMLView.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <functional>

#include <gtest/gtest.h>
#include <unistd.h>

namespace {

using namespace platform;
using Pixel = std::array<int, 3>;

constexpr Pixel white = {255, 255, 255};
constexpr Pixel red = {255, 0, 0};

struct Picture {
    std::vector<uint8_t> bytes;
    uint32_t width = 0;
    uint32_t height = 0;

    Pixel at(uint32_t x, uint32_t y) const {
        const std::size_t i = (std::size_t{y} * width + x) * 4;
        return {bytes[i], bytes[i + 1], bytes[i + 2]};
    }
    // Whether a part of the picture has a pixel that isn't white.
    bool hasInk(uint32_t left, uint32_t top, uint32_t right, uint32_t bottom) const {
        for (uint32_t y = top; y < bottom; ++y)
            for (uint32_t x = left; x < right; ++x)
                if (at(x, y) != white) return true;
        return false;
    }
};

Picture pictureOf(std::string_view page, double scale = 1) {
    HTMLView view({{0, 0}, {600, 800}});
    view.scaleUnitSquareToSize({scale, scale});
    EXPECT_TRUE(view.loadData(page, "text/html", "UTF-8"));
    const auto bitmap = BitmapContext::make({600 * scale, 800 * scale});
    GraphicsContext context(*bitmap, view.isFlipped());
    view.displayRect(view.bounds(), context);
    return {bitmap->pixels(), bitmap->pixelWidth(), bitmap->pixelHeight()};
}

constexpr const char* redBox = "<body style=\"margin:0\"><div style=\"background-color:red; width:300px; "
                               "height:400px\"></div>";

TEST(HTMLViewTests, AViewWithoutAPageIsWhite) {
    HTMLView view({{0, 0}, {600, 800}});
    EXPECT_FALSE(view.loadData("<p>x", "image/png", "UTF-8"));
    EXPECT_FALSE(view.loadData("<p>x", "text/html", "latin1"));
    const auto bitmap = BitmapContext::make({600, 800});
    GraphicsContext context(*bitmap, false);
    view.displayRect(view.bounds(), context);
    const auto pixels = bitmap->pixels();
    EXPECT_TRUE(std::all_of(pixels.begin(), pixels.end(), [](uint8_t part) { return part == 255; }));
}

TEST(HTMLViewTests, ThePageIsDrawnAtItsScaleFromTheUpperLeftCorner) {
    for (const double scale : {1.0, 0.16, 0.5, 1.28}) {
        const Picture picture = pictureOf(redBox, scale);
        const auto at = [scale](double length) { return static_cast<uint32_t>(length * scale); };
        EXPECT_EQ(picture.at(1, 1), red) << scale;
        EXPECT_EQ(picture.at(at(290), at(390)), red) << scale;
        EXPECT_EQ(picture.at(at(310), at(100)), white) << scale;
        EXPECT_EQ(picture.at(at(100), at(410)), white) << scale;
    }
}

TEST(HTMLViewTests, OnlyThePartAskedForIsDrawn) {
    HTMLView view({{0, 0}, {600, 800}});
    ASSERT_TRUE(view.loadData(redBox, "text/html", "UTF-8"));
    const auto bitmap = BitmapContext::make({900, 800});
    GraphicsContext context(*bitmap, false);
    view.displayRect({{0, 0}, {100, 5000}}, context);
    const Picture picture = {bitmap->pixels(), 900, 800};
    EXPECT_EQ(picture.at(50, 50), red);
    EXPECT_EQ(picture.bytes[(50 * 900 + 150) * 4 + 3], 0) << "beyond the part";
    EXPECT_EQ(picture.at(50, 700), white);
}

TEST(HTMLViewTests, NothingOutsideOfThePageIsRead) {
    const std::filesystem::path sheet =
        std::filesystem::path(testing::TempDir()) / ("view-" + std::to_string(getpid()) + ".css");
    std::ofstream(sheet) << "body { background-color: red; } p { color: red; }";
    const std::string url = "file://" + sheet.string();
    const std::string pages[] = {
        "<link rel=\"stylesheet\" href=\"" + url + "\"><p>",
        "<link rel=\"stylesheet\" type=\"text/css\" href=\"" + sheet.string() + "\"><p>",
        "<style>@import url(\"" + url + "\");</style><p>",
        "<base href=\"file:///\"><style>@import \"" + sheet.string().substr(1) + "\";</style><p>",
        "<img src=\"" + url + "\" width=\"50\" height=\"50\"><iframe src=\"" + url + "\"></iframe>",
        "<body style=\"background-image: url(" + url + ")\"><p>",
        "<script>document.body.style.background = 'red'</script><object data=\"" + url + "\"></object>",
    };
    for (const std::string& page : pages)
        EXPECT_FALSE(pictureOf(page).hasInk(0, 0, 600, 800)) << page;
    std::filesystem::remove(sheet);
}

TEST(HTMLViewTests, LongWordsAreBrokenWithinTheirColumn) {
    const std::string word(400, '8');
    const Picture picture =
        pictureOf("<body style=\"margin:0\"><table style=\"width:600px; border-collapse:collapse\"><tr><td>" +
                  word + "</td><td style=\"width:200px; background-color:red\"></td></tr></table>");
    EXPECT_TRUE(picture.hasInk(0, 40, 390, 60)) << "a second line";
    EXPECT_EQ(picture.at(405, 4), red);
    EXPECT_EQ(picture.at(598, 4), red);
}

TEST(HTMLViewTests, CellsAreAsWideAsTheirContentWithPadding) {
    const Picture picture = pictureOf(
        "<body style=\"margin:0\"><table style=\"width:600px; border-collapse:collapse\"><tr><td>x</td>"
        "<td style=\"width:100px; padding: 0px 20px; background-color:red\">y</td></tr></table>");
    EXPECT_EQ(picture.at(461, 5), red);
    EXPECT_EQ(picture.at(458, 5), white);
}

TEST(HTMLViewTests, AFullTableFillsTheViewAndIsFramed) {
    const Picture picture = pictureOf(
        "<body style=\"margin:0\"><div style=\"position:absolute; width:100%; height:100%\"><table "
        "style=\"width:100%; "
        "height:100%; border: 1px solid transparent; border-collapse:collapse\"><tr style=\"border-left: 1px "
        "solid "
        "red; border-right: 1px solid red\"><td style=\"background-color: #eef\">x</td></tr></table></div>");
    EXPECT_EQ(picture.at(0, 400), red);
    EXPECT_EQ(picture.at(599, 400), red);
    EXPECT_EQ(picture.at(1, 780), (Pixel{0xEE, 0xEE, 0xFF}));
    EXPECT_EQ(picture.at(598, 780), (Pixel{0xEE, 0xEE, 0xFF}));
}

// The first row that has ink between two columns.
uint32_t topOfInk(const Picture& picture, uint32_t left, uint32_t right) {
    uint32_t y = 0;
    while (y < picture.height && !picture.hasInk(left, y, right, y + 1))
        ++y;
    return y;
}

TEST(HTMLViewTests, ExponentsAreRaised) {
    const auto page = [](const char* align) {
        return std::string("<body style=\"margin:10px; font-size:30px\">mmmm<span style=\"font-size:65%; "
                           "vertical-align:") +
               align + "\">mmmm</span>";
    };
    const auto top = [&](const char* align) { return topOfInk(pictureOf(page(align)), 140, 200); };
    EXPECT_EQ(top("baseline"), top("super") + 30 / 3 + 1);
    EXPECT_EQ(top("sub"), top("baseline") + 30 / 5 + 1);
}

TEST(HTMLViewTests, OddPagesDoNoHarm) {
    const std::string nested = [] {
        std::string text;
        for (int i = 0; i < 200; ++i)
            text += "<div><span>";
        return text;
    }();
    const std::string pages[] = {
        "",
        std::string("<p>a\0b", 6),
        "<table><tr><td colspan=\"9\">a<table></td></tr>",
        "<div style=\"width: -5px; border: 3px solid\">\xFF\xFE \xF0\x9F\x98\x80 \xD7\xA9\xD7\x9C</div>",
        "<ul><li>a</ul><u>b</u><s>c</s><span style=\"text-transform:uppercase\">d</span>",
        nested,
    };
    for (const std::string& page : pages)
        EXPECT_EQ(pictureOf(page, 0.2).width, 120u) << page.substr(0, 40);
}

} // namespace
