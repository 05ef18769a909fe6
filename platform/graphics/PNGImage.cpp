#include "graphics/PNGImage.h"

#include <csetjmp>
#include <cstdint>
#include <png.h>

namespace platform {

namespace {

// A writer of one picture. What libpng reports as an error ends `write`, and nothing is printed.
class PNGWriter {
public:
    PNGWriter()
        : png(png_create_write_struct(PNG_LIBPNG_VER_STRING, this, onError, onWarning))
        , info(png ? png_create_info_struct(png) : nullptr) {}
    ~PNGWriter() { png_destroy_write_struct(&png, &info); }
    PNGWriter(const PNGWriter&) = delete;
    PNGWriter& operator=(const PNGWriter&) = delete;

    // Nothing that needs to be destroyed may come to life in here, since an error jumps out of it.
    bool write(uint32_t width, uint32_t height, const uint8_t* pixels, png_text* texts, int textCount) {
        if (!info || setjmp(png_jmpbuf(png))) return false;
        png_set_write_fn(png, this, onBytes, nullptr);
        png_set_IHDR(png, info, width, height, 8, PNG_COLOR_TYPE_RGBA, PNG_INTERLACE_NONE,
                     PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
        if (textCount > 0) png_set_text(png, info, texts, textCount);
        png_write_info(png, info);
        for (uint32_t y = 0; y < height; ++y)
            png_write_row(png, pixels + std::size_t{4} * width * y);
        png_write_end(png, nullptr);
        return !failed;
    }

    std::string bytes;

private:
    static void onError(png_structp structure, png_const_charp) { png_longjmp(structure, 1); }
    static void onWarning(png_structp structure, png_const_charp) {
        static_cast<PNGWriter*>(png_get_error_ptr(structure))->failed = true;
    }
    static void onBytes(png_structp structure, png_bytep data, std::size_t count) {
        auto& writer = *static_cast<PNGWriter*>(png_get_io_ptr(structure));
        writer.bytes.append(reinterpret_cast<const char*>(data), count);
    }

    png_structp png;
    png_infop info;
    bool failed = false;
};

} // namespace

std::string pngImage(const BitmapContext& bitmap, const PNGTexts& texts) {
    std::vector<png_text> chunks;
    for (const auto& [keyword, text] : texts) {
        png_text chunk = {};
        chunk.compression = PNG_TEXT_COMPRESSION_NONE;
        chunk.key = const_cast<char*>(keyword.c_str());
        chunk.text = const_cast<char*>(text.c_str());
        chunk.text_length = text.size();
        chunks.push_back(chunk);
    }
    const std::vector<uint8_t> pixels = bitmap.pixels();
    PNGWriter writer;
    if (!writer.write(bitmap.pixelWidth(), bitmap.pixelHeight(), pixels.data(), chunks.data(),
                      static_cast<int>(chunks.size()))) {
        return {};
    }
    return std::move(writer.bytes);
}

} // namespace platform
