#pragma once

// How a line is shown: the options of its answer, which may be shared with other lines, and those of its
// text. Part of a `TCLine`, apart from its text and its answer. Used on the document's thread.

#include "environment/TCSimpleLocale.h"
#include "lines/TCExpressionFormattingOptions.h"

#include <memory>

class TCResult;
class TCResultFormattingOptions;

class TCLineFormatting {
public:
    // The custom options are never null. Those that were set may be shared with other lines; otherwise they
    // are the line's own once somebody asks to change them.
    void setCustomFormattingOptions(std::shared_ptr<TCResultFormattingOptions> options);

    // Only to be read, and so without a copy for this line alone. Equal options of lines that come one after
    // the other are kept once.
    const TCResultFormattingOptions& readableFormattingOptions() const { return *customOptions_; }
    void takeFormattingOptions(const TCResultFormattingOptions& options);

    TCExpressionFormattingOptions& expressionFormattingOptions() { return textOptions_; }
    const TCExpressionFormattingOptions& expressionFormattingOptions() const { return textOptions_; }

    // Whether the custom options are adjusted to the answer, and its decimal places among them.
    bool automaticContextualFormattingEnabled() const { return adjustsFormatting_; }
    void setAutomaticContextualFormattingEnabled(bool enabled) { adjustsFormatting_ = enabled; }
    bool automaticallyAdjustsOutputPrecision() const { return adjustsPrecision_; }
    void setAutomaticallyAdjustsOutputPrecision(bool adjusts) { adjustsPrecision_ = adjusts; }

protected:
    TCLineFormatting();
    ~TCLineFormatting() = default;

    const std::shared_ptr<TCResultFormattingOptions>& heldOptions() const { return customOptions_; }
    bool makeOptionsOwn(); // false if they were already

    // The custom options adjusted to an answer, which may be null.
    TCResultFormattingOptions contextualizedOptionsFor(const TCResult* answer) const;

    TCSimpleLocale formattingLocale() const;
    void setFormattingLocale(TCSimpleLocale locale);

private:
    std::shared_ptr<TCResultFormattingOptions> customOptions_;
    TCExpressionFormattingOptions textOptions_;
    bool ownsOptions_ : 1 = false; // or was given them; otherwise they are shared, and not to be changed
    bool adjustsFormatting_ : 1 = true;
    bool adjustsPrecision_ : 1 = true;
};
