#pragma once

// Which lines of a collection declare which name, so that neither an edit nor a lookup has to walk the
// document. Belongs to a collection, which reports every line that comes, goes or has a new text.

#include "runtime/Ref.h"
#include "runtime/String.h"

#include <cstddef>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

class TCLine;

class TCLineDeclarationIndex {
public:
    // Each name stands once, for the variable as well.
    using Name = TBF::Ref<TBF::String>;
    using Names = std::unordered_set<Name, TBF::StringContentHash, TBF::StringContentEqual>;

    // Notes the name that `line` declares now, which may be none.
    void update(const std::shared_ptr<TCLine>& line);
    void remove(const std::shared_ptr<TCLine>& line);
    void removeAll();

    // Marks the line's name as changed because its place among the declarations may be another.
    void noteMove(const std::shared_ptr<TCLine>& line);

    // The lines that declare exactly this name, by ascending index.
    std::vector<std::shared_ptr<TCLine>> linesDeclaring(std::u16string_view name) const;

    // The names that more than one line declares.
    const Names& namesDeclaredRepeatedly() const { return repeatedNames; }

    bool isEmpty() const { return nameByLine.empty(); }

    // True if a line at or behind `index` declares a name.
    bool hasDeclarationOnOrAfterIndex(std::size_t index) const;

    // The names whose declaring lines are not those of the last call, and forgets them.
    Names takeChangedNames();

private:
    // The lines of one name. Most names have one, which needs no set.
    struct Declaring {
        std::shared_ptr<TCLine> only;
        std::unique_ptr<std::unordered_set<std::shared_ptr<TCLine>>> several;

        void insert(const std::shared_ptr<TCLine>& line);
        void erase(const std::shared_ptr<TCLine>& line);
        std::size_t size() const { return several ? several->size() : only ? 1 : 0; }
    };
    using LinesByName = std::unordered_map<Name, Declaring, TBF::StringContentHash, TBF::StringContentEqual>;

    LinesByName linesByName; // whose entries stay where they are
    std::unordered_map<const TCLine*, LinesByName::value_type*> nameByLine;
    Names changedNames;
    Names repeatedNames;
};
