#pragma once

// The road from a document's URL to its page. Each request reads the file afresh, and nothing is kept when it
// is done. `bootstrap` must have run; the calls run one at a time, since documents share the evaluator.

#include "PreviewHost.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

class TCLineCollection;

// The page of a document in the application's look, as UTF-8; none for a null collection.
std::optional<std::string> htmlStringForLineCollection(const std::shared_ptr<TCLineCollection>& collection);

// Answers the request with the page of the document at `url`; with no page if there is no document or it
// can't be read; and not at all if the file is something else than XML. Always 0. The other arguments are
// ignored.
int32_t GeneratePreviewForURL(void* self, QLPreviewRequest* request, const char* url, const char* contentType,
                              const QLProperties* options);

void CancelPreviewGeneration(void* self, QLPreviewRequest* request);
