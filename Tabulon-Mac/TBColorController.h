#pragma once

// The application's choice of how pages look. Used by the plug-in and other hosts, on the thread that makes
// the page.

#include "export/TKLineCollectionExporterHTMLStyle.h"

class TBColorController {
public:
    // A new style with the colours of the application.
    static TKLineCollectionExporterHTMLStyle htmlStyle();
};
