#include "analysis/Expression.h"

namespace TBF {

Ref<Expression> Expression::create(String* string) {
    return make<Expression>(TBF::retain(string));
}

Ref<Expression> Expression::create(std::u16string_view text) {
    return make<Expression>(String::create(text));
}

} // namespace TBF
