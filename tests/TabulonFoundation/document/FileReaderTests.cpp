#include "document/FileReader.h"
#include "document/FileWriter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

using testing::HasSubstr;

const std::string declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

std::string document(const std::string& sections) {
    return declaration + "<data>" + sections + "</data>";
}

std::string text(const TBF::Ref<TBF::String>& string) {
    return string ? string->utf8() : "(null)";
}

std::string attributes(const TBF::FileDictionary& dictionary) {
    std::string all;
    for (const auto& [key, value] : dictionary)
        all += key->utf8() + "=" + value->utf8() + ";";
    return all;
}

// Reads a document that must be readable, and keeps its reader alive.
class ReadDocument {
public:
    explicit ReadDocument(const std::string& sections)
        : reader("test") {
        EXPECT_TRUE(reader.readMemory(document(sections))) << reader.failureSentence();
    }
    TBF::FileReader* operator->() { return &reader; }
    const TBF::FileLine& line(std::size_t index) { return *reader.lines()->find(index); }

private:
    TBF::FileReader reader;
};

TEST(FileReader, readsTheCurrentGeneration) {
    ReadDocument read("<info><version>0.6</version></info>"
                      "<settings><dp>3</dp><trig_mode>2</trig_mode><dp_char>,</dp_char><th_char> </th_char>"
                      "<misc><item><value>v</value><key>k</key></item></misc></settings>"
                      "<lines><line><expression>1 &lt; <![CDATA[2 & ]]>3</expression><answer>x</answer>"
                      "<expected_ans>7</expected_ans><precision>4</precision>"
                      "<formatting><item><key>a</key><value>1</value><key>b</key></item>"
                      "<item><key>c</key></item><item><value>2</value><key>a</key></item></formatting></line>"
                      "<!-- none --><other/><line/></lines>");
    EXPECT_EQ(read->info()->version, 0.6);
    EXPECT_FALSE(read->info()->isEvaluationTest);
    EXPECT_EQ(read->settings()->decimalPlaces, 3u);
    EXPECT_EQ(read->settings()->trigonometryMode, 2u);
    EXPECT_EQ(read->settings()->decimalPoint, u',');
    EXPECT_EQ(read->settings()->thousandsSeparator, u' ');
    EXPECT_EQ(attributes(*read->settings()->miscellaneous), "k=v;");
    ASSERT_EQ(read->lines()->count(), 2u);
    EXPECT_EQ(text(read.line(0).expression), "1 < 2 & 3");
    EXPECT_EQ(text(read.line(0).answer), "x");
    EXPECT_EQ(text(read.line(0).expectedAnswer), "(null)");
    EXPECT_EQ(attributes(read.line(0).formattingAttributes), "a=2;");
    EXPECT_EQ(text(read.line(1).expression), "(null)");
}

TEST(FileReader, readsTheFirstGenerationUpToItsLastVersion) {
    const std::string line = "<lines><line><expression>1</expression><precision>4</precision>"
                             "<trig_mode>-1</trig_mode><formatting><item><key>a</key><value>1</value></item>"
                             "</formatting></line></lines>";
    const std::string info = "<info><version>0.5</version></info>";
    for (const std::string& sections : {info + line, line + info, line}) {
        ReadDocument read(sections);
        EXPECT_EQ(attributes(read.line(0).formattingAttributes), "decimal_places=4;") << sections;
    }
    ReadDocument later("<info><version>0.51</version></info>" + line);
    EXPECT_EQ(attributes(later.line(0).formattingAttributes), "a=1;");
}

TEST(FileReader, takesExpectedAnswersFromTestsOnly) {
    const std::string lines =
        "<lines><line><expected_ans>7</expected_ans><expected_unit>km</expected_unit></line>"
        "</lines>";
    ReadDocument isTest("<info><version>0.6</version><mode>test</mode></info>" + lines);
    EXPECT_TRUE(isTest->info()->isEvaluationTest);
    EXPECT_EQ(text(isTest.line(0).expectedAnswer), "7");
    EXPECT_EQ(text(isTest.line(0).expectedUnit), "km");
    ReadDocument isNoTest("<info><version>0.6</version><mode>Test</mode></info>" + lines);
    EXPECT_FALSE(isNoTest->info()->isEvaluationTest);
    EXPECT_EQ(text(isNoTest.line(0).expectedAnswer), "(null)");
}

TEST(FileReader, anElementWithoutTextIsAbsent) {
    ReadDocument read(
        "<info><version/></info><settings><dp/><trig_mode></trig_mode><dp_char>..</dp_char></settings>"
        "<lines><line><expression></expression><precision/></line></lines>");
    EXPECT_EQ(read->info()->version, 0.6);
    EXPECT_EQ(read->settings()->decimalPlaces, TBF::FileSettingsNode::decimalPlacesNotSet);
    EXPECT_EQ(read->settings()->decimalPoint, TBFCharNULL); // two characters are none
    EXPECT_FALSE(read->settings()->miscellaneous);
    EXPECT_EQ(text(read.line(0).expression), "(null)");
    EXPECT_EQ(attributes(read.line(0).formattingAttributes), "");
}

