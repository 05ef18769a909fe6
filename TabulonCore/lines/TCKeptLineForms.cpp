#include "lines/TCKeptLineForms.h"

#include "expressions/TCExpression.h"
#include "lines/TCLine.h"

#include <optional>
#include <string>

namespace {

constexpr std::size_t mostLines = 256;
constexpr std::size_t longestText = 256; // code units

} // namespace

void TCKeptLineForms::keep(TCLine& line) {
    if (line.keepsForms) return;
    const auto& expression = line.expression();
    const auto& typed = expression ? expression->originalString() : std::optional<std::u16string>();
    if (!typed || typed->size() > longestText) {
        line.dropForms();
        return;
    }
    line.keepsForms = true;
    if (lines_.size() < mostLines) {
        lines_.push_back(line.weak_from_this());
        return;
    }
    std::weak_ptr<TCLine>& place = lines_[oldest_];
    if (const auto oldest = place.lock()) {
        oldest->keepsForms = false;
        oldest->dropForms();
    }
    place = line.weak_from_this();
    oldest_ = (oldest_ + 1) % mostLines;
}
