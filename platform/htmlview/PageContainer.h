#pragma once

// What the page layout asks of its surroundings: fonts, and drawing of texts, boxes and borders. Used by the
// HTML view alone.

#include "graphics/Font.h"
#include "graphics/Geometry.h"

#include <cstdint>
#include <litehtml/litehtml.h>
#include <map>
#include <memory>

namespace platform {

class LocalFonts;

class PageContainer final : public litehtml::document_container {
public:
    PageContainer(LocalFonts& localFonts, Size view)
        : fonts(localFonts)
        , viewSize(view) {}

    // Where the page is being drawn; null at other times.
    void setDrawing(_cairo* cairo) { drawing = cairo; }

    litehtml::uint_ptr create_font(const char* faceName, int size, int weight, litehtml::font_style italic,
                                   unsigned decoration, litehtml::font_metrics* metrics) override;
    void delete_font(litehtml::uint_ptr font) override;
    int text_width(const char* text, litehtml::uint_ptr font) override;
    void draw_text(litehtml::uint_ptr cairo, const char* text, litehtml::uint_ptr font,
                   litehtml::web_color color, const litehtml::position& place) override;
    void split_text(const char* text, const std::function<void(const char*)>& onWord,
                    const std::function<void(const char*)>& onSpace) override;
    void transform_text(std::string& text, litehtml::text_transform transform) override;

    int pt_to_px(int points) const override;
    int get_default_font_size() const override;
    const char* get_default_font_name() const override;
    void get_client_rect(litehtml::position& client) const override;
    void get_media_features(litehtml::media_features& media) const override;
    void get_language(std::string& language, std::string& culture) const override;

    void draw_background(litehtml::uint_ptr cairo, const litehtml::background_paint& background) override;
    void draw_borders(litehtml::uint_ptr cairo, const litehtml::borders& borders,
                      const litehtml::position& place, bool isRoot) override;
    void draw_list_marker(litehtml::uint_ptr cairo, const litehtml::list_marker& marker) override;
    void set_clip(const litehtml::position& place, const litehtml::border_radiuses& radius, bool limitsX,
                  bool limitsY) override;
    void del_clip() override;

    // Null for elements that are of the layout's own kinds.
    std::shared_ptr<litehtml::element>
    create_element(const char* tagName, const litehtml::string_map& attributes,
                   const std::shared_ptr<litehtml::document>& document) override;

    // A page stands alone: pictures have no size, sheets no rules, and links lead nowhere.
    void load_image(const char*, const char*, bool) override {}
    void get_image_size(const char*, const char*, litehtml::size& size) override { size = {}; }
    void import_css(std::string& text, const std::string&, std::string&) override { text.clear(); }
    void set_base_url(const char*) override {}
    void set_caption(const char*) override {}
    void link(const std::shared_ptr<litehtml::document>&, const litehtml::element::ptr&) override {}
    void on_anchor_click(const char*, const litehtml::element::ptr&) override {}
    void set_cursor(const char*) override {}

private:
    struct PageFont {
        Font font;
        unsigned decoration;
    };

    LocalFonts& fonts;
    Size viewSize;
    std::map<litehtml::uint_ptr, PageFont> pageFonts;
    litehtml::uint_ptr lastFont = 0;
    _cairo* drawing = nullptr;
};

} // namespace platform
