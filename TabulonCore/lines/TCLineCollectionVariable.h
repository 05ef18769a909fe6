#pragma once

// A name that lines of a document declare. Each declaring line, an owner, rules a range of line indexes,
// which holds the value that the line last had: the first owner rules from the top, each later one from its
// own index on. Belongs to the variable list of one collection, which keeps the owners up to date.

#include "variables/TCVariable.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>

class TCLine;

class TCLineCollectionVariable final : public TCVariable {
public:
    using OwnerLines = std::unordered_set<std::shared_ptr<TCLine>>;

    // Without a value. A line that isn't null becomes the owner of all line indexes.
    static std::shared_ptr<TCLineCollectionVariable> variableWithName(std::u16string_view name,
                                                                      std::shared_ptr<TCLine> line = nullptr);
    static std::shared_ptr<TCLineCollectionVariable> variableWithName(TBF::Ref<TBF::String> name,
                                                                      std::shared_ptr<TCLine> line = nullptr);
    TCLineCollectionVariable(Passkey key, TBF::Ref<TBF::Variable> variable);
    ~TCLineCollectionVariable() override;

    // What an owner's evaluation gave; null takes its value back.
    void setValueResult(const std::shared_ptr<TCResult>& result, const std::shared_ptr<TCLine>& ownerLine);
    void setValueResult(const TCResult* result, TCRange lineIndexRange);

    // The value that rules at a line; none without one.
    std::optional<std::u16string> delocalizedValueForLineAtIndex(std::size_t index) const;
    std::optional<std::u16string> localizedValueForLineAtIndex(std::size_t index) const;
    std::optional<std::u16string> valueForLineAtIndex(std::size_t index) const {
        return localizedValueForLineAtIndex(index);
    }

    // Owners. A range of length -1 reaches to the end, and overrides what stood there. A change of owners
    // stands between `begin` and `end`, which brings the values to the ranges they rule then.
    bool isOwnerLine(const std::shared_ptr<TCLine>& line) const;
    std::size_t countOfOwnerLines() const;
    OwnerLines ownerLines() const;
    std::shared_ptr<TCLine> lastOwnerLine() const;                            // null without owners
    std::shared_ptr<TCLine> ownerLineForLineAtIndex(std::size_t index) const; // that rules there; may be null
    OwnerLines previousOwnerLines() const;
    void addOwnerLine(const std::shared_ptr<TCLine>& line, TCRange lineIndexRange);
    void removeAllOwnerLines();
    void beginBatchOwnerLinesChange();
    void endBatchOwnerLineChange();

    // The first range of the owner; none if all of its ranges have been overridden, or for another line.
    std::optional<TCRange> indexRangeForOwnerLine(const std::shared_ptr<TCLine>& line) const;

    // The line given at the making; may be null.
    std::shared_ptr<TCLine> line() const { return rare ? rare->firstLine : nullptr; }
    void setLine(std::shared_ptr<TCLine> line);

private:
    using Ranges = std::map<int64_t, std::shared_ptr<TCLine>>; // by first index; null rules nothing

    void splitRangeAt(int64_t index);

    using Results = std::unordered_map<std::shared_ptr<TCLine>, std::shared_ptr<TCResult>>;

    // Of a name that more than one line declares, or that doesn't rule all lines.
    struct Several {
        OwnerLines owners;
        Ranges ranges;
        mutable std::unordered_map<const TCLine*, TCRange> rangeByOwner; // of `ranges`, made on demand
        Results valueResults;
    };

    Several& several();
    void backToOne();
    bool ownsAsBefore() const;

    // Nearly all names have one owner, which rules everything. A document may have a hundred thousand.
    std::shared_ptr<TCLine> onlyOwner;
    std::shared_ptr<TCLine> ownerOfOnlyResult; // null without a result
    std::shared_ptr<TCResult> onlyResult;
    std::unique_ptr<Several> owners; // null as long as the above serve

    // What few names have: the line given at the making, and owners from before the last change of them, in
    // either form.
    struct Rare {
        std::shared_ptr<TCLine> firstLine;
        std::shared_ptr<TCLine> previousOnlyOwner;
        std::unique_ptr<Several> previous;
    };
    Rare& madeRare();
    std::unique_ptr<Rare> rare; // null as long as there is nothing of it
};
