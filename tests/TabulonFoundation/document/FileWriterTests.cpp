#include "document/FileReader.h"
#include "document/FileWriter.h"
#include "files/AtomicFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <libxml/xmlmemory.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <random>
#include <string>

namespace {

namespace fs = std::filesystem;

TBF::Ref<TBF::String> string(std::u16string_view text) {
    return TBF::String::create(text);
}

std::string contents(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string written(const TBF::FileInfoNode& info, const TBF::FileSettingsNode& settings,
                    const TBF::FileLinesNode& lines) {
    TBF::FileWriter writer;
    writer.setInfoNode(&info);
    writer.setSettingsNode(&settings);
    writer.setLinesNode(&lines);
    return writer.text().value_or("(no text)");
}

// An empty folder, gone at the end.
class Folder {
public:
    Folder()
        : path(fs::path(testing::TempDir()) / ("tabulon-writer-" + std::to_string(std::random_device()()))) {
        fs::create_directories(path);
    }
    ~Folder() {
        std::error_code error;
        fs::remove_all(path, error);
    }
    std::size_t count() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(path), fs::directory_iterator()));
    }
    const fs::path path;
};

TEST(FileWriter, laysOutADocument) {
    TBF::FileSettingsNode settings;
    settings.decimalPlaces = 3;
    settings.trigonometryMode = 2;
    settings.decimalPoint = u'.';
    settings.thousandsSeparator = u',';
    settings.miscellaneous.emplace().set(string(u"k"), string(u"a & b"));
    TBF::FileLinesNode lines;
    lines.lineAt(0).expression = string(u"1 < 2\u000B€");
    lines.lineAt(0).answer = string(u"x");
    lines.lineAt(0).formattingAttributes.set(string(u"sn_mode"), string(u"0"));
    lines.lineAt(1).expectedAnswer = string(u"never written");
    EXPECT_EQ(written({}, settings, lines), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                            "<data>\n"
                                            "\t<!-- General document info section -->\n"
                                            "\t<info>\n"
                                            "\t\t<version>0.6</version>\n"
                                            "\t</info>\n"
                                            "\n"
                                            "\t<!--Document specific settings section -->\n"
                                            "\t<settings>\n"
                                            "\t\t<dp>3</dp>\n"
                                            "\t\t<trig_mode>2</trig_mode>\n"
                                            "\t\t<dp_char>.</dp_char>\n"
                                            "\t\t<th_char>,</th_char>\n"
                                            "\t\t<misc>\n"
                                            "\t\t\t<item>\n"
                                            "\t\t\t\t<key>k</key>\n"
                                            "\t\t\t\t<value>a &amp; b</value>\n"
                                            "\t\t\t</item>\n"
                                            "\t\t</misc>\n"
                                            "\t</settings>\n"
                                            "\n"
                                            "\t<!-- Main body -->\n"
                                            "\t<lines>\n"
                                            "\t\t<line>\n"
                                            "\t\t\t<expression>1 &lt; 2€</expression>\n"
                                            "\t\t\t<answer>x</answer>\n"
                                            "\t\t\t<formatting>\n"
                                            "\t\t\t\t<item>\n"
                                            "\t\t\t\t\t<key>sn_mode</key>\n"
                                            "\t\t\t\t\t<value>0</value>\n"
                                            "\t\t\t\t</item>\n"
                                            "\t\t\t</formatting>\n"
                                            "\t\t</line>\n"
                                            "\t\t<line>\n"
                                            "\t\t\t<formatting/>\n"
                                            "\t\t</line>\n"
                                            "\t</lines>\n"
                                            "</data>\n");
}

TEST(FileWriter, anEmptyDocumentIsShort) {
    const std::string text = written({}, {}, {});
    EXPECT_THAT(text, testing::HasSubstr("\t<settings/>\n"));
    EXPECT_THAT(text, testing::HasSubstr("\t<lines/>\n"));
    EXPECT_EQ(TBF::FileWriter().text(), text);
}

std::string rewritten(const TBF::FileReader& reader) {
    return written(*reader.info(), *reader.settings(), *reader.lines());
}

// Any code units in any text: what is written can be read, and is written alike again.
TEST(FileWriter, writingReadingAndWritingIsStable) {
    std::mt19937 random(8);
    for (int round = 0; round < 200; ++round) {
        const auto anyText = [&random] {
            std::u16string text;
            for (std::size_t length = random() % 12; length > 0; --length) {
                text += static_cast<char16_t>(random() % 3 == 0 ? random() : random() % 128);
            }
            return string(text);
        };
        TBF::FileInfoNode info;
        info.isEvaluationTest = random() % 2 == 0;
        TBF::FileSettingsNode settings;
        settings.decimalPoint = u',';
        if (random() % 2 == 0) settings.miscellaneous.emplace().set(anyText(), anyText());
        TBF::FileLinesNode lines;
        for (std::size_t i = random() % 5; i > 0; --i) {
            TBF::FileLine& line = lines.lineAt(lines.count());
            line.expression = anyText();
            if (random() % 2 == 0) line.answer = anyText();
            line.formattingAttributes.set(anyText(), anyText());
        }
        const std::string first = written(info, settings, lines);
        TBF::FileReader reader("first");
        ASSERT_TRUE(reader.readMemory(first)) << reader.failureSentence();
        ASSERT_EQ(rewritten(reader), first);
    }
}

