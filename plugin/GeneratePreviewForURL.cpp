#include "GeneratePreviewForURL.h"

#include "DocumentPage.h"

int32_t GeneratePreviewForURL(void*, QLPreviewRequest* request, const char* url, const char*,
                              const QLProperties*) {
    const DocumentPage page = pageOfDocumentAtURL(url);
    if (!page.isDocument) return 0;
    const QLProperties properties = {
        {std::string(kQLPreviewPropertyTextEncodingNameKey), "UTF-8"},
        {std::string(kQLPreviewPropertyMIMETypeKey), "text/html"},
    };
    QLPreviewRequestSetDataRepresentation(request, page.html, kUTTypeHTML, properties);
    return 0;
}

void CancelPreviewGeneration(void*, QLPreviewRequest*) {}
