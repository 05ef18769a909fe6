#include "export/TKLineCollectionExporterHTMLStyle.h"

#include <algorithm>

namespace {

using Style = TKLineCollectionExporterHTMLStyle;

constexpr std::string_view defaultFontName = "Lucida Grande";

std::string number(uint64_t value) {
    return std::to_string(value);
}

std::string pixels(uint64_t value) {
    return number(value) + "px";
}

std::string colorDeclaration(const Style::Color& color) {
    return color ? " color: " + *color + ";" : "";
}

std::string backgroundDeclaration(const Style::Color& color) {
    return color ? " background-color: " + *color + ";" : "";
}

// Where a declaration needs a colour, none leaves its place empty.
std::string plain(const Style::Color& color) {
    return color.value_or("");
}

std::string fullHeight(const Style& style) {
    return style.enableVerticalAutoresizing() ? "height: 100%;" : "";
}

std::string pill(const Style& style, const Style::Color& background, const Style::Color& border) {
    const std::string radius = pixels((style.fontSize() + 10 + 1) / 2); // half of it, rounded up
    return "background-color: " + plain(background) + "; border: 1px solid " + plain(border) +
           "; -webkit-border-radius: " + radius + "; -moz-border-radius: " + radius +
           "; border-radius: " + radius + "; padding: 0px 10px 0px 10px;";
}

std::string content(const Style& style) {
    return "width: " + (style.enableHorizontalAutoresizing() ? "100%" : pixels(style.contentWidth())) +
           "; min-width: 250px;" +
           (style.enableVerticalAutoresizing() ? "height: 100%; position: absolute;" : "");
}

std::string tableContainer(const Style& style) {
    const std::string font = style.fontName().empty() ? std::string(defaultFontName) : style.fontName();
    return fullHeight(style) + " margin: 0px " + pixels(style.sideInset()) + "; font-family: '" + font +
           "', Verdana, Sans-serif; font-size: " + pixels(style.fontSize()) + ";";
}

std::string documentTitle(const Style& style) {
    if (!style.showsDocumentTitle()) return "display: none;";
    return std::string("font-size: 18px; font-weight: bold; margin: 0px 0px ") +
           (style.showsDocumentDate() ? "0" : "12") + "px 3px;" +
           colorDeclaration(style.documentTitleColor());
}

std::string documentDate(const Style& style) {
    if (!style.showsDocumentDate()) return "display: none;";
    return "font-size: 12px; margin: 5px 0px 14px 3px;" + colorDeclaration(style.documentDateColor());
}

std::string lineNumber(const Style& style) {
    if (!style.showsLineNumbers()) return "display: none;";
    return "width: 20px; text-align: right; background-color: " + plain(style.lineNumberBackgroundColor()) +
           "; border-right: 1px solid " + plain(style.documentBorderColor()) +
           "; padding-right: 5px; font-size: 8pt; color: " + plain(style.lineNumberColor()) + ";";
}

std::string expressionCell(const Style& style) {
    const std::string padding = "padding: 5px 8px 5px 6px;";
    if (!style.expressionBackgroundColor()) return padding;
    return padding + " background-color: " + *style.expressionBackgroundColor() + ";";
}

std::string answerCell(const Style& style) {
    return "width: " + pixels(style.answerWidth()) +
           "; text-overflow: ellipsis; overflow: hidden; border-left: 1px solid " +
           plain(style.documentBorderColor()) +
           "; background-color: " + plain(style.answerBackgroundColor()) +
           "; padding-left: 5px; color: " + plain(style.answerColor()) + ";";
}

std::string lineRow(const Style& style) {
    const std::string border = plain(style.documentBorderColor());
    return "border-left: 1px solid " + border + "; border-right: 1px solid " + border +
           "; height: " + pixels(style.fontSize() * 2) + ";";
}

struct Rule {
    std::string_view selector;
    std::string (*declarations)(const Style& style);
};

// The style sheet, in the order in which it is written.
constexpr Rule rules[] = {
    {"body",
     [](const Style& style) {
         return "margin: 0px; padding: 0px;" + colorDeclaration(style.pageColor()) +
                backgroundDeclaration(style.pageBackgroundColor());
     }},
    {"pre",
     [](const Style&) -> std::string {
         return "font-family: inherit; color: inherit; font-size: inherit; font-weight: inherit; "
                "line-height: inherit; margin: 0; white-space: pre-wrap;";
     }},
    {"div.content", content},
    {"div.table_container", tableContainer},
    {"table.document_table",
     [](const Style& style) {
         return "border: 1px solid transparent; border-top: none; width: 100%; border-collapse: collapse; " +
                fullHeight(style);
     }},
    {"div.document_title", documentTitle},
    {"div.document_date", documentDate},
    {"td.no_line_number",
     [](const Style& style) -> std::string {
         return style.showsLineNumbers() ? "display: none;" : "width: 1px;";
     }},
    {"td.line_number", lineNumber},
    {"td.expression", expressionCell},
    {"td.answer", answerCell},
    {"td.statistic_title",
     [](const Style& style) {
         return "text-align: right; font-weight: bold; " + colorDeclaration(style.statisticTitleColor());
     }},
    {"td.statistic",
     [](const Style& style) {
         return "border-top: 1px solid " + plain(style.documentBorderColor()) +
                "; font-weight: bold; padding-left: 5px;" + colorDeclaration(style.statisticColor());
     }},
    {"td.expander_row", [](const Style&) -> std::string { return "height: 100%;"; }},
    {"td.heading", [](const Style&) -> std::string { return "padding: 0px;"; }},
    {"tr.heading", [](const Style&) -> std::string { return "padding: 0px;"; }},
    {"tr.line", lineRow},
    {"tr.top",
     [](const Style& style) { return "border-top: 1px solid " + plain(style.documentBorderColor()) + ";"; }},
    {"tr.statistic",
     [](const Style& style) {
         return style.showsDocumentStatistic() ? "height: " + pixels(style.fontSize() * 5 / 2) + ";"
                                               : std::string("display: none");
     }},
    {"tr.expander",
     [](const Style& style) {
         return "border-bottom: 1px solid " + plain(style.documentBorderColor()) + "; height:inherit;";
     }},
    {"tr.top_padding", [](const Style& style) { return "height: " + pixels(style.topInset()) + ";"; }},
    {"tr.bottom_padding", [](const Style& style) { return "height: " + pixels(style.bottomInset()) + ";"; }},
    {"span.sci_notation_exponent",
     [](const Style&) -> std::string { return "font-size:65%; vertical-align:super;"; }},
    {"span.rel_line_ref",
     [](const Style& style) {
         return pill(style, style.relativeReferenceColor(), style.relativeReferenceBorderColor());
     }},
    {"span.fixed_rel_line_ref",
     [](const Style& style) {
         return pill(style, style.fixedReferenceColor(), style.fixedReferenceBorderColor());
     }},
    {"span.abs_line_ref",
     [](const Style& style) {
         return pill(style, style.absoluteReferenceColor(), style.absoluteReferenceBorderColor());
     }},
    {"span.operator", [](const Style& style) { return colorDeclaration(style.operatorColor()); }},
    {"span.number", [](const Style& style) { return colorDeclaration(style.numberColor()); }},
    {"span.bracket", [](const Style& style) { return colorDeclaration(style.bracketColor()); }},
    {"span.function", [](const Style& style) { return colorDeclaration(style.functionColor()); }},
    {"span.unit", [](const Style& style) { return colorDeclaration(style.unitColor()); }},
    {"span.variable", [](const Style& style) { return colorDeclaration(style.variableColor()); }},
    {"span.word", [](const Style& style) { return colorDeclaration(style.wordColor()); }},
    {"span.leftwards_title",
     [](const Style& style) { return "font-weight: bold;" + colorDeclaration(style.leftwardsTitleColor()); }},
    {"span.rightwards_title",
     [](const Style& style) {
         return "font-weight: bold;" + colorDeclaration(style.rightwardsTitleColor());
     }},
    {"span.leftwards_comment",
     [](const Style& style) { return colorDeclaration(style.leftwardsCommentColor()); }},
    {"span.rightwards_comment",
     [](const Style& style) { return colorDeclaration(style.rightwardsCommentColor()); }},
    {"span.inline_comment", [](const Style& style) { return colorDeclaration(style.inlineCommentColor()); }},
};

static_assert(std::size(rules) == 38);

} // namespace

