#include "bootstrap.h"

#include "bundle/Bundle.h"
#include "environment/TCEnvironment.h"
#include "expressions/TCExpressionToken.h"
#include "expressions/TCParsedExpression.h"
#include "expressions/TCReadingShortcuts.h"
#include "lines/TCLine.h"
#include "lines/TCLineCollection.h"
#include "results/TCResult.h"
#include "runtime/Unicode.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

// A case file's line without the answer that is expected; other files' lines as they are.
std::string textOf(std::string line) {
    for (const char* const mark : {" =>", "\t"})
        line.erase(std::min(line.size(), line.find(mark)));
    return line;
}

std::vector<std::string> documentOf(const fs::path& file) {
    std::ifstream stream(file);
    std::vector<std::string> texts;
    for (std::string line; std::getline(stream, line);)
        texts.push_back(textOf(std::move(line)));
    return texts;
}

std::vector<fs::path> corpus() {
    std::vector<fs::path> files;
    for (const char* const folder : {"tests/cases", "bench/lines", "examples"}) {
        for (const auto& entry : fs::recursive_directory_iterator(folder)) {
            const std::string name = entry.path().filename().string();
            if (entry.path().extension() == ".txt" && name != "CMakeLists.txt") files.push_back(entry.path());
        }
    }
    return files;
}

std::string dump(const TCParsedExpression* parsed) {
    if (!parsed) return "none";
    std::string text;
    for (const auto& token : parsed->tokens()) {
        for (const TCRange range : {token->lowLevelRange(), token->range(), token->highLevelRange()})
            text += std::to_string(range.location) + '+' + std::to_string(range.length) + ' ';
        text += std::to_string(token->type()) + '.' + std::to_string(token->subType()) + "; ";
    }
    return text;
}

// All that is read of each line, and its answer.
std::vector<std::string> readingsOf(const std::vector<std::string>& texts) {
    TCLineCollection document;
    document.beginBatchUpdate();
    for (const std::string& text : texts)
        document.addLine(TCLine::lineWithExpressionString(TBF::utf16(text)));
    document.endBatchUpdate();
    std::vector<std::string> readings;
    for (std::size_t index = 0; index < texts.size(); ++index) {
        const auto line = document.lineAtIndex(index);
        std::string reading = texts[index] + "\n  kind " + std::to_string(line->lineType()) + ", shown " +
                              dump(line->parsedExpression().get()) + "\n  refers to ";
        for (const auto& [type, number] : line->referencesToLines())
            reading += std::to_string(type) + ':' + std::to_string(number) + ' ';
        reading += "\n  uses ";
        for (const std::u16string& name : line->usedVariableNames())
            reading += TBF::utf8(name) + ' ';
        const auto answer = line->result();
        reading += "\n  answer " + TBF::utf8(line->formattedResult().value_or(u"none")) + ", exactly " +
                   TBF::utf8(answer ? answer->completeStringValue().value_or(u"none") : u"none") +
                   ", error " + std::to_string(answer ? answer->errorType() : 0);
        readings.push_back(std::move(reading));
    }
    return readings;
}

} // namespace

// Whatever a shortcut spares a line, it may change nothing of what is read.
TEST(ReadingShortcuts, TheWholeRoadGivesTheSameForEveryLineThereIs) {
    const fs::path dataFolder = fs::path(testing::TempDir()) / ("shortcuts-" + std::to_string(getpid()));
    fs::create_directories(dataFolder);
    const platform::Bundle bundle{"example.shortcuts", CONTENT_FOLDER};
    setBootstrapChoices({"", dataFolder.string()});
    bootstrap(&bundle);

    std::size_t linesRead = 0;
    for (const fs::path& file : corpus()) {
        const std::vector<std::string> texts = documentOf(file);
        const auto shortened = readingsOf(texts);
        TCReadingShortcuts::setEnabled(false);
        const auto whole = readingsOf(texts);
        TCReadingShortcuts::setEnabled(true);
        ASSERT_EQ(shortened.size(), whole.size());
        for (std::size_t index = 0; index < whole.size(); ++index)
            EXPECT_EQ(shortened[index], whole[index]) << file << ", line " << index + 1;
        linesRead += whole.size();
    }
    EXPECT_GT(linesRead, 1000u) << "the corpus wasn't found";
    fs::remove_all(dataFolder);
}
