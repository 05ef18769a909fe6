#pragma once

// Elements of pages, where the layout's own differ from what browsers do. Used by the HTML view alone.

#include <litehtml/litehtml.h>
// Behind the one that they need:
#include <litehtml/el_div.h>
#include <litehtml/el_td.h>
#include <litehtml/el_tr.h>
#include <memory>

namespace platform {

// The height of an absolute box in per cent is that of the view.
class BoxElement final : public litehtml::el_div {
public:
    using el_div::el_div;

    bool get_predefined_height(int& height) const override;
};

// Text within a line is raised or lowered where its style says so; the layout leaves it on the baseline.
class InlineElement final : public litehtml::html_tag {
public:
    using html_tag::html_tag;

    void draw_children(litehtml::uint_ptr cairo, int x, int y, const litehtml::position* clip,
                       litehtml::draw_flag flag, int zIndex) override;

private:
    int shift() const; // downwards, from where the layout puts the text
};

// The width that a style sheet gives a cell is that of its content, without its padding and borders.
class TableCellElement final : public litehtml::el_td {
public:
    using el_td::el_td;

    litehtml::css_length get_css_width() const override;
};

// The borders at the sides of a row stand outside of its cells, where they share the place of the table's
// own borders, and no cell's background covers them.
class TableRowElement final : public litehtml::el_tr {
public:
    using el_tr::el_tr;

    void parse_styles(bool isRepeated) override;
    void draw_background(litehtml::uint_ptr cairo, int x, int y, const litehtml::position* clip) override;

private:
    litehtml::css_border left;
    litehtml::css_border right;
};

} // namespace platform
