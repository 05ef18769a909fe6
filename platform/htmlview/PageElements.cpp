#include "htmlview/PageElements.h"

#include "htmlview/BoxDrawing.h"

#include <utility>

namespace platform {

bool BoxElement::get_predefined_height(int& height) const {
    const litehtml::css_length own = get_css_height();
    const bool isOfTheView = m_el_position == litehtml::element_position_absolute && !own.is_predefined() &&
                             own.units() == litehtml::css_units_percentage;
    if (!isOfTheView) return el_div::get_predefined_height(height);
    litehtml::position view;
    get_document()->container()->get_client_rect(view);
    height = own.calc_percent(view.height);
    return true;
}

void InlineElement::draw_children(litehtml::uint_ptr cairo, int x, int y, const litehtml::position* clip,
                                  litehtml::draw_flag flag, int zIndex) {
    html_tag::draw_children(cairo, x, y + shift(), clip, flag, zIndex);
}

int InlineElement::shift() const {
    const litehtml::element::ptr outer = parent();
    if (m_display != litehtml::display_inline || !outer) return 0;
    if (m_vertical_align == litehtml::va_super) return -(outer->get_font_size() / 3 + 1);
    if (m_vertical_align == litehtml::va_sub) return outer->get_font_size() / 5 + 1;
    return 0;
}

litehtml::css_length TableCellElement::get_css_width() const {
    litehtml::css_length width = el_td::get_css_width();
    if (width.is_predefined() || width.units() == litehtml::css_units_percentage ||
        m_box_sizing == litehtml::box_sizing_border_box) {
        return width;
    }
    const float sides = m_css_padding.left.val() + m_css_padding.right.val() +
                        m_css_borders.left.width.val() + m_css_borders.right.width.val();
    width.set_value(width.val() + sides, width.units());
    return width;
}

void TableRowElement::parse_styles(bool isRepeated) {
    el_tr::parse_styles(isRepeated);
    left = std::exchange(m_css_borders.left, {});
    right = std::exchange(m_css_borders.right, {});
}

void TableRowElement::draw_background(litehtml::uint_ptr cairo, int x, int y,
                                      const litehtml::position* clip) {
    el_tr::draw_background(cairo, x, y, clip);
    litehtml::position::vector cells;
    get_inline_boxes(cells);
    if (cells.empty()) return;
    litehtml::borders sides;
    sides.left = left;
    sides.right = right;
    litehtml::position box = cells.front();
    box.x += x - sides.left.width;
    box.y += y;
    box.width = cells.back().right() - cells.front().left() + sides.left.width + sides.right.width;
    if (box.does_intersect(clip)) drawBorders(reinterpret_cast<_cairo*>(cairo), sides, box);
}

} // namespace platform
