#pragma once

// A function that a line can call by name: a name with aliases, the least number of arguments, and an
// implementation. Made and filled in on one thread while a function list is built, only read afterwards;
// `execute` may then run on any thread that owns its arguments and its context.

#include "names/functions/FunctionImplementation.h"
#include "runtime/Object.h"
#include "runtime/Ref.h"
#include "runtime/String.h"

#include "m_apm.h"
#include "results/TBFEvaluationError.h"

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace TBF {

// Where a function means something. Its body gives a value outside too, often 0, which says nothing.
struct FunctionDomain {
    bool (*contains)(std::span<const M_APM> arguments); // in the order of writing
    TBFEvaluationError error;                           // of an argument outside
};

class Function final : public Object<Function> {
public:
    static Ref<Function> create(Ref<String> name, std::vector<Ref<String>> aliases = {},
                                uint8_t argumentCount = 0);

    String& name() const { return *functionName; }
    String& lowercaseName() const { return *lowercase; }
    const std::vector<Ref<String>>& aliases() const { return otherNames; }

    // The least number of arguments; more are tolerated.
    uint8_t argumentCount() const { return leastArguments; }
    void setArgumentCount(uint8_t count) { leastArguments = count; }

    // Destroys an earlier implementation.
    void setImplementation(std::unique_ptr<FunctionImplementation> newImplementation);
    TBFFunctionImplementationType implementationType() const;

    // Without one, every argument is within it. Lives as long as the function.
    void setDomain(const FunctionDomain* newDomain) { domain = newDomain; }

    // What is wrong with the arguments: TBFEvaluationErrorNone within the domain, and for arguments that
    // don't reach the body. Executing the function doesn't ask.
    TBFEvaluationError errorOfDomain(std::span<Value* const> arguments) const;

    // The function's value for the arguments of the call. Too few arguments, or one that is not-a-number,
    // give not-a-number; null when there is no value, as after an error, which stands in the call's
    // context. `metadata`, if not null, receives what the function gathered, or null.
    Ref<Value> execute(const FunctionCall& call, Ref<EvalMetadata>* metadata) const;

private:
    friend class Object<Function>;

    Function(Ref<String> name, std::vector<Ref<String>> aliases, uint8_t argumentCount);
    ~Function() override = default;

    Ref<String> functionName;
    Ref<String> lowercase;
    std::vector<Ref<String>> otherNames;
    uint8_t leastArguments;
    const FunctionDomain* domain = nullptr;
    std::unique_ptr<FunctionImplementation> implementation;
};

} // namespace TBF