TEST(FileReader, aDocumentMayBeEmpty) {
    ReadDocument read("");
    EXPECT_EQ(read->info(), nullptr);
    EXPECT_EQ(read->lines(), nullptr);
    EXPECT_EQ(read->settings(), nullptr);
}

TEST(FileReader, numbersTheLinesWhenAsked) {
    const std::string sections = "<lines>\n<line>\n<expression>1</expression></line></lines>";
    ReadDocument without(sections);
    EXPECT_EQ(without.line(0).fileLineNumber, 0u);
    TBF::FileReader::enableLineNumbers();
    ReadDocument with(sections);
    EXPECT_EQ(with.line(0).fileLineNumber, 4u); // where the text behind the start of the element ends
}

TEST(FileReader, saysWhatIsWrongInOneSentence) {
    const std::string good = document("<lines><line><expression>1 + 2</expression></line></lines>");
    const struct {
        std::string bytes;
        TBF::FileReaderError error;
        const char* sentence;
    } rows[] = {
        {"", TBF::FileReaderErrorWrongFormat, "is empty"},
        {"1 + 2\n", TBF::FileReaderErrorWrongFormat, "doesn't begin with \"<?xml\""},
        {"\xEF\xBB\xBF\xEF\xBB\xBF" + good, TBF::FileReaderErrorWrongFormat, "doesn't begin with"},
        {"<?xml version=\"1.0\" encoding=\"UTF-7\"?><data/>", TBF::FileReaderErrorBadContent,
         "is in an encoding that isn't read: it has to be UTF-8 (line 1)."},
        {"<?x", TBF::FileReaderErrorWrongFormat, "is cut off"},
        {declaration, TBF::FileReaderErrorBadContent, "is cut off"},
        {good.substr(0, good.size() - 4), TBF::FileReaderErrorBadContent, "is cut off"},
        {good.substr(0, good.size() - 20), TBF::FileReaderErrorBadContent, "is cut off"},
        {good.substr(0, 50), TBF::FileReaderErrorBadContent, "is cut off"},
        {document("<lines></line>"), TBF::FileReaderErrorBadContent, "is not well-formed XML: "},
        {document("\n\xC3("), TBF::FileReaderErrorBadContent, "is not valid UTF-8 (line 3)."},
        {document("\x01"), TBF::FileReaderErrorBadContent, "is not well-formed XML: "},
        {document("&what;"), TBF::FileReaderErrorBadContent, "is not well-formed XML: "},
        {declaration + "<plist/>", TBF::FileReaderErrorBadContent,
         "its root element is <plist> and not <data>."},
    };
    for (const auto& row : rows) {
        TBF::FileReader reader("a.tabulon");
        EXPECT_FALSE(reader.readMemory(row.bytes)) << row.bytes;
        EXPECT_EQ(reader.error(), row.error) << row.bytes;
        EXPECT_THAT(reader.failureSentence(), HasSubstr(row.sentence)) << row.bytes;
        EXPECT_THAT(reader.failureSentence(), testing::StartsWith("'a.tabulon' ")) << row.bytes;
        EXPECT_THAT(reader.failureSentence(), testing::Not(HasSubstr("\n"))) << row.bytes;
        EXPECT_EQ(reader.lines(), nullptr);
    }
}

TEST(FileReader, refusesWhatIsNoFile) {
    TBF::FileReader missing("/nowhere/at all");
    EXPECT_FALSE(missing.readFile());
    EXPECT_EQ(missing.error(), TBF::FileReaderErrorCannotRead);
    EXPECT_EQ(missing.failureSentence(), "'/nowhere/at all' doesn't exist.");
    TBF::FileReader folder(testing::TempDir());
    EXPECT_FALSE(folder.readFile());
    EXPECT_EQ(folder.error(), TBF::FileReaderErrorCannotRead);
    EXPECT_THAT(folder.failureSentence(), HasSubstr("is a folder"));
    TBF::FileReader endless("/dev/zero");
    EXPECT_FALSE(endless.readFile());
    EXPECT_EQ(endless.error(), TBF::FileReaderErrorWrongFormat);
}

std::string repeated(const std::string& text, int count) {
    std::string all;
    for (int i = 0; i < count; ++i)
        all += text;
    return all;
}

// The number stands between the two texts.
std::string numbered(const std::string& before, const std::string& after, int count) {
    std::string all;
    for (int i = 0; i < count; ++i)
        all.append(before).append(std::to_string(i)).append(after);
    return all;
}

