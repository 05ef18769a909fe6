#include "analysis/Token.h"

namespace TBF {

Ref<Token> Token::create(TBFRange range, token_type type, TBFTokenSubType subType, String* string) {
    return make<Token>(range, type, subType, TBF::retain(string));
}

} // namespace TBF
