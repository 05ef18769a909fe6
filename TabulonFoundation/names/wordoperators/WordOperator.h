#pragma once

// An operator that is spelled as a word and defined by a template expression, in which "${1}" and "${2}"
// are its operands: the analyzer asks it where it may stand, the parser for notation and precedence, and
// the evaluator runs its compiled template. It is set up on one thread and only read afterwards, but for
// the compiled form, which the first evaluation makes.

#include "runtime/Object.h"
#include "runtime/Ref.h"
#include "runtime/String.h"

#include <cstdint>

namespace TBF {

class CompiledWordOperator;

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

    // The template as a tree, compiled on the first call. Borrowed from the operator.
    CompiledWordOperator* compiled() const;

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
    mutable Ref<CompiledWordOperator> compiledForm; // null until the first evaluation
};

} // namespace TBF
