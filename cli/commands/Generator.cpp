#include "commands/Generator.h"

#include "CommandFailure.h"
#include "PlugInHost.h"

Generator loadGenerator() {
    startEngine();
    const Generator plugin(
        static_cast<QLGeneratorInstance>(QuickLookGeneratorPluginFactory(nullptr, &kQLGeneratorTypeID)));
    void* generator = nullptr;
    if (!plugin || (*plugin)->QueryInterface(plugin.get(), kQLGeneratorCallbacksInterfaceID, &generator) !=
                       kQLResultOK) {
        throw CommandFailure{ExitCodeFailed, {}, "the preview plug-in doesn't answer"};
    }
    return Generator(static_cast<QLGeneratorInstance>(generator));
}
