#include "commands/Commands.h"

#include "Arguments.h"
#include "CommandFailure.h"
#include "TBColorController.h"
#include "commands/Colors.h"
#include "export/TKLineCollectionExporter.h"
#include "input/LineInput.h"
#include "output/Output.h"

void runExport(const ExportArguments& arguments) {
    TKLineCollectionExporter exporter(readLines(arguments.file, arguments.reading).collection);
    useColorsOfFile(arguments.colors);
    TKLineCollectionExporterHTMLStyle style = TBColorController::htmlStyle();
    style.setEnableAdaptiveRules(true);
    const bool isInlined = arguments.format == ExportFormatInlinedHTML;
    const std::optional<std::string> page =
        isInlined ? exporter.HTMLSourceWithInlinedStyle(style) : exporter.HTMLSourceWithStyle(style);
    if (!page) throw CommandFailure{ExitCodeFailed, arguments.file, "has no lines to show"};
    writeOutput(arguments.output, *page);
}
