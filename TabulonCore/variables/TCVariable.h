#pragma once

// A variable as hosts and documents handle it: a foundation variable with the localized text of its value, an
// enabled state, and a list that it tells of its changes. The foundation variable may hold a value per range
// of line indexes; "the value" is the one behind the last line. Shared by `std::shared_ptr`, used on the
// document's thread.

#include "environment/TCSimpleLocale.h"
#include "expressions/TCRange.h"
#include "names/variables/Variable.h"
#include "propertylist/PropertyList.h"
#include "runtime/Ref.h"
#include "variables/TCVariableState.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class TCResult;
class TCUnit;
class TCVariableList;

// Why a name can't be used.
struct TCVariableNameError {
    int32_t code = 0; // 2048
    std::u16string description;
    std::u16string recoverySuggestion;
};

class TCVariable : public std::enable_shared_from_this<TCVariable> {
protected:
    struct Passkey {};

public:
    // The unit of a value; null for none.
    using Unit = std::shared_ptr<TCUnit>;

    // All line indexes; a length of -1 reaches to the end.
    static constexpr TCRange wholeRange{0, -1};

    static std::shared_ptr<TCVariable> variableWithName(std::optional<std::u16string> name);
    static std::shared_ptr<TCVariable> variableWithName(std::optional<std::u16string> name,
                                                        std::optional<std::u16string> localizedValue);
    static std::shared_ptr<TCVariable> variableWithName(std::optional<std::u16string> name,
                                                        const TCResult* result);
    static std::shared_ptr<TCVariable> variableWithName(std::optional<std::u16string> name,
                                                        std::optional<std::u16string> delocalizedValue,
                                                        uint32_t resultFlags, Unit unit);

    // Over a variable that exists already; becomes its wrapper object.
    static std::shared_ptr<TCVariable> variableWithTBFVariable(TBF::Ref<TBF::Variable> variable);

    TCVariable(Passkey, TBF::Ref<TBF::Variable> variable);
    virtual ~TCVariable();
    TCVariable(const TCVariable&) = delete;
    TCVariable& operator=(const TCVariable&) = delete;

    // A free variable with the same name, texts, flags and unit.
    std::shared_ptr<TCVariable> copy() const;

    // By the name alone.
    bool isEqual(const TCVariable& other) const { return name() == other.name(); }
    std::size_t hash() const;

    // Names. A list refuses a name that it holds exactly so already: then nothing changes, and
    // `changeName` gives false.
    std::optional<std::u16string> name() const;
    void setName(std::u16string_view newName) { changeName(newName); }
    bool changeName(std::u16string_view newName);
    std::vector<std::u16string> aliases() const;
    void addAlias(std::u16string_view alias);

    // Notes the present name; `changeName` does so itself.
    void saveState() { madeTexts().stateBefore.updateWithVariable(*this); }
    const TCVariableState& previousState() const { return texts().stateBefore; }

    // The value in the characters of this variable's locale, and with "." as decimal point.
    std::optional<std::u16string> value() const { return localizedValue(); }
    std::optional<std::u16string> localizedValue() const;
    std::optional<std::u16string> delocalizedValue() const;

    // An empty text is no value. True if something was set.
    void setValue(std::optional<std::u16string> localizedText);
    bool setLocalizedValue(std::optional<std::u16string> localizedText);
    bool setDelocalizedValue(std::optional<std::u16string> text, uint32_t resultFlags, Unit newUnit,
                             TCRange scopeRange = wholeRange);
    void setResultValue(const TCResult* result);

    uint32_t resultFlags() const; // bit 0: a percentage
    const Unit& unit() const { return ownUnit; }
    void setUnit(Unit newUnit);

    // The unit of that name among the units of the current environment; nothing happens for an unknown one.
    void setUnitNameSingular(std::u16string_view name) { setUnitNamed(name); }
    void setUnitNameVeryShort(std::u16string_view name) { setUnitNamed(name); }

    // What a list of variables shows: the value, with its percent sign or unit.
    std::u16string displayValue() const;

    // The form in which a variable is saved.
    platform::PropertyList dictionaryRepresentation() const;

    // A saved variable is read by who knows its units (TKVariablesManager): both log, and change nothing.
    void loadFromDictionaryRepresentation(const platform::PropertyList& dictionary);
    void setValueForUndefinedKey(const platform::PropertyList& value, std::string_view key);

    // Only an enabled variable is found by expressions.
    bool enabled() const { return isEnabled; }
    void setEnabled(bool enable);

    // Tags for the caller.
    int32_t type() const { return tag; }
    void setType(int32_t newType) { tag = newType; }
    const std::optional<std::u16string>& infoDescription() const { return texts().description; }
    void setInfoDescription(std::optional<std::u16string> text) { madeTexts().description = std::move(text); }
    const std::optional<std::u16string>& identifier() const { return texts().identifier; }
    void setIdentifier(std::optional<std::u16string> text) { madeTexts().identifier = std::move(text); }

    // The same text under other characters, which may be another number; or the same number, rewritten.
    // Nothing happens for two equal characters, or for those that stand.
    void setLocaleWithDecimalPoint(TBFChar decimalPoint, TBFChar thousandsSeparator);
    void convertToLocaleWithDecimalPoint(TBFChar decimalPoint, TBFChar thousandsSeparator);
    std::optional<std::u16string>
    delocalizedValueFromLocalizedValue(std::optional<std::u16string> text) const;
    std::optional<std::u16string>
    localizedValueFromDelocalizedValue(std::optional<std::u16string> text) const;

    // Whether a variable may have this name; if not, `error`, which may be null, says why.
    static bool validateName(const std::optional<std::u16string>& name, TCVariableNameError* error);

    // Puts the number that the text comes to in its place; always true, so that nothing fills `error` in.
    bool validateValue(std::optional<std::u16string>& text, TCVariableNameError* error = nullptr) const;

    // Not owned; the list takes itself out. May be null.
    TCVariableList* variableList() const { return owningList; }
    void setVariableList(TCVariableList* list) { owningList = list; }

    // Borrowed; never null.
    TBF::Variable* tbfVariable() const { return foundationVariable.get(); }

protected:
    // The value, percent sign and unit of an answer, or no value for null.
    void setDelocalizedValueOfResult(const TCResult* result, TCRange scopeRange);

private:
    void setText(TBF::Ref<TBF::String> text, uint32_t flags, Unit newUnit, TCRange scopeRange);
    void setUnitNamed(std::u16string_view name);
    bool isNoNewLocale(TCSimpleLocale newLocale) const;

    // What most variables never have, and a document may declare a hundred thousand.
    struct Texts {
        std::optional<std::u16string> localized; // the value; none until asked for
        std::optional<std::u16string> description;
        std::optional<std::u16string> identifier;
        TCVariableState stateBefore;
    };
    Texts& madeTexts() const;
    const Texts& texts() const; // empty ones where there are none
    void setLocalizedText(std::optional<std::u16string> text) const;

    TBF::Ref<TBF::Variable> foundationVariable;
    mutable std::unique_ptr<Texts> ownTexts; // null until there are some
    bool isEnabled = true;
    TCSimpleLocale locale = TCSimpleLocale::standardLocale();
    int32_t tag = 0;
    Unit ownUnit;
    TCVariableList* owningList = nullptr;
};
