#include "lines/TCLineFormatting.h"

#include "results/TCResult.h"
#include "results/TCResultFormattingOptions.h"
#include "results/TCResultFormattingOptionsContextualizer.h"
#include "runtime/ObjectPool.h"

#include <utility>

namespace {

// What lines start with; never changed.
const std::shared_ptr<TCResultFormattingOptions>& usualOptions() {
    static const auto& options =
        *new std::shared_ptr<TCResultFormattingOptions>(std::make_shared<TCResultFormattingOptions>());
    return options;
}

// Equal options for lines that come one after the other are one object.
std::shared_ptr<TCResultFormattingOptions> sharedOptions(const TCResultFormattingOptions& options) {
    if (options == *usualOptions()) return usualOptions();
    static thread_local std::weak_ptr<TCResultFormattingOptions> last;
    auto shared = last.lock();
    if (!shared || *shared != options) {
        shared = std::make_shared<TCResultFormattingOptions>(options);
        last = shared;
    }
    return shared;
}

} // namespace

TCLineFormatting::TCLineFormatting()
    : customOptions_(usualOptions()) {}

void TCLineFormatting::setCustomFormattingOptions(std::shared_ptr<TCResultFormattingOptions> options) {
    if (!options) return;
    customOptions_ = std::move(options);
    ownsOptions_ = true;
}

void TCLineFormatting::takeFormattingOptions(const TCResultFormattingOptions& options) {
    customOptions_ = sharedOptions(options);
    ownsOptions_ = false;
}

bool TCLineFormatting::makeOptionsOwn() {
    if (ownsOptions_) return false;
    setCustomFormattingOptions(TBF::makeShared<TCResultFormattingOptions>(*customOptions_));
    return true;
}

TCResultFormattingOptions TCLineFormatting::contextualizedOptionsFor(const TCResult* answer) const {
    TCResultFormattingOptionsContextualizer contextualizer;
    contextualizer.setEnableAutoPrecision(adjustsPrecision_);
    return contextualizer.contextualizedOptions(*customOptions_, answer);
}

TCSimpleLocale TCLineFormatting::formattingLocale() const {
    return {customOptions_->decimalPlaceCharacter(), customOptions_->thousandsSeparatorCharacter()};
}

void TCLineFormatting::setFormattingLocale(TCSimpleLocale locale) {
    const auto change = [&](TCResultFormattingOptions& options) {
        options.setDecimalPlaceCharacter(locale.decimalPoint);
        options.setThousandsSeparatorCharacter(locale.thousandsSeparator);
    };
    if (ownsOptions_) {
        change(*customOptions_);
        return;
    }
    TCResultFormattingOptions options = *customOptions_;
    change(options);
    takeFormattingOptions(options);
}
