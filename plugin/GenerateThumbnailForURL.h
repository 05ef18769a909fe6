#pragma once

// A small drawing of a document: its page as it would stand in a window of 600 by 800, scaled to the height
// that the host wants, with the product's name laid over it. `bootstrap` must have run; the calls run one
// at a time.

#include "PreviewHost.h"

#include <cstdint>
#include <memory>

class TCLineCollection;

// Draws into a context of three quarters of the greatest width and the whole height, both in points, which it
// asks the request for, and flushes that. A document that can't be read is an empty page. Nothing is drawn of
// a file that isn't XML, below 32 points in either direction, and without a context. Always 0. The other
// arguments are ignored.
int32_t GenerateThumbnailForURL(void* self, QLThumbnailRequest* request, const char* url,
                                const char* contentType, const QLProperties* options, double maxWidth,
                                double maxHeight);

// The same drawing of lines that are in no document.
void drawThumbnailOfLines(QLThumbnailRequest* request, const std::shared_ptr<TCLineCollection>& collection,
                          double maxWidth, double maxHeight);

// Does nothing: a request that has begun runs to its end.
void CancelThumbnailGeneration(void* self, QLThumbnailRequest* request);
