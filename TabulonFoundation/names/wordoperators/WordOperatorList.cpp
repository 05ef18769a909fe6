#include "names/wordoperators/WordOperatorList.h"

namespace TBF {

void WordOperatorList::add(Ref<WordOperator> op) {
    if (!op) return;
    Ref<String> word = TBF::retain(const_cast<String*>(&op->word()));
    words.add(word->hash());
    operators.insert_or_assign(std::move(word), std::move(op));
}

WordOperator* WordOperatorList::find(const HashedText& word) const {
    const auto found = words.mayHold(word.hash) ? operators.find(word) : operators.end();
    if (found != operators.end()) return found->second.get();
    return auxiliary ? auxiliary->find(word) : nullptr;
}

void WordOperatorList::setAuxiliaryList(WordOperatorList* list) {
    for (const WordOperatorList* each = list; each; each = each->auxiliary)
        if (each == this) return;
    auxiliary = list;
}

WordOperatorList& WordOperatorList::shared() {
    static const Ref<WordOperatorList>& list = *new Ref<WordOperatorList>(create());
    return *list;
}

} // namespace TBF
