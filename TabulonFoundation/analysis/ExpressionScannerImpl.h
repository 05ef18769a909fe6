#pragma once

// The one implementation of the scanner, with a set of word breakers and a locale of its own. Read-only
// once made, shared between threads.

#include "analysis/ExpressionScanner.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace TBF {

// What a run of code units is, before it becomes a token. The length is at least 1.
struct ScannedRun {
    int32_t length;
    TBFBasicTokenType type;
    TBFBasicTokenSubType subType;
};

class ExpressionScannerImpl final : public ExpressionScanner {
public:
    static Ref<ExpressionScannerImpl> create(const std::set<TBFChar>& wordBreakers, TBFLocale locale);

    PooledVector<Ref<BasicToken>> scan(Expression* expression) const override;

    // The next token at `inoutIndex`, which moves behind it. False at the end of the text or without
    // one, with `outToken` null.
    bool getNextBasicToken(Expression* expression, Ref<BasicToken>& outToken, int32_t& inoutIndex) const;

    // The run that begins at `start`, which lies inside of the text.
    ScannedRun scanRun(std::u16string_view text, std::size_t start) const noexcept;

private:
    friend class Object<ExpressionScanner>;
    ExpressionScannerImpl(const std::set<TBFChar>& wordBreakers, TBFLocale locale);
    ~ExpressionScannerImpl() override = default;

    bool isNumberChar(char16_t c) const noexcept;
    bool isHexNumberChar(char16_t c) const noexcept;
    bool isBasicWordChar(char16_t c) const noexcept;
    bool isWordBreaker(char16_t c) const noexcept;
    ScannedRun scanDecimalNumber(std::u16string_view text, std::size_t start) const noexcept;
    ScannedRun scanPrefixedNumber(std::u16string_view text, std::size_t start) const noexcept;
    int32_t wordLength(std::u16string_view text, std::size_t start) const noexcept;

    std::array<bool, 128> isASCIIWordBreaker{};
    std::u16string otherWordBreakers; // in ascending order
    TBFLocale scannerLocale;
};

} // namespace TBF
