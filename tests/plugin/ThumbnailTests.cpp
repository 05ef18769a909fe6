#include "QuickLookGeneratorPlugin.h"

#include "files/FileURL.h"
#include "graphics/Font.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <limits>

#include <gtest/gtest.h>
#include <unistd.h>

namespace {

using platform::Size;

// A host's request that remembers how it was answered.
struct RecordedThumbnail final : QLThumbnailRequest {
    bool refusesContext = false;
    int contexts = 0;
    int flushes = 0;
    Size asked;
    bool askedForBitmap = true;
    const QLProperties* askedProperties = nullptr;
    std::shared_ptr<platform::BitmapContext> context;

    std::shared_ptr<platform::DrawingContext> createContext(Size size, bool isBitmap,
                                                            const QLProperties* properties) override {
        ++contexts;
        asked = size;
        askedForBitmap = isBitmap;
        askedProperties = properties;
        if (!refusesContext) context = platform::BitmapContext::make(size);
        return context;
    }
    void flushContext(platform::DrawingContext& flushed) override {
        EXPECT_EQ(&flushed, context.get());
        ++flushes;
    }

    int level(uint32_t x, uint32_t y) const { return context->pixels()[(y * context->pixelWidth() + x) * 4]; }

    // Where the word is that is laid over the page: the darkest there is.
    struct Extent {
        uint32_t left = UINT32_MAX, right = 0, top = UINT32_MAX, bottom = 0;
    };
    Extent overlay() const {
        const auto pixels = context->pixels();
        Extent extent;
        for (uint32_t y = 0; y < context->pixelHeight(); ++y) {
            for (uint32_t x = 0; x < context->pixelWidth(); ++x) {
                const std::size_t i = (std::size_t{y} * context->pixelWidth() + x) * 4;
                if (pixels[i] > 110 || pixels[i + 3] < 150) continue;
                extent.left = std::min(extent.left, x);
                extent.right = std::max(extent.right, x);
                extent.top = std::min(extent.top, y);
                extent.bottom = std::max(extent.bottom, y);
            }
        }
        return extent;
    }
};

class ThumbnailTests : public testing::Test {
protected:
    void SetUp() override {
        std::filesystem::create_directories(folder);
        plugin =
            static_cast<QLGeneratorInstance>(QuickLookGeneratorPluginFactory(nullptr, &kQLGeneratorTypeID));
        EXPECT_EQ((*plugin)->GenerateThumbnailForURL, nullptr);
        EXPECT_EQ((*plugin)->CancelThumbnailGeneration, nullptr);
        void* granted = nullptr;
        ASSERT_EQ((*plugin)->QueryInterface(plugin, kQLGeneratorCallbacksInterfaceID, &granted), kQLResultOK);
        (*plugin)->Release(plugin);
    }
    void TearDown() override {
        (*plugin)->Release(plugin);
        std::filesystem::remove_all(folder);
    }

    std::string write(const char* name, const std::string& content) const {
        std::ofstream(folder / name, std::ios::binary) << content;
        return (folder / name).string();
    }
    std::string document(const std::string& lines) const {
        return write("a.tabulon", "<?xml version=\"1.0\"?><data><info><version>0.6</version></info><lines>" +
                                      lines + "</lines></data>");
    }
    void draw(RecordedThumbnail& request, const std::string& path, double width, double height) const {
        EXPECT_EQ((*plugin)->GenerateThumbnailForURL(plugin, &request, platform::fileURLOfPath(path).c_str(),
                                                     nullptr, nullptr, width, height),
                  0);
    }

