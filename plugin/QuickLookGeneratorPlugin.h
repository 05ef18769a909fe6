#pragma once

// The plug-in as its host sees it: a factory, and instances that are counted and that lead through a table of
// eight slots to the generators. An instance is a pointer to a pointer to that table. Hosts may count
// references on any thread; instances are made on one.

#include "PreviewHost.h"
#include "plugin/UUID.h"

#include <cstdint>

// The type of plug-in that the factory makes; it refuses every other.
inline constexpr platform::UUID kQLGeneratorTypeID =
    *platform::UUID::fromString("5E2D9680-5022-40FA-B806-43349622E5B9");

// The one interface that an instance grants.
inline constexpr platform::UUID kQLGeneratorCallbacksInterfaceID =
    *platform::UUID::fromString("865AF5E0-6D30-4345-951B-D37105754F2D");

// The factory, under which the living instances are counted.
inline constexpr const char* kPlugInFactoryID = "61844E2F-4C44-4BD3-8DB6-114E76B1BA47";

// The plug-in's bundle. A host makes its folder known under this name before it asks for an instance.
inline constexpr const char* kPlugInBundleIdentifier = "example.tabulon.quicklook-generator";

using QLResult = uint32_t;
inline constexpr QLResult kQLResultOK = 0;
inline constexpr QLResult kQLResultNoInterface = 0x80000004;

// The table. The generator slots are null until the callbacks interface was asked for. `self` is the
// instance.
struct QLGeneratorInterface {
    void* reserved;
    QLResult (*QueryInterface)(void* self, platform::UUID interfaceID, void** out);
    uint32_t (*AddRef)(void* self);
    uint32_t (*Release)(void* self);

    // The greatest width and height of the thumbnail are in points. Always 0.
    int32_t (*GenerateThumbnailForURL)(void* self, QLThumbnailRequest* request, const char* url,
                                       const char* contentType, const QLProperties* options, double maxWidth,
                                       double maxHeight);

    // Does nothing: a request that has begun runs to its end. So does the other one.
    void (*CancelThumbnailGeneration)(void* self, QLThumbnailRequest* request);

    // `url` is the document's file URL; content type and options may be null. Always 0.
    int32_t (*GeneratePreviewForURL)(void* self, QLPreviewRequest* request, const char* url,
                                     const char* contentType, const QLProperties* options);

    void (*CancelPreviewGeneration)(void* self, QLPreviewRequest* request);
};

// An instance in the hands of a host, as the factory gives it.
using QLGeneratorInstance = QLGeneratorInterface**;

// The entry point. A new instance with a count of 1, which the host gives back through Release; null for any
// type but the generator's. The allocator is ignored. The first instance of a process sets up the engine, and
// all share it until the process ends.
extern "C" void* QuickLookGeneratorPluginFactory(void* allocator, const platform::UUID* typeID);
