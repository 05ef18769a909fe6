#include "names/WordMeaning.h"

#include "names/functions/Function.h"
#include "names/variables/ScopedVariable.h"
#include "names/wordoperators/WordOperator.h"
#include "units/AmbiguousUnit.h"
#include "units/UnitContainer.h"
#include "units/UnitFraction.h"

namespace TBF {

WordMeaning::WordMeaning() noexcept = default;
WordMeaning::~WordMeaning() = default;
WordMeaning::WordMeaning(WordMeaning&&) noexcept = default;
WordMeaning& WordMeaning::operator=(WordMeaning&&) noexcept = default;

} // namespace TBF
