// edits_against_loading DOCUMENTS [--first SEED] [--edits N] [--redefinitions]: random documents with up to N
// edits each (60 unless given), every answer compared with that of a fresh load after each edit. Prints the
// counts, and for a failure its seed and the smallest scenario that fails in the same way; ends with 1 then.

#include "EditedDocument.h"

#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <string_view>

namespace {

struct Wish {
    uint64_t documents = 0;
    uint64_t firstSeed = 1;
    uint32_t mostEdits = 60;
    bool redefines = false;
};

Wish wishOf(int argc, char** argv) {
    Wish wish;
    for (int i = 1; i < argc; ++i) {
        const std::string_view word = argv[i];
        const bool hasValue = i + 1 < argc;
        if (word == "--redefinitions")
            wish.redefines = true;
        else if (word == "--first" && hasValue)
            wish.firstSeed = std::strtoull(argv[++i], nullptr, 10);
        else if (word == "--edits" && hasValue)
            wish.mostEdits = static_cast<uint32_t>(std::strtoul(argv[++i], nullptr, 10));
        else
            wish.documents = std::strtoull(argv[i], nullptr, 10);
    }
    return wish;
}

} // namespace

int main(int argc, char** argv) {
    const Wish wish = wishOf(argc, argv);
    if (wish.documents == 0 || wish.mostEdits == 0) {
        std::fputs("edits_against_loading DOCUMENTS [--first SEED] [--edits N] [--redefinitions]\n", stderr);
        return 2;
    }
    startEnvironmentForEdits(CONTENT_BUNDLE, wish.redefines);
    constexpr uint64_t mostFailuresShown = 3;
    uint64_t edits = 0;
    uint64_t failures = 0;
    for (uint64_t seed = wish.firstSeed; seed < wish.firstSeed + wish.documents; ++seed) {
        SeededChoices choices(seed);
        const EditScenario scenario = anyEditScenario(choices, wish.mostEdits);
        edits += scenario.edits.size();
        if (!firstDifference(scenario)) continue;
        if (++failures > mostFailuresShown) continue;
        const EditScenario smallest = minimized(scenario);
        const auto difference = firstDifference(smallest);
        std::printf("seed %llu\n%s%s\n", static_cast<unsigned long long>(seed), description(smallest).c_str(),
                    difference ? difference->what.c_str() : "  comes and goes\n");
        std::fflush(stdout);
    }
    std::printf("%llu documents, %llu edits, %llu failures\n",
                static_cast<unsigned long long>(wish.documents), static_cast<unsigned long long>(edits),
                static_cast<unsigned long long>(failures));
    return failures == 0 ? 0 : 1;
}
