#include "QuickLookGeneratorPlugin.h"

#include "GeneratePreviewForURL.h"
#include "GenerateThumbnailForURL.h"
#include "bootstrap.h"
#include "bundle/Bundle.h"
#include "plugin/PlugInFactory.h"

#include <atomic>
#include <memory>
#include <optional>

namespace {

struct QuickLookGeneratorPluginType {
    QLGeneratorInterface* interfaceTable; // first: it is what the host sees. Owned.
    std::optional<platform::UUID> factoryID;
    std::atomic<uint32_t> referenceCount;
};

QuickLookGeneratorPluginType& instanceOf(void* self) {
    return *static_cast<QuickLookGeneratorPluginType*>(self);
}

QLResult QuickLookGeneratorQueryInterface(void* self, platform::UUID interfaceID, void** out);
uint32_t QuickLookGeneratorPluginAddRef(void* self);
uint32_t QuickLookGeneratorPluginRelease(void* self);

// The slots behind Release are filled when the interface they belong to is asked for.
constexpr QLGeneratorInterface templateTable = {
    nullptr,
    QuickLookGeneratorQueryInterface,
    QuickLookGeneratorPluginAddRef,
    QuickLookGeneratorPluginRelease,
    nullptr,
    nullptr,
    nullptr,
    nullptr,
};

QuickLookGeneratorPluginType* AllocQuickLookGeneratorPluginType(const platform::UUID& factoryID) {
    auto table = std::make_unique<QLGeneratorInterface>(templateTable);
    auto instance = std::make_unique<QuickLookGeneratorPluginType>();
    instance->interfaceTable = table.release();
    instance->factoryID = factoryID;
    platform::plugInAddInstanceForFactory(factoryID);
    instance->referenceCount = 1;
    bootstrap(platform::Bundle::bundleWithIdentifier(kPlugInBundleIdentifier).get());
    return instance.release();
}

void DeallocQuickLookGeneratorPluginType(QuickLookGeneratorPluginType* instance) {
    const std::unique_ptr<QuickLookGeneratorPluginType> record(instance);
    const std::unique_ptr<QLGeneratorInterface> table(instance->interfaceTable);
    if (record->factoryID) platform::plugInRemoveInstanceForFactory(*record->factoryID);
}

QLResult QuickLookGeneratorQueryInterface(void* self, platform::UUID interfaceID, void** out) {
    if (interfaceID != kQLGeneratorCallbacksInterfaceID) {
        *out = nullptr;
        return kQLResultNoInterface;
    }
    QLGeneratorInterface* const table = instanceOf(self).interfaceTable;
    table->GenerateThumbnailForURL = GenerateThumbnailForURL;
    table->CancelThumbnailGeneration = CancelThumbnailGeneration;
    table->GeneratePreviewForURL = GeneratePreviewForURL;
    table->CancelPreviewGeneration = CancelPreviewGeneration;
    table->AddRef(self);
    *out = self;
    return kQLResultOK;
}

uint32_t QuickLookGeneratorPluginAddRef(void* self) {
    return ++instanceOf(self).referenceCount;
}

uint32_t QuickLookGeneratorPluginRelease(void* self) {
    const uint32_t count = --instanceOf(self).referenceCount;
    if (count == 0) DeallocQuickLookGeneratorPluginType(&instanceOf(self));
    return count;
}

} // namespace

extern "C" void* QuickLookGeneratorPluginFactory(void*, const platform::UUID* typeID) {
    if (!typeID || *typeID != kQLGeneratorTypeID) return nullptr;
    const std::optional<platform::UUID> factoryID = platform::UUID::fromString(kPlugInFactoryID);
    return factoryID ? AllocQuickLookGeneratorPluginType(*factoryID) : nullptr;
}
