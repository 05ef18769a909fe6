#include "lines/TCLine.h"
#include "results/TCResult.h"
#include "results/TCResultFormatter.h"
#include "results/TCResultFormattingOptions.h"
#include "results/TCResultFormattingOptionsContextualizer.h"

std::optional<std::u16string> TCLine::formattedResult() {
    const std::shared_ptr<TCResult> current = result();
    if (!current || current->resultType() != TCResultTypeNumber) return std::nullopt;
    auto shown = TCResultFormatter::sharedInstance().stringValueForResult(current.get(), formattingOptions());
    current->dropDerivedForms();
    return shown;
}

TCResultFormattingOptions TCLine::contextualizedFormattingOptions() {
    TCResultFormattingOptionsContextualizer contextualizer;
    contextualizer.setEnableAutoPrecision(adjustsPrecision);
    return contextualizer.contextualizedOptions(*customOptions, result().get());
}

TCResultFormattingOptions TCLine::formattingOptions() {
    return adjustsFormatting ? contextualizedFormattingOptions() : *customOptions;
}
