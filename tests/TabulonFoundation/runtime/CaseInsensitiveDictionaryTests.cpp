#include "runtime/Array.h"
#include "runtime/CaseInsensitiveDictionary.h"
#include "runtime/String.h"
#include "runtime/Unicode.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <set>
#include <string>
#include <vector>

namespace {

using namespace TBF;

char items[64];

// Runs steps like "+Mb 1" (set), "-mb" (remove), "!Mb 2" (set, exact case only).
class Script {
public:
    Script& operator()(const std::string& step, void** replaced = nullptr) {
        const std::size_t space = step.find(' ');
        const std::string name = step.substr(1, space == std::string::npos ? space : space - 1);
        void* const item = step[0] == '-' ? nullptr : &items[std::stoi(step.substr(space + 1))];
        dictionary->setItem(item, *String::createWithUTF8(name), step[0] == '!', replaced);
        return *this;
    }

    // The number of the item, 0 for none; negative if it was given in another casing.
    int find(const std::string& name) const {
        const std::u16string key = utf16(name);
        bool exact = true;
        const void* const item = dictionary->find(key, lowercase(key), &exact);
        if (!item) return 0;
        const int number = static_cast<int>(static_cast<const char*>(item) - items);
        return exact ? number : -number;
    }

    Ref<CaseInsensitiveDictionary> dictionary = CaseInsensitiveDictionary::create();
};

TEST(CaseInsensitiveDictionary, FindsNamesInAnyCaseUntilTwoSpellingsExist) {
    const struct {
        int line;
        std::vector<std::string> steps;
        int Mb, mb, MB, count;
    } rows[] = {
        {__LINE__, {}, 0, 0, 0, 0},
        {__LINE__, {"+Mb 1"}, 1, -1, -1, 1},
        {__LINE__, {"+Mb 1", "+Mb 2"}, 2, -2, -2, 1},
        {__LINE__, {"+Mb 1", "-mb"}, 1, -1, -1, 1},
        {__LINE__, {"+Mb 1", "-Mb"}, 0, 0, 0, 0},
        {__LINE__, {"+Mb 1", "-Mb", "+mb 2"}, -2, 2, -2, 1},
        {__LINE__, {"+Mb 1", "+mb 2"}, 1, 2, 0, 2},
        {__LINE__, {"+Mb 1", "+mb 2", "-mb"}, 1, -1, -1, 1},
        {__LINE__, {"+Mb 1", "+mb 2", "-Mb"}, -2, 2, -2, 1},
        {__LINE__, {"+Mb 1", "+mb 2", "+MB 3"}, 1, 2, 3, 3},
        {__LINE__, {"+Mb 1", "+mb 2", "+MB 3", "-mb"}, 1, 0, 3, 2},
        {__LINE__, {"+Mb 1", "+mb 2", "-MB"}, 1, 2, 0, 2},
        {__LINE__, {"!Mb 1"}, 1, 0, 0, 1},
        {__LINE__, {"!Mb 1", "+mb 2"}, 1, 2, 0, 2},
        {__LINE__, {"!Mb 1", "+Mb 2"}, 2, -2, -2, 1},
        {__LINE__, {"+Mb 1", "!Mb 2"}, 2, 0, 0, 1},
        {__LINE__, {"!Mb 1", "+mb 2", "-mb"}, 1, 0, 0, 1},
    };
    for (const auto& row : rows) {
        Script script;
        for (const std::string& step : row.steps)
            script(step);
        EXPECT_EQ(script.find("Mb"), row.Mb) << "row at line " << row.line;
        EXPECT_EQ(script.find("mb"), row.mb) << "row at line " << row.line;
        EXPECT_EQ(script.find("MB"), row.MB) << "row at line " << row.line;
        EXPECT_EQ(script.dictionary->count(), row.count) << "row at line " << row.line;
        EXPECT_EQ(script.dictionary->items().size(), static_cast<std::size_t>(row.count));
    }
}

TEST(CaseInsensitiveDictionary, TellsWhatWasReplaced) {
    Script script;
    void* replaced = nullptr;
    script("+Mb 1", &replaced);
    EXPECT_EQ(replaced, nullptr);
    script("+mb 2", &replaced);
    EXPECT_EQ(replaced, nullptr);
    script("+mb 3", &replaced);
    EXPECT_EQ(replaced, &items[2]);
    script("-mb", &replaced);
    EXPECT_EQ(replaced, &items[2]);
    script.dictionary->removeAll();
    EXPECT_EQ(script.dictionary->count(), 0);
    EXPECT_EQ(script.find("Mb"), 0);
}

// Whatever is set and removed: a spelling finds its own item, and any other spelling finds one exactly if
// a single spelling is known.
TEST(CaseInsensitiveDictionary, KeepsItsInvariantForAnySteps) {
    const std::vector<std::string> spellings{"ab", "Ab", "aB", "AB"};
    EXPECT_TRUE(rc::check([&spellings](const std::vector<std::pair<uint8_t, bool>>& steps) {
        Script script;
        std::set<std::string> known;
        for (const auto& [choice, adds] : steps) {
            const std::string& name = spellings[choice % 4];
            script((adds ? "+" : "-") + name + (adds ? " " + std::to_string(choice % 4 + 1) : ""));
            if (adds)
                known.insert(name);
            else
                known.erase(name);
            for (std::size_t index = 0; index < 4; ++index) {
                const bool isKnown = known.count(spellings[index]) > 0;
                const int found = script.find(spellings[index]);
                RC_ASSERT((found > 0) == isKnown);
                RC_ASSERT((found < 0) == (!isKnown && known.size() == 1));
                if (isKnown) RC_ASSERT(found == static_cast<int>(index + 1));
            }
            RC_ASSERT(script.dictionary->count() == static_cast<int32_t>(known.size()));
        }
    }));
}

} // namespace
