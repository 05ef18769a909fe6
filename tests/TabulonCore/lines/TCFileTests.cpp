#include "environment/TCSimpleLocale.h"
#include "lines/LineCollectionTesting.h"
#include "lines/TCFile.h"
#include "results/TCResult.h"
#include "results/TCResultFormattingOptions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// A file in the temporary folder, gone at the end.
class DocumentFile {
public:
    explicit DocumentFile(const std::string& sections = "")
        : path(testing::TempDir() + "tabulon-file-test-" + std::to_string(getpid()) + ".xml") {
        std::ofstream(path) << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<data>" << sections << "</data>";
    }
    ~DocumentFile() { std::remove(path.c_str()); }
    std::string contents() const {
        std::ifstream file(path);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    const std::string path;
};

const std::string current = "<info><version>0.6</version></info>";

std::string lineWith(const std::string& expression, const std::string& attribute = "",
                     const std::string& value = "") {
    return "<line><expression>" + expression + "</expression><formatting><item><key>" + attribute +
           "</key><value>" + value + "</value></item></formatting></line>";
}

TEST(TCFile, keepsTheNumbersOfAFileWithinWhatAnAnswerCanShow) {
    struct {
        const char* key;
        const char* value;
        uint32_t places, granularity;
    } const rows[] = {
        {"decimal_places", "100", 100, 0},   {"decimal_places", "101", 100, 0},
        {"decimal_places", "60000", 100, 0}, {"decimal_places", "99999999999999999999", 100, 0},
        {"decimal_places", "-1", 0, 0},      {"decimal_places", "three", 0, 0},
        {"sn_exp_granularity", "3", 10, 3},  {"sn_exp_granularity", "30000", 10, 100},
        {"sn_exp_granularity", "-5", 10, 0},
    };
    for (const auto& row : rows) {
        const DocumentFile file(current + "<lines>" + lineWith("1/3", row.key, row.value) + "</lines>");
        const auto options =
            TCFile::lineCollectionFromPath(file.path)->lineAtIndex(0)->customFormattingOptions();
        EXPECT_EQ(options->decimalPlaces(), row.places) << row.key << row.value;
        EXPECT_EQ(options->scientificNotationExponentGranularity(), row.granularity) << row.key << row.value;
    }
    // In a test file the places are those of the comparison.
    const DocumentFile test(
        "<info><version>0.6</version><mode>test</mode></info><lines><line><expression>1/3"
        "</expression><expected_ans>0.3</expected_ans><formatting><item><key>decimal_places"
        "</key><value>2000000000</value></item></formatting></line></lines>");
    TCFile read(test.path);
    ASSERT_TRUE(read.lineCollection());
    ASSERT_TRUE(read.expectedResults());
    EXPECT_FALSE(
        read.expectedResults()->front()->isEqual(TCResult::resultWithRawResultString(u"0.33").get()));
}

TEST(TCFile, readsTheLinesOfADocument) {
    const DocumentFile file(current + "<settings><trig_mode>2</trig_mode></settings><lines>" +
                            lineWith("Rent: 1200") + "<line/>" + lineWith("7", "decimal_places", "3") +
                            "</lines>");
    TCFile read(file.path);
    ASSERT_TRUE(read.lineCollection());
    EXPECT_EQ(read.fileFormat(), TCFileFormatDocument);
    EXPECT_EQ(read.lineCollection()->trigonometryMode(), 2);
    ASSERT_EQ(read.lineCollection()->countOfLines(), 3u);
    const auto line = read.lineCollection()->lineAtIndex(2);
    EXPECT_EQ(line->expressionString(), u"7");
    EXPECT_EQ(line->customFormattingOptions()->decimalPlaces(), 3u);
    // What is missing in a line that has formatting, or none, reads as 0 and not as the default.
    EXPECT_FALSE(line->customFormattingOptions()->thousandsSeparator());
    EXPECT_EQ(line->customFormattingOptions()->scientificNotationMode(), 0);
    EXPECT_FALSE(read.lineCollection()->lineAtIndex(0)->customFormattingOptions()->isDecimalPlacesSet());
    EXPECT_FALSE(read.isEvaluationTestFile());
}

TEST(TCFile, anEmptyDocumentIsInDegrees) {
    const DocumentFile file;
    TCFile read(file.path);
    ASSERT_TRUE(read.lineCollection());
    EXPECT_EQ(read.lineCollection()->countOfLines(), 0u);
    EXPECT_EQ(read.lineCollection()->trigonometryMode(), 1);
}

TEST(TCFile, readsTheFirstGeneration) {
    const DocumentFile file("<info><version>0.5</version></info><lines><line><expression>1/3</expression>"
                            "<precision>4</precision><trig_mode>2</trig_mode></line></lines>");
    const auto collection = TCFile::lineCollectionFromPath(file.path);
    ASSERT_TRUE(collection);
    EXPECT_EQ(collection->lineAtIndex(0)->customFormattingOptions()->decimalPlaces(), 4u);
    EXPECT_EQ(collection->lineAtIndex(0)->trigonometryMode(), 2);
    EXPECT_EQ(collection->trigonometryMode(), 1);
}

TEST(TCFile, textsInFilesHaveNoLocale) {
    const DocumentFile file(current + "<settings><dp_char>,</dp_char><th_char>.</th_char></settings><lines>" +
                            lineWith("1,200.5") + "</lines>");
    const auto collection = TCFile::lineCollectionFromPath(file.path);
    ASSERT_TRUE(collection);
    EXPECT_THAT(textsOf(*collection), ElementsAre("1.200,5"));
    TCFile written(collection);
    ASSERT_TRUE(written.writeToPath(file.path));
    EXPECT_THAT(file.contents(), HasSubstr("<dp_char>,</dp_char>"));
    EXPECT_THAT(file.contents(), HasSubstr("<expression>1,200.5</expression>"));
    EXPECT_THAT(textsOf(*TCFile::lineCollectionFromPath(file.path)), ElementsAre("1.200,5"));
}

TEST(TCFile, equalCharactersAreNoLocale) {
    const DocumentFile file(current + "<settings><dp_char>,</dp_char><th_char>,</th_char></settings><lines>" +
                            lineWith("1.5") + "</lines>");
    EXPECT_THAT(textsOf(*TCFile::lineCollectionFromPath(file.path)), ElementsAre("1.5"));
}

TEST(TCFile, writingReadingAndWritingIsStable) {
    useEvaluatingEnvironment();
    const auto collection = std::make_shared<TCLineCollection>();
    fill(*collection, {"Rent: 1200", "", "a < b & \"c\"", "größe = 5", "1 + 2"});
    collection->setTrigonometryMode(2);
    collection->lineAtIndex(1)->setTrigonometryMode(1);
    auto& options = *collection->lineAtIndex(2)->customFormattingOptions();
    options.setDecimalPlaces(7);
    options.setTrailingZeros(true);
    options.setDisplayBase(16);
    collection->lineAtIndex(3)->expressionFormattingOptions().setTextAlignment(2);

    const DocumentFile file;
    ASSERT_TRUE(TCFile::archiveToPath(collection, file.path, {{u"name", u"x"}, {u"size", 1.5}}));
    const std::string first = file.contents();
    EXPECT_THAT(first, HasSubstr("<answer>3</answer>"));
    TCFile read(file.path);
    ASSERT_TRUE(read.lineCollection());
    EXPECT_THAT(textsOf(*read.lineCollection()),
                ElementsAre("Rent: 1200", "", "a < b & \"c\"", "größe = 5", "1 + 2"));
    const auto line = read.lineCollection()->lineAtIndex(2);
    EXPECT_EQ(*line->customFormattingOptions(), options);
    EXPECT_EQ(read.lineCollection()->lineAtIndex(1)->trigonometryMode(), 1);
    EXPECT_EQ(read.lineCollection()->lineAtIndex(3)->expressionFormattingOptions().textAlignment(), 2);
    EXPECT_EQ(read.stringForKey(u"name"), u"x");
    EXPECT_EQ(read.numberForKey(u"size"), 1.5);
    EXPECT_EQ(read.numberForKey(u"nothing"), std::nullopt);
    ASSERT_TRUE(read.writeToPath(file.path));
    EXPECT_EQ(file.contents(), first);
}

// "1\x0B + 2" has the answer 2, and what the file holds of it would have another.
TEST(TCFile, theAnswerOfATextThatCannotBeHeldIsLeftOut) {
    useEvaluatingEnvironment();
    const auto collection = std::make_shared<TCLineCollection>();
    fill(*collection, {"1\x0B + 2", "7 + 2"});
    ASSERT_TRUE(collection->lineAtIndex(0)->hasResult());
    const DocumentFile file;
    ASSERT_TRUE(TCFile::archiveToPath(collection, file.path, {}));
    EXPECT_THAT(file.contents(), HasSubstr("<expression>1 + 2</expression>"));
    EXPECT_THAT(file.contents(), HasSubstr("<answer>9</answer>"));
    const std::string contents = file.contents();
    EXPECT_EQ(contents.find("<answer>"), contents.rfind("<answer>")) << contents;
    EXPECT_THAT(textsOf(*TCFile::lineCollectionFromPath(file.path)), ElementsAre("1 + 2", "7 + 2"));
}

TEST(TCFile, aTestFileHasExpectations) {
    const DocumentFile file("<info><version>0.6</version><mode>test</mode></info><lines>"
                            "<line><expression>2+3</expression><expected_ans>5</expected_ans>"
                            "<expected_unit>m</expected_unit></line><line/></lines>");
    TCFile read(file.path);
    EXPECT_TRUE(read.isEvaluationTestFile());
    ASSERT_TRUE(read.expectedResults());
    ASSERT_EQ(read.expectedResults()->size(), 2u);
    EXPECT_EQ(read.expectedResults()->front()->rawResult(), u"5");
    EXPECT_THAT(*read.expectedUnitStrings(), ElementsAre(std::optional<std::u16string>(u"m"), std::nullopt));
    const DocumentFile other(current);
    EXPECT_FALSE(TCFile(other.path).expectedResults());
}

TEST(TCFile, saysWhyAFileCannotBeRead) {
    TCFile missing("/nowhere");
    EXPECT_FALSE(missing.lineCollection());
    EXPECT_EQ(missing.fileFormat(), TCFileFormatNotRead);
    EXPECT_EQ(missing.failureSentence(), "'/nowhere' doesn't exist.");

    const DocumentFile file;
    std::ofstream(file.path) << "1 + 2\n";
    TCFile text(file.path);
    EXPECT_EQ(text.fileFormat(), TCFileFormatOther);

    std::ofstream(file.path) << "<?xml version=\"1.0\"?><data><lines>";
    TCFile broken(file.path);
    EXPECT_EQ(broken.fileFormat(), TCFileFormatUnreadable);
    EXPECT_FALSE(broken.lineCollection());
    EXPECT_THAT(broken.failureSentence(), HasSubstr("is cut off"));
    EXPECT_FALSE(TCFile(std::make_shared<TCLineCollection>()).writeToPath("/nowhere/at/all"));
}

} // namespace