// None of these may take time or memory that grows faster than the file, or touch another file.
TEST(FileReader, survivesHostileFiles) {
    const std::string secret = testing::TempDir() + "tabulon-secret-" + std::to_string(getpid()) + ".txt";
    std::ofstream(secret) << "secret";
    std::string bomb = declaration + "<!DOCTYPE data [<!ENTITY a0 \"aaaaaaaaaa\">";
    for (int i = 1; i < 30; ++i) {
        const std::string previous = "&a" + std::to_string(i - 1) + ";";
        bomb += "<!ENTITY a" + std::to_string(i) + " \"" + repeated(previous, 10) + "\">";
    }
    bomb += "]><data><lines><line><expression>&a29;</expression></line></lines></data>";
    std::string parameterBomb = declaration + "<!DOCTYPE data [<!ENTITY % p0 \"<!ENTITY x 'y'>\">";
    for (int i = 1; i < 30; ++i) {
        parameterBomb += "<!ENTITY % p" + std::to_string(i) + " \"" +
                         repeated("&#37;p" + std::to_string(i - 1) + ";", 10) + "\">";
    }
    parameterBomb += "%p29;]><data/>";
    const std::string expression = "<data><lines><line><expression>&x;</expression></line></lines></data>";
    const struct {
        std::string bytes;
        const char* sentence;
    } rows[] = {
        {bomb, "has definitions of its own"},
        {parameterBomb, "has definitions of its own"},
        {declaration + "<!DOCTYPE data [<!ENTITY x SYSTEM \"file://" + secret + "\">]>" + expression,
         "has definitions of its own"},
        {declaration + "<!DOCTYPE data [<!ENTITY % x SYSTEM \"http://localhost:1/x\"> %x;]>" + expression,
         "has definitions of its own"},
        {document("<x" + numbered(" a", "=\"1\"", 300'000) + "/>"), "has a tag of over 4,096 bytes (line 2)"},
        {declaration + "<!DOCTYPE data [<!ATTLIST x" + numbered(" a", " CDATA \"1\"", 6'000) + ">]><data>" +
             repeated("<x/>", 18'000) + "</data>",
         "has definitions of its own (a document type) (line 2)"},
        {document(numbered("<a", "/>", 1'200'000)), "has over 10,000 different names"},
        {document("&what;" + numbered("<a", "/>", 1'200'000)), "Entity 'what' not defined"},
        {document(repeated("&what;", 2'000'000)), "Entity 'what' not defined"},
        {document(repeated("<lines>", 100'000)), "is not well-formed XML: "},
        {declaration + repeated("<", 1'000'000), "is not well-formed XML: "},
    };
    for (const auto& row : rows) {
        TBF::FileReader reader("hostile");
        const auto start = std::chrono::steady_clock::now();
        EXPECT_FALSE(reader.readMemory(row.bytes));
        EXPECT_THAT(reader.failureSentence(), HasSubstr(row.sentence));
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
        EXPECT_LE(reader.errorMessage().size(), 1023u);
    }
}

TEST(FileReader, refusesMoreThanAMillionLines) {
    const auto linesOf = [](std::size_t count) {
        std::string text = "<lines>";
        for (std::size_t i = 0; i < count; ++i)
            text += "<line/>";
        return document(text + "</lines>");
    };
    TBF::FileReader most("many");
    EXPECT_TRUE(most.readMemory(linesOf(TBF::FileLinesNode::mostLines))) << most.failureSentence();
    EXPECT_EQ(most.lines()->count(), TBF::FileLinesNode::mostLines);
    TBF::FileReader more("many");
    EXPECT_FALSE(more.readMemory(linesOf(TBF::FileLinesNode::mostLines + 1)));
    EXPECT_EQ(more.failureSentence(), "'many' has more than 1000000 lines.");
}

TEST(FileReader, fetchesNoExternalDefinitions) {
    TBF::FileReader reader("x");
    EXPECT_TRUE(reader.readMemory(declaration +
                                  "<!DOCTYPE data SYSTEM \"http://localhost:1/data.dtd\">"
                                  "<data><lines><line><expression>1</expression></line></lines></data>"))
        << reader.failureSentence();
    EXPECT_EQ(reader.lines()->count(), 1u);
}

TEST(FileReader, passesOverAByteOrderMark) {
    TBF::FileReader reader("x");
    EXPECT_TRUE(reader.readMemory("\xEF\xBB\xBF" +
                                  document("<lines><line><expression>1</expression></line></lines>")))
        << reader.failureSentence();
    EXPECT_EQ(text(reader.lines()->find(0)->expression), "1");
    const std::string path = testing::TempDir() + "tabulon-marked-" + std::to_string(getpid());
    std::ofstream(path) << "\xEF\xBB\xBF" << document("");
    EXPECT_TRUE(TBF::FileReader(path).readFile());
    std::filesystem::remove(path);
}

TEST(FileReader, readsLongLinesAndManyItems) {
    const std::string expression(1'000'000, '7');
    std::string items;
    for (int i = 0; i < 100'000; ++i) {
        items += "<item><key>k" + std::to_string(i) + "</key><value>v</value></item>";
    }
    ReadDocument read("<settings><misc>" + items + "</misc></settings><lines><line><expression>" +
                      expression + "</expression></line></lines>");
    EXPECT_EQ(read.line(0).expression->view().size(), expression.size());
    EXPECT_EQ(read->settings()->miscellaneous->count(), 100'000u);
}

} // namespace
