// value_saver CONTENT DATA NUMBER: loads the content and the saved values, gives a hundred variables this
// number, and saves variables and rates where they were. For tests of what becomes of files when a writer is
// stopped.

#include "QuickLookGeneratorPlugin.h"
#include "bootstrap.h"
#include "bundle/Bundle.h"
#include "environment/TKEnvironment.h"
#include "live/TKVariablesManager.h"
#include "runtime/Unicode.h"

#include <cstdio>
#include <string>

namespace {

constexpr int countOfVariables = 100;

void setVariables(TKVariablesManager& variables, const std::string& number) {
    for (int i = 0; i < countOfVariables; ++i) {
        const std::u16string name = TBF::utf16("saved" + std::string(1, static_cast<char>('a' + i / 26)) +
                                               std::string(1, static_cast<char>('a' + i % 26)));
        variables.addVariableNamed(name);
        variables.setValueOfVariable(variables.variableNamed(name), TBF::utf16(number));
    }
}

} // namespace

int main(int count, char** values) {
    if (count != 4) {
        std::fputs("usage: value_saver CONTENT DATA NUMBER\n", stderr);
        return 2;
    }
    const std::string data = values[2];
    platform::Bundle::registerBundle(kPlugInBundleIdentifier, values[1]);
    setBootstrapChoices({"en", data});
    bootstrap(platform::Bundle::bundleWithIdentifier(kPlugInBundleIdentifier).get());
    const auto environment = TKEnvironment::sharedEnvironment();
    if (!environment) return 1;
    setVariables(*environment->variablesManager(), values[3]);
    return environment->saveToDirectory(data) ? 0 : 1;
}
