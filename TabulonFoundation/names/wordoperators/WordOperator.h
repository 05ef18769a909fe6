#pragma once

// An operator that is spelled as a word and defined by a template expression, in which "${1}" and "${2}"
// are its operands: the analyzer asks it where it may stand, the parser for notation and precedence, and
// the evaluator runs its template. It is set up on one thread and only read afterwards, but for the compiled
// form, which the first evaluation makes and keeps here.

#include "runtime/Object.h"
#include "runtime/Ref.h"
#include "runtime/String.h"

#include <cstdint>
#include <utility>

namespace TBF {

// What evaluation makes of a template. Only evaluation knows more of it (eval/wordoperators/), so that words
// can be looked up without parser and evaluator.
class WordOperatorForm : public Object<WordOperatorForm> {};

class WordOperator final : public Object<WordOperator> {
public:
    // Conditions stored beside an operator. The analyzer goes by `argumentConditions` alone.
    struct Conditions {
        uint32_t flags = 0;
        bool matchAny = true; // one shared bit suffices; otherwise all are needed
    };

    static Ref<WordOperator> create(Ref<String> word, int32_t argumentType, Ref<String> expression,
                                    int32_t precedence, uint32_t options);

    const String& word() const { return *name; }
    const String& expression() const { return *templateText; }

    // The notation: 1 prefix, 2 postfix, 3 infix.
    int32_t argumentType() const { return notation; }

    // The TBFOperatorPrecedence class.
    int32_t operatorPrecedence() const { return precedence; }

    uint32_t options() const { return optionFlags; }

    void setPreConditions(Conditions conditions) { before = conditions; }
    void setPostConditions(Conditions conditions) { after = conditions; }
    Conditions postConditions() const { return after; }
    bool preConditionsMatch(uint32_t conditions) const;
    bool postConditionsMatch(uint32_t conditions) const;

    void setArgumentConditions(uint32_t conditions) { arguments = conditions; }
    uint32_t argumentConditions() const { return arguments; }

    // The token type and subtype under which tokens of this operator are shown; 0 unless set.
    void setRepresentedTokenTypes(int32_t type, int32_t subType);
    int32_t representedTokenType() const { return shownType; }
    int32_t representedTokenSubType() const { return shownSubType; }

    // The compiled template: null until evaluation has made and kept it. Borrowed from the operator.
    WordOperatorForm* compiledForm() const { return keptForm.get(); }
    void keepCompiledForm(Ref<WordOperatorForm> form) const { keptForm = std::move(form); }

private:
    friend class Object<WordOperator>;

    WordOperator(Ref<String> word, int32_t argumentType, Ref<String> expression, int32_t precedence,
                 uint32_t options);
    ~WordOperator() override;

    Ref<String> name;
    Ref<String> templateText;
    int32_t notation;
    int32_t precedence;
    uint32_t optionFlags;
    uint32_t arguments = 0;
    int32_t shownType = 0;
    int32_t shownSubType = 0;
    Conditions before;
    Conditions after;
    mutable Ref<WordOperatorForm> keptForm;
};

} // namespace TBF