// libxml2's memory, which ends after so many requests.
int requestsLeft = 0;

void* allocateOrFail(std::size_t size) {
    return requestsLeft-- > 0 ? std::malloc(size) : nullptr;
}

void* reallocateOrFail(void* memory, std::size_t size) {
    return requestsLeft-- > 0 ? std::realloc(memory, size) : nullptr;
}

char* duplicateOrFail(const char* text) {
    return requestsLeft-- > 0 ? strdup(text) : nullptr;
}

TEST(FileDictionary, copiesAndEqualsShareTheirItemsUntilOneChanges) {
    TBF::FileDictionary first, second, other;
    first.set(string(u"k"), string(u"1"));
    second.set(string(u"k"), string(u"1"));
    other.set(string(u"k"), string(u"2"));
    second.shareWith(first);
    EXPECT_EQ(second.find(u"k"), first.find(u"k")); // the very text
    other.shareWith(first);
    EXPECT_EQ(other.find(u"k")->utf8(), "2");
    second.set(string(u"k"), string(u"3"));
    EXPECT_EQ(first.find(u"k")->utf8(), "1");
    TBF::FileDictionary copy = second;
    copy.set(string(u"l"), string(u"4"));
    EXPECT_EQ(second.count(), 1u);
    EXPECT_EQ(copy.count(), 2u);
}

// Wherever memory ends, there is the whole text or none.
TEST(FileWriter, losesNoTextWithoutMemory) {
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "libxml2 loses memory of its own where memory ends";
#endif
    TBF::FileLinesNode lines;
    for (std::size_t i = 0; i < 3; ++i) {
        lines.lineAt(i).expression = TBF::String::create(std::u16string(6000, u'1') + u"<&>\"\r");
        lines.lineAt(i).formattingAttributes.set(string(u"sn_mode"), string(u"0"));
    }
    TBF::FileWriter writer;
    writer.setLinesNode(&lines);
    const std::string whole = writer.text().value();
    xmlMemSetup(std::free, allocateOrFail, reallocateOrFail, duplicateOrFail);
    int refused = 0;
    std::optional<std::string> text;
    for (int requests = 0; !text && requests < 10'000; ++requests) {
        requestsLeft = requests;
        text = writer.text();
        refused += !text;
    }
    xmlMemSetup(std::free, std::malloc, std::realloc, strdup);
    EXPECT_EQ(text, whole);
    EXPECT_GT(refused, 50);
}

TEST(FileWriter, everyCodeUnitIsWrittenOrLeftOut) {
    std::u16string text;
    for (int c = 0; c < 0x10000; ++c)
        text += static_cast<char16_t>(c);
    TBF::FileLinesNode lines;
    lines.lineAt(0).expression = string(text);
    TBF::FileReader reader("all");
    ASSERT_TRUE(reader.readMemory(written({}, {}, lines))) << reader.failureSentence();
    const std::u16string_view read = reader.lines()->find(0)->expression->view();
    EXPECT_EQ(read.substr(0, 5), u"\t\n\r !");
    EXPECT_NE(read.find(u'\uE000'), std::u16string_view::npos);
}

TEST(FileWriter, replacesAFileAsAWhole) {
    const Folder folder;
    const fs::path target = folder.path / "a.tabulon";
    std::ofstream(target) << "old";
    fs::permissions(target, fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    const fs::path link = folder.path / "link.tabulon";
    fs::create_symlink("a.tabulon", link);

    EXPECT_TRUE(TBF::FileWriter().writeFile(link.string()));
    EXPECT_EQ(contents(target), TBF::FileWriter().text());
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(fs::status(target).permissions(),
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    EXPECT_EQ(folder.count(), 2u); // nothing is left behind
}

TEST(FileWriter, aFailureLeavesEverythingAsItWas) {
    const Folder folder;
    TBF::FileWriter writer;
    EXPECT_FALSE(writer.writeFile((folder.path / "no" / "a.tabulon").string()));
    EXPECT_THAT(writer.failureSentence(), testing::EndsWith("can't be written: No such file or directory."));
    EXPECT_FALSE(writer.writeFile(folder.path.string()));
    EXPECT_THAT(writer.failureSentence(), testing::EndsWith("can't be written: Is a directory."));
    EXPECT_EQ(folder.count(), 0u);
    // A disk without room.
    EXPECT_NE(platform::writeFileAtomically("/dev/full/x", "bytes"), 0);
}

} // namespace