    const std::filesystem::path folder = testing::TempDir() + "thumbnail-tests-" + std::to_string(getpid());
    QLGeneratorInstance plugin = nullptr;
};

std::string line(const std::string& text) {
    return "<line><expression>" + text + "</expression></line>";
}

TEST_F(ThumbnailTests, ThePageFillsThreeQuartersOfTheWidth) {
    RecordedThumbnail request;
    draw(request, document(line("1 + 2")), 800, 800);
    EXPECT_EQ(request.contexts, 1);
    EXPECT_EQ(request.flushes, 1);
    EXPECT_EQ(request.asked.width, 600);
    EXPECT_EQ(request.asked.height, 800);
    EXPECT_FALSE(request.askedForBitmap);
    EXPECT_EQ(request.askedProperties, nullptr);
    EXPECT_EQ(request.level(300, 400), 255) << "the text's column";
    EXPECT_EQ(request.level(500, 400), 0xEE) << "the answers' column";
    bool hasAnswer = false;
    for (uint32_t x = 395; x < 420 && !hasAnswer; ++x)
        hasAnswer = request.level(x, 15) < 128;
    EXPECT_TRUE(hasAnswer);
    (*plugin)->CancelThumbnailGeneration(plugin, &request);
}

TEST_F(ThumbnailTests, NothingIsDrawnBelowTheSmallestSize) {
    const std::string path = document(line("1 + 2"));
    const double notANumber = std::numeric_limits<double>::quiet_NaN();
    const struct {
        double width, height;
        int contexts;
    } rows[] = {{31.9, 500, 0}, {500, 31.9, 0}, {notANumber, 500, 0}, {-64, -64, 0}, {32, 32, 1}};
    for (const auto& row : rows) {
        RecordedThumbnail request;
        draw(request, path, row.width, row.height);
        EXPECT_EQ(request.contexts, row.contexts) << row.width << " x " << row.height;
        EXPECT_EQ(request.flushes, row.contexts);
    }
}

TEST_F(ThumbnailTests, TheWordStandsInTheMiddleOfTheContextNearItsLowerEdge) {
    RecordedThumbnail request;
    draw(request, document(""), 1200, 400.5);
    const auto overlay = request.overlay();
    const auto font = platform::Font::boldSystemFontOfSize(60); // the height is cut before it is multiplied
    const Size text = font.sizeOfText("TABULON");
    EXPECT_NEAR(overlay.right - overlay.left, text.width, 12); // what is empty beside the letters
    EXPECT_NEAR((overlay.left + overlay.right) / 2.0, 450, 4) << "half of 1200 x 0.75";
    const double baseline = 400.5 - text.height * 0.15 - font.descent();
    EXPECT_NEAR(overlay.bottom, baseline, 3);
    // The page is 300 wide, and what lies beside it is left alone.
    EXPECT_EQ(request.context->pixels()[(50 * 900 + 310) * 4 + 3], 0);
}

TEST_F(ThumbnailTests, WithoutAContextNothingIsFlushed) {
    RecordedThumbnail request;
    request.refusesContext = true;
    draw(request, document(line("1 + 2")), 256, 256);
    EXPECT_EQ(request.contexts, 1);
    EXPECT_EQ(request.flushes, 0);
    EXPECT_EQ((*plugin)->GenerateThumbnailForURL(plugin, nullptr, nullptr, nullptr, nullptr, 256, 256), 0);
}

TEST_F(ThumbnailTests, AFileThatIsNoXMLIsNotDrawn) {
    RecordedThumbnail request;
    draw(request, write("notes.txt", "1 + 2\n"), 256, 256);
    EXPECT_EQ(request.contexts, 0);
}

TEST_F(ThumbnailTests, ADocumentThatCannotBeReadIsAnEmptyPageWithTheWord) {
    for (const std::string& path :
         {(folder / "missing").string(), write("cut.tabulon", "<?xml version=\"1.0\"?><da")}) {
        RecordedThumbnail request;
        draw(request, path, 800, 800);
        EXPECT_EQ(request.flushes, 1);
        EXPECT_EQ(request.level(500, 10), 255);
        EXPECT_LT(request.overlay().left, 200u);
    }
}

TEST_F(ThumbnailTests, LinesBelowTheFirstScreenDoNotCount) {
    std::string lines;
    for (int i = 0; i < 29; ++i)
        lines += line("1 + " + std::to_string(i));
    RecordedThumbnail screen;
    draw(screen, document(lines), 200, 200);
    for (int i = 0; i < 3000; ++i)
        lines += line("2 + " + std::string(20, '9'));
    RecordedThumbnail whole;
    draw(whole, document(lines), 200, 200);
    EXPECT_EQ(screen.context->pixels(), whole.context->pixels());
}

TEST_F(ThumbnailTests, LongLinesAreCutBehindWhatShows) {
    std::string sum = "1";
    for (int i = 0; i < 40000; ++i)
        sum += " + 1";
    const std::string texts[] = {sum, std::string(300000, 'x'), std::string(300000, ' ') + "1",
                                 "1 // " + std::string(300000, '7'), "12^250000 + 0.1"};
    for (const std::string& text : texts) {
        RecordedThumbnail request;
        draw(request, document(line(text) + line("2 + 2")), 256, 256);
        EXPECT_EQ(request.flushes, 1) << text.substr(0, 20);
    }
}

} // namespace
