#include "analysis/WordMeaning.h"

#include "analysis/wordoperators/WordOperator.h"
#include "eval/functions/Function.h"
#include "eval/variables/ScopedVariable.h"
#include "units/AmbiguousUnit.h"
#include "units/UnitContainer.h"
#include "units/UnitFraction.h"

namespace TBF {

WordMeaning::WordMeaning() noexcept = default;
WordMeaning::~WordMeaning() = default;
WordMeaning::WordMeaning(WordMeaning&&) noexcept = default;
WordMeaning& WordMeaning::operator=(WordMeaning&&) noexcept = default;

} // namespace TBF
