#include "htmlview/PageContainer.h"

#include "graphics/LocalFonts.h"
#include "htmlview/BoxDrawing.h"
#include "htmlview/PageElements.h"

#include <algorithm>
#include <cairo.h>
#include <cctype>
#include <cmath>
#include <string>

namespace platform {

namespace {

constexpr double pixelsPerInch = 96;
constexpr double pointsPerInch = 72;

// A word of more characters may be broken between any two parts of this length, in place of running out of
// its column.
constexpr std::size_t maxWordLength = 24;
constexpr std::size_t wordPartLength = 4;

cairo_t* cairoOf(litehtml::uint_ptr context) {
    return reinterpret_cast<cairo_t*>(context);
}

Color colorOf(const litehtml::web_color& color) {
    return Color::rgb(color.red / 255.0, color.green / 255.0, color.blue / 255.0, color.alpha / 255.0);
}

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

std::size_t characterCount(const std::string& text) {
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char byte) { return !isContinuation(byte); }));
}

// The end of the part that begins at `start`.
std::size_t endOfPart(const std::string& word, std::size_t start) {
    std::size_t end = start;
    for (std::size_t count = 0; count < wordPartLength && end < word.size(); ++count) {
        ++end;
        while (end < word.size() && isContinuation(word[end]))
            ++end;
    }
    return end;
}

} // namespace

litehtml::uint_ptr PageContainer::create_font(const char* faceName, int size, int weight,
                                              litehtml::font_style italic, unsigned decoration,
                                              litehtml::font_metrics* metrics) {
    const Font font(fonts, faceName ? faceName : "", size, weight, italic == litehtml::fontStyleItalic);
    if (metrics) {
        // Each side of the baseline is rounded by itself, as browsers do.
        metrics->ascent = static_cast<int>(std::lround(font.ascent()));
        metrics->descent = static_cast<int>(std::lround(font.descent()));
        metrics->height = metrics->ascent + metrics->descent;
        metrics->x_height = static_cast<int>(std::lround(font.xHeight()));
        metrics->draw_spaces = decoration != litehtml::font_decoration_none;
    }
    pageFonts.emplace(++lastFont, PageFont{font, decoration});
    return lastFont;
}

void PageContainer::delete_font(litehtml::uint_ptr font) {
    pageFonts.erase(font);
}

int PageContainer::text_width(const char* text, litehtml::uint_ptr font) {
    const auto found = pageFonts.find(font);
    if (found == pageFonts.end()) return 0;
    return static_cast<int>(std::lround(found->second.font.sizeOfText(text).width));
}

void PageContainer::draw_text(litehtml::uint_ptr context, const char* text, litehtml::uint_ptr font,
                              litehtml::web_color color, const litehtml::position& place) {
    const auto found = pageFonts.find(font);
    if (found == pageFonts.end()) return;
    const auto& [letters, decoration] = found->second;
    const double baseline = place.bottom() - std::lround(letters.descent());
    cairo_t* const cairo = cairoOf(context);
    letters.drawText(cairo, {static_cast<double>(place.x), baseline}, text, colorOf(color));

    const double thickness = std::max(1.0, letters.size() / 16);
    const auto line = [&](double y) {
        cairo_rectangle(cairo, place.x, y, place.width, thickness);
        cairo_fill(cairo);
    };
    if (decoration & litehtml::font_decoration_underline) line(baseline + thickness);
    if (decoration & litehtml::font_decoration_linethrough) line(baseline - letters.xHeight() / 2);
    if (decoration & litehtml::font_decoration_overline) line(baseline - letters.ascent());
}

void PageContainer::split_text(const char* text, const std::function<void(const char*)>& onWord,
                               const std::function<void(const char*)>& onSpace) {
    const auto onWholeWord = [&](const char* characters) {
        const std::string word = characters;
        if (word.size() <= maxWordLength || characterCount(word) <= maxWordLength) return onWord(characters);
        for (std::size_t start = 0; start < word.size();) {
            const std::size_t end = endOfPart(word, start);
            onWord(word.substr(start, end - start).c_str());
            start = end;
        }
    };
    document_container::split_text(text, onWholeWord, onSpace);
}

