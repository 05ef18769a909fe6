#pragma once

// Documents under edits, beside documents that are loaded afresh from the same texts: after every edit each
// answer must be the one that the fresh load has, and the delegate must have heard of every line that has
// another answer than before. A scenario is plain data, so that it can be made from a seed
// or from a fuzzer's bytes, written out, and cut down to what fails. Used on one thread, with an environment
// set.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <random>
#include <span>
#include <string>
#include <vector>

// Where the choices of a scenario come from.
class Choices {
public:
    virtual ~Choices() = default;
    virtual uint32_t below(uint32_t bound) = 0; // of a bound above 0
    virtual bool areUsedUp() const { return false; }
};

class SeededChoices final : public Choices {
public:
    explicit SeededChoices(uint64_t seed)
        : random(seed) {}
    uint32_t below(uint32_t bound) override { return static_cast<uint32_t>(random() % bound); }

private:
    std::mt19937_64 random;
};

// A byte for each choice; 0 once they are used up.
class ByteChoices final : public Choices {
public:
    explicit ByteChoices(std::span<const uint8_t> allBytes)
        : bytes(allBytes) {}
    uint32_t below(uint32_t bound) override;
    bool areUsedUp() const override { return bytes.empty(); }

private:
    std::span<const uint8_t> bytes;
};

enum class EditKind : uint8_t {
    SetText = 0,
    Insert = 1,
    Remove = 2,
    Move = 3,
    BeginBatch = 4,
    EndBatch = 5,
    ModeOfDocument = 6,
    ModeOfLine = 7,
    ReadInLocale = 8,    // the same texts under other characters
    ConvertToLocale = 9, // other texts of the same meaning
    PutBack = 10,        // the line that was removed last, as it left
    RemoveAll = 11,
    Reevaluate = 12, // all lines, as after a change of a unit or a global name
    AskForAnswer = 13,
    SetGlobalName = 14,
    RemoveGlobalName = 15,
};

// Positions are taken modulo what the document holds, so that a scenario stays one when edits are left out.
struct Edit {
    EditKind kind = EditKind::SetText;
    uint32_t position = 0;
    uint32_t other = 0; // the destination of a move, a mode, a locale
    std::string text;   // UTF-8
};

struct EditScenario {
    bool followsReferences = false; // a delegate rewrites references when lines move
    bool writesElsewhere = false;   // the delegate writes another line at the same time
    bool comparesTokens = false;    // the tokens for display as well
    bool sharesOptions = false;     // all lines have the same formatting options
    std::vector<std::string> texts;
    std::vector<Edit> edits;
};

EditScenario anyEditScenario(Choices& choices, uint32_t mostEdits);

struct EditDifference {
    std::size_t countOfEdits = 0; // after which the answers differ; 0 is the first load
    std::string what;             // for people: both sides, and the texts
};

// None as long as everything agrees.
std::optional<EditDifference> firstDifference(const EditScenario& scenario);

// A smaller scenario that fails as well, from which nothing can be left out.
EditScenario minimized(EditScenario scenario);

std::string description(const EditScenario& scenario);

// Starts the settings, and the environment with all units and phrases of the content bundle.
void startEnvironmentForEdits(const char* contentBundle, bool allowsRedefinitions);
