#pragma once

// The words that act as operators, found by their exact spelling, with a second list behind the first.
// A list is filled on one thread while an environment is built and only read afterwards.

#include "names/wordoperators/WordOperator.h"

#include <cstddef>
#include <string_view>
#include <unordered_map>

namespace TBF {

class WordOperatorList final : public Object<WordOperatorList> {
public:
    static Ref<WordOperatorList> create() { return make<WordOperatorList>(); }

    // Replaces an operator of the same word.
    void add(Ref<WordOperator> op);

    // Null if neither this list nor the auxiliary one has the word. Borrowed.
    WordOperator* find(const HashedText& word) const;
    WordOperator* find(std::u16string_view word) const { return find(HashedText(word)); }

    // Searched after this list, unless this list stands behind it. Not owned: it has to outlive this list, as
    // the shared list does.
    void setAuxiliaryList(WordOperatorList* list);

    std::size_t count() const { return operators.size(); }

    // The list of the foundation, which stays empty: all words come with an environment.
    static WordOperatorList& shared();

private:
    friend class Object<WordOperatorList>;

    WordOperatorList() = default;
    ~WordOperatorList() override = default;

    HashFilter words;
    std::unordered_map<Ref<String>, Ref<WordOperator>, StringContentHash, StringContentEqual> operators;
    WordOperatorList* auxiliary = nullptr;
};

} // namespace TBF
