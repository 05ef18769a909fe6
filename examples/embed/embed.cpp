// A host of the engine in forty lines: it loads the environment, makes a document of three lines, edits one
// and prints all answers before and after.

#include "QuickLookGeneratorPlugin.h"
#include "bootstrap.h"
#include "bundle/Bundle.h"
#include "lines/TCLine.h"
#include "lines/TCLineCollection.h"
#include "runtime/Unicode.h"

#include <cstdio>

namespace {

void printAnswers(TCLineCollection& document) {
    for (const auto& line : document) {
        const std::string text = TBF::utf8(line->expressionString().value_or(u""));
        const std::string answer = TBF::utf8(line->formattedResult().value_or(u""));
        std::printf("%-26s %s\n", text.c_str(), answer.c_str());
    }
}

} // namespace

int main(int count, char** values) {
    // Where units, currencies and words are: the folder of the installation, or one of the host's own.
    platform::Bundle::registerBundle(kPlugInBundleIdentifier, count > 1 ? values[1] : TABULON_CONTENT);
    bootstrap(platform::Bundle::bundleWithIdentifier(kPlugInBundleIdentifier).get());

    TCLineCollection document;
    document.beginBatchUpdate();
    for (const char16_t* const text : {u"distance = 12 km", u"speed = 16 km/h", u"distance / speed in min"})
        document.addLine(TCLine::lineWithExpressionString(text));
    document.endBatchUpdate();
    printAnswers(document);

    document.lineAtIndex(0)->setExpressionString(u"distance = 20 km");
    printAnswers(document);
}
