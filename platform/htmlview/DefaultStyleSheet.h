#pragma once

// How the elements of HTML look before a page says anything. Elements that aren't here are part of their
// line.

namespace platform {

inline constexpr const char* defaultStyleSheet = R"css(
html, body, div, p, pre, blockquote, address, center, dl, dt, dd, ul, ol, form, fieldset, hr, h1, h2, h3, h4,
h5, h6, section, article, header, footer, nav, aside, main, figure { display: block; }
head, title, meta, link, style, script, noscript, template, base, object, embed, iframe { display: none; }
html { height: auto; }
body { margin: 8px; }
p, dl, ul, ol, blockquote { margin-top: 1em; margin-bottom: 1em; }
blockquote { margin-left: 40px; margin-right: 40px; }
ul, ol { padding-left: 40px; }
li { display: list-item; }
h1 { font-size: 2em; margin: 0.67em 0; }
h2 { font-size: 1.5em; margin: 0.83em 0; }
h3 { font-size: 1.17em; margin: 1em 0; }
h1, h2, h3, h4, h5, h6, b, strong, th { font-weight: bold; }
i, em, cite, var, dfn { font-style: italic; }
u, ins { text-decoration: underline; }
s, strike, del { text-decoration: line-through; }
sub { vertical-align: sub; font-size: smaller; }
sup { vertical-align: super; font-size: smaller; }
small { font-size: smaller; }
pre { white-space: pre; margin: 1em 0; }
center { text-align: center; }
hr { border: 1px solid #888; margin: 0.5em 0; }
table { display: table; border-collapse: separate; border-spacing: 2px; text-indent: 0; }
caption { display: table-caption; text-align: center; }
thead { display: table-header-group; }
tbody { display: table-row-group; }
tfoot { display: table-footer-group; }
tr { display: table-row; }
td, th { display: table-cell; padding: 1px; vertical-align: middle; }
th { text-align: center; }
)css";

} // namespace platform
