#include "names/functions/StandardFunctions.h"

#include "names/functions/FunctionList.h"
#include "numbers/Decimal.h"
#include "units/EvalMetadata.h"

#include <memory>
#include <variant>

namespace TBF {
namespace {

using Body = std::variant<FunctionImplementationLegacyMAPM::Body, FunctionImplementationMAPM::Body,
                          FunctionImplementationTBFValue::Body>;

int sizeAgainstOne(M_APM x) {
    Decimal size;
    m_apm_absolute_value(size, x);
    return m_apm_compare(size, MM_One);
}

bool isWithinOne(std::span<const M_APM> arguments) {
    return sizeAgainstOne(arguments[0]) <= 0;
}

bool isStrictlyWithinOne(std::span<const M_APM> arguments) {
    return sizeAgainstOne(arguments[0]) < 0;
}

bool isAtLeastOne(std::span<const M_APM> arguments) {
    return m_apm_compare(arguments[0], MM_One) >= 0;
}

// 0 has no negative powers.
bool isPower(std::span<const M_APM> arguments) {
    return m_apm_sign(arguments[0]) != 0 || m_apm_sign(arguments[1]) >= 0;
}

// Ways to take so many of x; x itself may be a fraction.
bool isChoice(std::span<const M_APM> arguments) {
    const M_APM taken = arguments[1];
    return m_apm_sign(taken) >= 0 && m_apm_is_integer(taken) && m_apm_compare(arguments[0], taken) >= 0;
}

constexpr FunctionDomain withinOne{isWithinOne, TBFEvaluationErrorOutsideDomain};
constexpr FunctionDomain strictlyWithinOne{isStrictlyWithinOne, TBFEvaluationErrorOutsideDomain};
constexpr FunctionDomain atLeastOne{isAtLeastOne, TBFEvaluationErrorOutsideDomain};
constexpr FunctionDomain choices{isChoice, TBFEvaluationErrorOutsideDomain};
constexpr FunctionDomain powers{isPower, TBFEvaluationErrorDivideByZero};

struct Row {
    const char* name;
    const char* alias; // or null
    uint8_t argumentCount;
    Body body;
    // Null for all numbers, and where the body itself tells of an error.
    const FunctionDomain* domain = nullptr;
};

// Names with an underscore are written by the engine itself, never by a user.
constexpr Row table[] = {
    {"sin", nullptr, 1, &functions::sine},
    {"cos", nullptr, 1, &functions::cosine},
    {"tan", nullptr, 1, &functions::tangent},
    {"asin", nullptr, 1, &functions::arcSine, &withinOne},
    {"acos", nullptr, 1, &functions::arcCosine, &withinOne},
    {"atan", nullptr, 1, &functions::arcTangent},
    {"cosec", "csc", 1, &functions::cosecant},
    {"sec", nullptr, 1, &functions::secant},
    {"cotan", "cot", 1, &functions::cotangent},
    {"sinh", nullptr, 1, &functions::hyperbolicSine},
    {"cosh", nullptr, 1, &functions::hyperbolicCosine},
    {"tanh", nullptr, 1, &functions::hyperbolicTangent},
    {"asinh", nullptr, 1, &functions::inverseHyperbolicSine},
    {"acosh", nullptr, 1, &functions::inverseHyperbolicCosine, &atLeastOne},
    {"atanh", nullptr, 1, &functions::inverseHyperbolicTangent, &strictlyWithinOne},
    {"_mod", nullptr, 2, &functions::remainder},
    {"abs", nullptr, 1, &functions::absoluteValue},
    {"num", nullptr, 1, &functions::digitsAlone},
    {"floor", nullptr, 1, &functions::floor},
    {"ceil", nullptr, 1, &functions::ceiling},
    {"trunc", nullptr, 1, &functions::truncate},
    {"round", nullptr, 1, &functions::round},
    {"choose", nullptr, 2, &functions::choose, &choices},
    {"sqrt", "√", 1, &functions::squareRoot},
    {"cbrt", nullptr, 1, &functions::cubeRoot},
    {"_pow", "pow", 2, &functions::power, &powers},
    {"_fact", nullptr, 1, &functions::factorial},
    {"exp", nullptr, 1, &functions::exponential},
    {"_e10", nullptr, 2, &functions::timesPowerOfTen},
    {"ln", "loge", 1, &functions::naturalLogarithm},
    {"log", "log10", 1, &functions::commonLogarithm},
    {"log2", nullptr, 1, &functions::binaryLogarithm},
    {"_lsl", nullptr, 2, &functions::shiftLeft},
    {"_lsr", nullptr, 2, &functions::shiftRight},
    {"_bitwise_or", nullptr, 2, &functions::bitwiseOr},
    {"_bitwise_and", nullptr, 2, &functions::bitwiseAnd},
    {"_bitwise_xor", nullptr, 2, &functions::bitwiseXor},
    {"_bitwise_not", nullptr, 1, &functions::bitwiseNot},
    {"test_add1", nullptr, 1, &functions::sumOfOne},
    {"test_add2", nullptr, 2, &functions::sumOfTwo},
    {"test_add3", nullptr, 3, &functions::sumOfThree},
    {"__inf", nullptr, 0, &functions::infinity},
    {"__neg_inf", nullptr, 0, &functions::negativeInfinity},
    {"__nan", nullptr, 0, &functions::notANumber},
};

std::unique_ptr<FunctionImplementation> makeImplementation(FunctionImplementationLegacyMAPM::Body body) {
    return std::make_unique<FunctionImplementationLegacyMAPM>(body);
}
std::unique_ptr<FunctionImplementation> makeImplementation(FunctionImplementationMAPM::Body body) {
    return std::make_unique<FunctionImplementationMAPM>(body);
}
std::unique_ptr<FunctionImplementation> makeImplementation(FunctionImplementationTBFValue::Body body) {
    return std::make_unique<FunctionImplementationTBFValue>(body);
}

Ref<FunctionList> makeStandardList() {
    Ref<FunctionList> list = FunctionList::create();
    for (const Row& row : table) {
        std::vector<Ref<String>> aliases;
        if (row.alias) aliases.push_back(String::createWithUTF8(row.alias));
        const Ref<Function> function =
            Function::create(String::createWithUTF8(row.name), std::move(aliases), row.argumentCount);
        function->setImplementation(std::visit([](auto body) { return makeImplementation(body); }, row.body));
        function->setDomain(row.domain);
        list->add(function);
    }
    return list;
}

} // namespace

FunctionList& FunctionList::standard() {
    static FunctionList* const list = makeStandardList().leak(); // lives as long as the process
    return *list;
}

} // namespace TBF
