#pragma once

// What must stand in a text for a regular expression to match it, read off the expression itself. Patterns of
// localizations come as expressions alone; with their clues they cost nothing on lines that hold none. Pure.

#include "expressions/TCExpressionClues.h"

#include <string_view>
#include <vector>

// Lists of clues: a match holds one of each list. Fewer lists than there could be are right as well, so that
// whatever isn't plain to see gives none.
std::vector<std::vector<TCExpressionClue>> TCRequiredCluesOfRegex(std::u16string_view regex);
