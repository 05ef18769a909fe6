#include "TBColorController.h"

TKLineCollectionExporterHTMLStyle TBColorController::htmlStyle() {
    return {};
}
