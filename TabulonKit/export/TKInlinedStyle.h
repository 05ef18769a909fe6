#pragma once

// Moves the declarations of a style sheet into the tags of a page, for mail and other places that a style
// sheet doesn't reach.

#include <string>
#include <string_view>

class TKLineCollectionExporterHTMLStyle;

// `page` with a `style` attribute in each start tag for which the style has declarations, by the tag's name
// and then by its classes. A class attribute gives way to it. Takes time linear in the page's length.
std::string TKPageWithInlinedStyle(std::string_view page, const TKLineCollectionExporterHTMLStyle& style);
