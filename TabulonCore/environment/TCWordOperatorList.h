#pragma once

// The words that act as operators in an environment. Filled while an environment is made, and on a change of
// localization; only read otherwise.

#include "names/wordoperators/WordOperatorList.h"
#include "runtime/Ref.h"

#include <memory>

class TCWordOperator;

class TCWordOperatorList {
public:
    // Of a new, empty foundation list, or of the given one, with the foundation's own list after it.
    TCWordOperatorList();
    explicit TCWordOperatorList(TBF::Ref<TBF::WordOperatorList> list);
    ~TCWordOperatorList();

    // A new list with the operators that every environment has.
    static std::shared_ptr<TCWordOperatorList> listWithStandardWordOperators();

    // That of the current environment; null without one.
    static std::shared_ptr<TCWordOperatorList> sharedList();

    // Replaces an operator of the same word.
    void addWordOperator(const TCWordOperator& op);

    // Borrowed; never null.
    TBF::WordOperatorList* tbfWordOperatorList() const { return list.get(); }

private:
    TBF::Ref<TBF::WordOperatorList> list;
};