std::string TKLineCollectionExporterHTMLStyle::cssString() const {
    std::string css;
    for (const Rule& rule : rules)
        css += std::string(rule.selector) + " { " + rule.declarations(*this) + " }\n";
    return css;
}

std::string TKLineCollectionExporterHTMLStyle::adaptiveCSSString() const {
    // Columns then keep their widths, whatever stands in them.
    std::string css = "pre, td.answer, td.statistic { overflow-wrap: anywhere; }\n"
                      "@media (max-width: 480px) {\n"
                      "td.answer, td.statistic { width: 36%; }\n"
                      "td.line_number { width: 14px; padding-right: 3px; }\n"
                      "}\n"
                      "@media print {\n"
                      "div.content { position: static; height: auto; }\n"
                      "div.table_container, table.document_table { height: auto; }\n"
                      "tr.line { page-break-inside: avoid; }\n"
                      "tr.expander { display: none; }\n"
                      "table.document_table { border-bottom-color: " +
                      plain(documentBorderColorValue) + "; }\n";
    // Paper is white, and printers leave grounds out.
    if (pageBackgroundColorValue)
        css += "body, td, span { color: #000 !important; background: none !important; }\n";
    return css + "}\n";
}

std::optional<std::string>
TKLineCollectionExporterHTMLStyle::cssForSelector(std::string_view selector) const {
    const auto rule = std::find_if(std::begin(rules), std::end(rules),
                                   [&](const Rule& each) { return each.selector == selector; });
    if (rule == std::end(rules)) return std::nullopt;
    return rule->declarations(*this);
}
