#pragma once

// Gives expressions their tokens for display, with the names of an environment, and answers what a line
// declares and refers to. Tokens are made only when somebody asks for them. Used by one thread at a time.

#include "expressions/TCExpressionToken.h"
#include "expressions/TCRange.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

class TCEnvironment;
class TCExpression;
class TCLine;
class TCParsedExpression;
class TCSimpleTokenizedExpression;
struct TCVariableDeclarationRecord;

class TCExpressionParser {
public:
    using Token = std::shared_ptr<TCExpressionToken>;

    // With the current environment.
    TCExpressionParser();

    // Without an environment only numbers, operators and functions are known.
    explicit TCExpressionParser(std::shared_ptr<TCEnvironment> environment);
    ~TCExpressionParser();

    const std::shared_ptr<TCEnvironment>& environment() const { return names; }

    // Whether locations given without a word on it are those of the displayed text. False at first.
    bool useHighLevelLocations() const { return usesHighLevelLocations; }
    void setUseHighLevelLocations(bool use) { usesHighLevelLocations = use; }
    bool enableComments() const { return parsesComments; }
    void setEnableComments(bool enable) { parsesComments = enable; }

    // Never null; without tokens for a null expression.
    std::shared_ptr<TCParsedExpression>
    parseExpression(const std::shared_ptr<TCExpression>& expression) const;

    // The token that holds the location; null where none does.
    Token tokenInExpression(const std::shared_ptr<TCExpression>& expression, int64_t location) const;
    Token tokenInExpression(const std::shared_ptr<TCExpression>& expression, int64_t location,
                            bool highLevelLocation) const;
    Token tokenInString(std::u16string_view text, int64_t location) const;

    // As TCParsedExpressionHelpers::findTokens.
    TCExpressionTokens findTokensInExpression(const std::shared_ptr<TCExpression>& expression,
                                              int64_t location, int32_t direction, std::size_t maxCount,
                                              bool skipCurrentLocation) const;
    TCExpressionTokens findTokensInExpression(const std::shared_ptr<TCExpression>& expression,
                                              int64_t location, int32_t direction, std::size_t maxCount,
                                              bool skipCurrentLocation, bool highLevelLocation) const;
    TCExpressionTokens findTokensInString(std::u16string_view text, int64_t location, int32_t direction,
                                          std::size_t maxCount, bool skipCurrentLocation) const;

    // From the displayed text to the typed one, and back. A range that touches a reference takes all of it.
    TCRange convertHighLevelRangeToLowLevelRange(TCRange range,
                                                 const std::shared_ptr<TCExpression>& expression) const;
    TCRange convertLowLevelRangeToHighLevelRange(TCRange range,
                                                 const std::shared_ptr<TCExpression>& expression) const;

    // The variables that a parsed line uses.
    static std::set<std::u16string> findVariableReferencesInLine(const TCLine& line);
    static bool isVariableReferencedInLine(std::u16string_view name, const TCLine& line);

    // The references of a parsed line whose kind has a bit in common with `typeMask`: their numbers, those by
    // line number as indexes, and their ranges. Either may be null. None for a line without any reference.
    static void findLineReferencesInLine(const TCLine& line, int32_t typeMask,
                                         std::optional<std::vector<int64_t>>* indexes,
                                         std::optional<std::vector<TCRange>>* ranges, bool useHighLevelRange);
    static TCExpressionTokens lineReferenceTokensOfType(TCLineReferenceType type, const TCLine& line);

    // Whether the tokens declare a variable: a name, an equals sign and anything. `record` is filled if they
    // do. `isBadDeclaration` is written if they don't: true if an equals sign stands where none can. Both may
    // be null.
    static bool findVariableDeclarationInTokenizedExpression(const TCSimpleTokenizedExpression& expression,
                                                             TCVariableDeclarationRecord* record,
                                                             bool* isBadDeclaration);

    // The TCExpressionType of a line of these tokens.
    static int32_t expressionTypeOfTokenizedExpression(const TCSimpleTokenizedExpression& expression,
                                                       TCVariableDeclarationRecord* record);

private:
    std::shared_ptr<TCEnvironment> names;
    bool usesHighLevelLocations = false;
    bool parsesComments = true;
};
