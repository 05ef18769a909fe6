// What marking tokens costs: a document of 10,000 lines from its file to its page, beside the same page with
// each line's text as it stands. bench_marking DOCUMENT

#include "GeneratePreviewForURL.h"
#include "bootstrap.h"
#include "export/TKAnswerHTML.h"
#include "export/TKHTMLText.h"
#include "lines/TCFile.h"
#include "lines/TCLine.h"
#include "lines/TCLineCollection.h"
#include "results/TCResult.h"
#include "results/TCResultFormattingOptions.h"
#include "runtime/Unicode.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>

namespace {

constexpr int rounds = 7;

std::string plainPage(TCLineCollection& collection) {
    std::string page;
    for (const auto& line : collection) {
        page += "<tr class=\"line\"><td class=\"line_number\">" + std::to_string(line->index() + 1) +
                "</td><td class=\"expression\"><pre><div style=\"text-align: left;\">" +
                TBF::utf8(TKHTMLEscaped(line->expressionString().value_or(u""))) +
                "</div></pre></td><td class=\"answer\">";
        if (const auto result = line->result())
            page += TBF::utf8(TKAnswerHTML(*result, line->formattingOptions()));
        page += "</td></tr>\n";
    }
    return page;
}

template <typename MakePage>
double bestSeconds(const std::string& document, MakePage makePage) {
    double best = 1e9;
    for (int round = 0; round < rounds; ++round) {
        const auto start = std::chrono::steady_clock::now();
        const auto collection = TCFile::lineCollectionFromPath(document);
        if (!collection || makePage(collection).empty()) return 0;
        const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
        best = std::min(best, seconds.count());
    }
    return best;
}

} // namespace

int main(int count, char** values) {
    if (count != 2) return 2;
    bootstrap(nullptr);
    const std::string document = values[1];
    const double plain = bestSeconds(document, [](const auto& collection) { return plainPage(*collection); });
    const double marked = bestSeconds(document, [](const auto& collection) {
        return htmlStringForLineCollection(collection).value_or("");
    });
    if (plain == 0 || marked == 0) return 1;
    std::printf("%-44s%9.3f s\n", "page of 10,000 lines, texts as they stand", plain);
    std::printf("%-44s%9.3f s   %.2f times that\n", "page of 10,000 lines, tokens marked", marked,
                marked / plain);
}
