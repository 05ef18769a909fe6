#pragma once

// The token that the contextual analyzer and the parser work on: one or several basic tokens, a type,
// and the meaning that the analyzer found. Made by the tokenizer and the analyzer. Its fields change
// during the analysis and its strings are made on first request, without a lock: a token belongs to one
// thread at a time.

#include "analysis/BasicToken.h"
#include "analysis/ExpressionTokenList.h"
#include "analysis/TBFTokenTypes.h"
#include "runtime/Object.h"
#include "runtime/Ref.h"
#include "runtime/TBFTypes.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace TBF {

class AmbiguousUnit;
class Function;
class PolyString;
class ScopedVariable;
class UnitContainer;
class UnitFraction;
class WordOperator;

class ExpressionToken final : public Object<ExpressionToken> {
public:
    // A token of given text, without basic tokens, at an empty range, in the default locale.
    static Ref<ExpressionToken> create(String* string, token_type type, TBFTokenSubType subType);

    // Type and subtype follow from the basic token. Null for null.
    static Ref<ExpressionToken> create(Ref<BasicToken> basicToken);

    // The type comes from the first basic token, the range runs from the first to the last. Null for an
    // empty vector.
    static Ref<ExpressionToken> create(std::vector<Ref<BasicToken>> basicTokens);

    // Valid as long as the token lives.
    std::span<const Ref<BasicToken>> basicTokens() const noexcept;

    TBFRange range() const noexcept { return tokenRange; }

    // The locale of the first basic token, or the default one.
    TBFLocale locale() const noexcept;

    token_type type() const noexcept { return tokenType; }
    void setType(token_type type) noexcept { tokenType = type; }

    // What the token represents.
    TBFTokenSubType subType() const noexcept { return tokenSubType; }
    void setSubType(TBFTokenSubType subType) noexcept { tokenSubType = subType; }

    // What the token is. The subtype, unless set to something other than 0: the two differ only for a
    // word operator that represents another token.
    TBFTokenSubType actualSubType() const noexcept {
        return ownActualSubType != TBFTokenSubTypeNone ? ownActualSubType : tokenSubType;
    }
    void setActualSubType(TBFTokenSubType subType) noexcept { ownActualSubType = subType; }

    // The text, without making a string; valid as long as the token lives.
    std::u16string_view view() const noexcept;

    // The text as an object, shared with a single basic token. Borrowed.
    PolyString* string() const;

    // The text from which a number is made: without thousands separators and spaces, with "." as the
    // decimal point, prefixed numbers in decimal. "1" for tokens that aren't numbers. Borrowed.
    PolyString* decimalString() const;

    // The same, without keeping it.
    std::string decimalText() const;

    // 0 for a token without basic tokens.
    TBFChar firstCharacter() const noexcept;

    // That of the first basic token. Borrowed, null without one.
    Expression* expression() const noexcept;

    // How the unit was written; 0 if unknown.
    int32_t unitFormatType() const noexcept { return ownUnitFormatType; }
    void setUnitFormatType(int32_t type) noexcept { ownUnitFormatType = type; }

    // The meaning found. Getters lend, setters retain; null is no meaning.
    UnitFraction* unitFraction() const noexcept { return meaning.unitFraction.get(); }
    void setUnitFraction(UnitFraction* fraction);
    UnitContainer* unitContainer() const noexcept { return meaning.unitContainer.get(); }
    void setUnitContainer(UnitContainer* container);
    AmbiguousUnit* ambiguousUnit() const noexcept { return meaning.ambiguousUnit.get(); }
    void setAmbiguousUnit(AmbiguousUnit* unit);
    Function* function() const noexcept { return meaning.function.get(); }
    void setFunction(Function* function);
    WordOperator* wordOperator() const noexcept { return meaning.wordOperator.get(); }
    void setWordOperator(WordOperator* wordOperator);
    ScopedVariable* variable() const noexcept { return meaning.variable.get(); }
    void setVariable(ScopedVariable* variable);

private:
    friend class Object<ExpressionToken>;

    struct Meaning {
        Ref<UnitFraction> unitFraction;
        Ref<UnitContainer> unitContainer;
        Ref<AmbiguousUnit> ambiguousUnit;
        Ref<Function> function;
        Ref<WordOperator> wordOperator;
        Ref<ScopedVariable> variable;
    };

    ExpressionToken(String* string, token_type type, TBFTokenSubType subType);
    explicit ExpressionToken(Ref<BasicToken> basicToken) noexcept;
    explicit ExpressionToken(std::vector<Ref<BasicToken>> basicTokens) noexcept;
    ~ExpressionToken() override;

    void setTypesByBasicToken(const BasicToken& basicToken) noexcept;

    // A token of one basic token, by far the most frequent, needs no vector; the vector holds two or
    // more, or none.
    Ref<BasicToken> onlyBasicToken;
    std::vector<Ref<BasicToken>> severalBasicTokens;

    TBFRange tokenRange;
    token_type tokenType = TBFTokenTypeNone;
    TBFTokenSubType tokenSubType = TBFTokenSubTypeNone;
    TBFTokenSubType ownActualSubType = TBFTokenSubTypeNone;
    int32_t ownUnitFormatType = 0;
    Meaning meaning;
    mutable Ref<PolyString> cachedString;        // null until asked for, unless made from a string
    mutable Ref<PolyString> cachedDecimalString; // null until asked for
};

} // namespace TBF
