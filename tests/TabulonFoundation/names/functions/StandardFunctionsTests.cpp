#include "names/functions/FunctionList.h"

#include "names/functions/Function.h"
#include "numbers/MAPMContext.h"
#include "numbers/Number.h"
#include "numbers/TBFMAPMExtensions.h"
#include "results/EvaluationContext.h"
#include "units/Value.h"

#include <gtest/gtest.h>

using namespace TBF;

namespace {

struct Row {
    std::string name;
    std::vector<std::string> arguments; // "5%" is a percentage, "inf" and "nan" are specials
    std::string expected;               // the first characters of the answer, or of "error N"
    int32_t mode = 2;                   // 1 degrees, 2 radians
};

Ref<Value> argument(const std::string& text) {
    if (text == "inf") return Value::create(Number::infinity());
    if (text == "-inf") return Value::create(Number::negativeInfinity());
    if (text == "nan") return Value::create(Number::notANumber());
    if (text.back() == '%')
        return Value::create(Number::create(text.substr(0, text.size() - 1).c_str(), TBFNumberTypePercent));
    return Value::create(Number::create(text.c_str(), TBFNumberTypeDecimal));
}

std::string text(const Value& value) {
    switch (value.number()->specialType()) {
    case TBFNumberSpecialTypeInfinity:
        return "inf";
    case TBFNumberSpecialTypeNegativeInfinity:
        return "-inf";
    case TBFNumberSpecialTypeNaN:
        return "nan";
    case TBFNumberSpecialTypeNone:
        break;
    }
    return TBF_mapm_to_fitted_string(value.number()->mapmRef(), 100) +
           (value.number()->isPercent() ? "%" : "");
}

std::string call(const Row& row) {
    const Function* const function =
        FunctionList::standard().find(*String::createWithUTF8(row.name)).function;
    if (!function) return "no function";
    std::vector<Ref<Value>> owners;
    std::vector<Value*> values;
    for (const std::string& word : row.arguments)
        values.push_back(owners.emplace_back(argument(word)).get());
    const Ref<MAPMContext> registers = MAPMContext::create(100);
    const Ref<EvaluationContext> context = EvaluationContext::create(row.mode);
    const Ref<Value> value = function->execute({values, *registers, context.get()}, nullptr);
    if (context->error()) return "error " + std::to_string(context->error());
    return value ? text(*value) : "null";
}

void expectRows(const std::vector<Row>& rows) {
    for (const Row& row : rows) {
        const std::string result = call(row);
        const bool isPrefix = row.expected.ends_with("..");
        const std::string expected = row.expected.substr(0, row.expected.size() - (isPrefix ? 2 : 0));
        EXPECT_EQ(isPrefix ? result.substr(0, expected.size()) : result, expected)
            << row.name << " of " << (row.arguments.empty() ? "nothing" : row.arguments[0]);
    }
}

// Outside of its domain a function keeps the value that its body gives; the domain tells that it says
// nothing.
TEST(StandardFunctions, TellWhatIsOutsideOfTheirDomain) {
    const struct {
        Row row;
        TBFEvaluationError error;
    } rows[] = {
        {{"asin", {"2"}, "0"}, TBFEvaluationErrorOutsideDomain},
        {{"acos", {"-1.01"}, "0"}, TBFEvaluationErrorOutsideDomain},
        {{"asin", {"50%"}, "0"}, TBFEvaluationErrorOutsideDomain},
        {{"asin", {"-1"}, "-1.57.."}, TBFEvaluationErrorNone},
        {{"acosh", {"0.5"}, "0"}, TBFEvaluationErrorOutsideDomain},
        {{"acosh", {"1"}, "0"}, TBFEvaluationErrorNone},
        {{"atanh", {"-1"}, "0"}, TBFEvaluationErrorOutsideDomain},
        {{"atanh", {"0.999"}, "3.8.."}, TBFEvaluationErrorNone},
        {{"pow", {"0", "-1"}, "0"}, TBFEvaluationErrorDivideByZero},
        {{"pow", {"0", "0"}, "1"}, TBFEvaluationErrorNone},
        {{"choose", {"3", "5"}, "0.05"}, TBFEvaluationErrorOutsideDomain},
        {{"choose", {"4.5", "2"}, "7.875"}, TBFEvaluationErrorNone},
        // What doesn't reach the body, and a function without a domain.
        {{"asin", {"inf"}, "nan"}, TBFEvaluationErrorNone},
        {{"pow", {"0"}, "nan"}, TBFEvaluationErrorNone},
        {{"sin", {"0"}, "0"}, TBFEvaluationErrorNone},
    };
    for (const auto& [row, error] : rows) {
        expectRows({row});
        std::vector<Ref<Value>> owners;
        std::vector<Value*> values;
        for (const std::string& word : row.arguments)
            values.push_back(owners.emplace_back(argument(word)).get());
        const auto name = String::createWithUTF8(row.name);
        EXPECT_EQ(FunctionList::standard().find(*name).function->errorOfDomain(values), error)
            << row.name << " of " << row.arguments[0];
    }
}

TEST(StandardFunctions, AnglesFollowTheMode) {
    expectRows({
        {"sin", {"180"}, "0", 1},
        {"cos", {"90"}, "0", 1},
        {"sin", {"30"}, "0.5", 1},
        {"tan", {"45"}, "1", 1},
        {"sin", {"1"}, "0.8414709848078965066525023216302989996225..", 2},
        {"atan", {"1"}, "0.7853981633974483096156608458198757210492..", 2},
        {"asin", {"1"}, "90.00000000000000000000000000000000000000000000000000000000000..", 1},
        {"SIN", {"90"}, "1", 1},
    });
}

TEST(StandardFunctions, PolesAreInfiniteOrErrorsOrZero) {
    expectRows({
        {"tan", {"90"}, "inf", 1},
        {"tan", {"270"}, "inf", 1},
        {"cotan", {"90"}, "0", 1},
        {"cot", {"0"}, "error 9", 1},
        {"sec", {"90"}, "error 9", 1},
        {"csc", {"180"}, "error 9", 1},
        {"csc", {"30"}, "2.00000000000000000000000000000000000000000000000000000000000000..", 1},
    });
}

TEST(StandardFunctions, LogarithmsAndRootsHaveTheirDomains) {
    expectRows({
        {"ln", {"0"}, "-inf"},
        {"log", {"-1"}, "error 8"},
        {"log", {"1000"}, "3"},
        {"log2", {"8"}, "3"},
        {"loge", {"1"}, "0"},
        {"sqrt", {"-4"}, "nan"},
        {"cbrt", {"-8"}, "nan"},
        {"√",
         {"2"},
         "1."
         "41421356237309504880168872420969807856967187537694807317667973799073247846210703885038753432764157."
         "."},
        {"sqrt", {"inf"}, "nan"},
    });
}

TEST(StandardFunctions, ANumberKeepsBeingAPercentage) {
    expectRows({
        {"floor", {"2.5%"}, "2%"},
        {"ceil", {"-2.5"}, "-2"},
        {"trunc", {"-2.5"}, "-2"},
        {"round", {"2.5"}, "3"},
        {"round", {"-2.5"}, "-3"},
        {"abs", {"-7%"}, "7%"},
        {"num", {"7%"}, "7"},
        {"floor",
         {"0."
          "99999999999999999999999999999999999999999999999999999999999999999999999999999999999999999999999999"
          "999999999"},
         "1"},
    });
}

TEST(StandardFunctions, ArgumentsThatAreMissingGiveNotANumberAndSparesAreIgnored) {
    expectRows({
        {"pow", {"2"}, "nan"},
        {"sin", {"nan"}, "nan"},
        {"sin", {"inf"}, "nan"},
        {"tan", {"inf"}, "nan"},
        {"pow", {"2", "10", "7"}, "1024"},
        {"test_add2", {"1", "2", "4"}, "3"},
        {"__inf", {}, "inf"},
    });
}

TEST(StandardFunctions, ArithmeticOnDigits) {
    expectRows({
        {"_mod", {"-7", "3"}, "-1"},
        {"choose", {"5", "2"}, "10"},
        {"choose", {"1000000", "2"}, "499999500000"},
        {"choose", {"999999999999", "888888"}, "nan"},
        {"_fact", {"5"}, "120"},
        {"_fact", {"2.5"}, "nan"},
        {"_fact", {"100000"}, "nan"},
        {"pow", {"2", "1000000"}, "nan"},
        {"pow", {"-8", "0.5"}, "nan"},
        {"_e10", {"2", "3"}, "2000"},
        {"_lsl", {"3", "4"}, "48"},
        {"_lsr", {"49", "4"}, "3"},
    });
}

TEST(StandardFunctions, ExponentialsOfAnySizeComeToAnEnd) {
    expectRows({
        {"exp",
         {"1"},
         "2."
         "71828182845904523536028747135266249775724709369995957496696762772407663035354759457138217852516642."
         "."},
        {"exp", {"-2000000"}, "0"},
        {"exp", {"-inf"}, "0"},
        {"exp", {"inf"}, "inf"},
        {"exp", {"30000000"}, "error 3"},
        {"exp", {"1e30"}, "error 3"},
        {"tanh", {"1e30"}, "1"},
        {"sinh", {"1e30"}, "nan"},
    });
}

TEST(StandardFunctions, BitsAreAsWideAsTheOperands) {
    expectRows({
        {"_bitwise_and", {"6", "3"}, "2"},
        {"_bitwise_or", {"6", "3"}, "7"},
        {"_bitwise_xor", {"6", "3"}, "5"},
        {"_bitwise_xor", {"5", "5"}, "0"},
        {"_bitwise_not", {"5"}, "2"},
        {"_bitwise_not", {"0"}, "1"},
        {"_bitwise_not", {"255"}, "0"},
        {"_bitwise_or", {"-5", "0"}, "11"},
        {"_bitwise_or", {"1e2000", "1"}, "nan"},
    });
}

TEST(FunctionList, ANameBeatsAnAliasAndAListItsParent) {
    const Ref<FunctionList> parent = FunctionList::create();
    const Ref<FunctionList> list = FunctionList::create();
    list->setParentList(parent);
    const auto add = [](FunctionList& target, const char* name, const char* alias) {
        const Ref<Function> function =
            Function::create(String::createWithUTF8(name), {String::createWithUTF8(alias)});
        target.add(function);
        return function;
    };
    const Ref<Function> outer = add(*parent, "area", "surface");
    const Ref<Function> inner = add(*list, "Surface", "A");

    const FunctionList::Match bySpelling = list->find(*String::createWithUTF8("surface"));
    EXPECT_EQ(bySpelling.function, inner.get());
    EXPECT_FALSE(bySpelling.exactCase);
    EXPECT_FALSE(bySpelling.fromParent);
    const FunctionList::Match above = list->find(*String::createWithUTF8("area"));
    EXPECT_EQ(above.function, outer.get());
    EXPECT_TRUE(above.exactCase);
    EXPECT_TRUE(above.fromParent);
    EXPECT_EQ(list->find(*String::createWithUTF8("volume")).function, nullptr);
    ASSERT_EQ(outer->aliases().size(), 1u);
    EXPECT_EQ(outer->aliases()[0]->utf8(), "surface");
}

} // namespace