void PageContainer::transform_text(std::string& text, litehtml::text_transform transform) {
    const auto change = [&](int (*function)(int)) {
        for (char& c : text)
            if (static_cast<unsigned char>(c) < 0x80) c = static_cast<char>(function(c));
    };
    if (transform == litehtml::text_transform_uppercase) change(std::toupper);
    if (transform == litehtml::text_transform_lowercase) change(std::tolower);
    if (transform == litehtml::text_transform_capitalize && !text.empty() && text[0] >= 'a' && text[0] <= 'z')
        text[0] = static_cast<char>(text[0] - 'a' + 'A');
}

int PageContainer::pt_to_px(int points) const {
    return static_cast<int>(std::lround(points * pixelsPerInch / pointsPerInch));
}

int PageContainer::get_default_font_size() const {
    return 16;
}

const char* PageContainer::get_default_font_name() const {
    return "sans-serif";
}

void PageContainer::get_client_rect(litehtml::position& client) const {
    client = {0, 0, static_cast<int>(viewSize.width), static_cast<int>(viewSize.height)};
}

void PageContainer::get_media_features(litehtml::media_features& media) const {
    media.type = litehtml::media_type_screen;
    media.width = media.device_width = static_cast<int>(viewSize.width);
    media.height = media.device_height = static_cast<int>(viewSize.height);
    media.color = 8;
    media.resolution = static_cast<int>(pixelsPerInch);
}

void PageContainer::get_language(std::string& language, std::string& culture) const {
    language = "en";
    culture.clear();
}

void PageContainer::draw_background(litehtml::uint_ptr cairo, const litehtml::background_paint& background) {
    fillBox(cairoOf(cairo), background.clip_box, background.border_radius, colorOf(background.color));
}

void PageContainer::draw_borders(litehtml::uint_ptr cairo, const litehtml::borders& borders,
                                 const litehtml::position& place, bool) {
    drawBorders(cairoOf(cairo), borders, place);
}

void PageContainer::draw_list_marker(litehtml::uint_ptr cairo, const litehtml::list_marker& marker) {
    if (marker.marker_type == litehtml::list_style_type_none) return;
    litehtml::border_radiuses radius;
    if (marker.marker_type != litehtml::list_style_type_square) {
        radius.top_left_x = radius.top_right_x = radius.bottom_left_x = radius.bottom_right_x =
            marker.pos.width / 2;
        radius.top_left_y = radius.top_right_y = radius.bottom_left_y = radius.bottom_right_y =
            marker.pos.height / 2;
    }
    fillBox(cairoOf(cairo), marker.pos, radius, colorOf(marker.color));
}

void PageContainer::set_clip(const litehtml::position& place, const litehtml::border_radiuses&, bool limitsX,
                             bool limitsY) {
    if (!drawing) return;
    cairo_save(drawing);
    cairo_rectangle(drawing, limitsX ? place.x : 0, limitsY ? place.y : 0,
                    limitsX ? place.width : viewSize.width, limitsY ? place.height : viewSize.height);
    cairo_clip(drawing);
}

void PageContainer::del_clip() {
    if (drawing) cairo_restore(drawing);
}

std::shared_ptr<litehtml::element>
PageContainer::create_element(const char* tagName, const litehtml::string_map&,
                              const std::shared_ptr<litehtml::document>& document) {
    const std::string_view tag = tagName;
    if (tag == "div") return std::make_shared<BoxElement>(document);
    if (tag == "span" || tag == "sup" || tag == "sub") return std::make_shared<InlineElement>(document);
    if (tag == "td" || tag == "th") return std::make_shared<TableCellElement>(document);
    if (tag == "tr") return std::make_shared<TableRowElement>(document);
    return nullptr;
}

} // namespace platform
