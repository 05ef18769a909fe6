#include "propertylist/PropertyList.h"

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

namespace platform {
namespace {

using namespace std::chrono_literals;
using Array = PropertyList::Array;
using Dictionary = PropertyList::Dictionary;

std::string plist(const std::string& content) {
    return "<?xml version=\"1.0\"?><plist version=\"1.0\">" + content + "</plist>";
}

// What is wrong with the bytes; empty if nothing is.
std::string errorOf(std::string_view bytes) {
    std::string error;
    const auto list = PropertyList::parse(bytes, &error);
    EXPECT_EQ(list.has_value(), error.empty());
    return error;
}

PropertyList example() {
    return Dictionary{
        {"text", "ä & <b> \"q\" 'x' \r\n \xF0\x9F\x98\x80"},
        {"empty", ""},
        {"", "a key without letters"},
        {"<key & more>", Array{1, -2, INT64_MAX, INT64_MIN, true, false, 0.1, -1e300, 5e-324}},
        {"date",
         PropertyList::Date(std::chrono::sys_days(std::chrono::year(2014) / 3 / 1) + 12h + 30min + 5s)},
        {"before", PropertyList::Date(std::chrono::sys_days(std::chrono::year(1969) / 12 / 31) + 23h)},
        {"bytes", PropertyList::Data{std::byte{0}, std::byte{255}, std::byte{7}, std::byte{8}}},
        {"nothing", Dictionary{}},
        {"none", Array{}},
    };
}

TEST(PropertyList, QuestionsAreSafeOnEverything) {
    const PropertyList list = example();
    EXPECT_EQ(list["<key & more>"].at(1).integer(), -2);
    EXPECT_TRUE(list["nothing"]["at"]["all"].at(7)["here"].isNull());
    EXPECT_FALSE(list["text"].integer());
    EXPECT_FALSE(list.string());
    EXPECT_TRUE(list["text"].dictionary().begin() == list["text"].dictionary().end());
    EXPECT_FALSE(PropertyList().data());

    struct Case {
        PropertyList value;
        std::optional<int64_t> integer;
        std::optional<bool> boolean;
    };
    for (const Case& row : {Case{3, 3, true}, Case{0, 0, false}, Case{2.9, 2, true}, Case{1e300, {}, {}},
                            Case{true, 1, true}, Case{" 12 apples", 12, true}, Case{"YES", {}, true},
                            Case{"NO", {}, false}, Case{"apples", {}, {}}, Case{Array{}, {}, {}}}) {
        EXPECT_EQ(row.value.asInteger(), row.integer);
        EXPECT_EQ(row.value.asBoolean(), row.boolean);
    }
}

TEST(PropertyList, DictionariesAreSortedAndKeepTheLastOfEqualKeys) {
    Dictionary dictionary{{"b", 1}, {"a", 2}, {"b", 3}};
    EXPECT_EQ(dictionary, (Dictionary{{"a", 2}, {"b", 3}}));
    dictionary.set("aa", 4);
    dictionary["b"] = 5;
    dictionary.remove("a");
    EXPECT_EQ(dictionary, (Dictionary{{"aa", 4}, {"b", 5}}));
    EXPECT_EQ(dictionary.find("c"), nullptr);
}

TEST(PropertyList, WhatIsWrittenComesBack) {
    const auto text = example().text();
    ASSERT_TRUE(text);
    std::string error;
    const auto read = PropertyList::parse(*text, &error);
    ASSERT_TRUE(read) << error;
    EXPECT_EQ(*read, example());
    // What XML can't hold is replaced.
    EXPECT_EQ(PropertyList::parse(*PropertyList("a\x01\xFF\tb").text())->string(),
              "a\xEF\xBF\xBD\xEF\xBF\xBD\tb");
    EXPECT_FALSE(PropertyList(Array{PropertyList()}).text());
}

RC_GTEST_PROP(PropertyList, AnyTextsAndNumbersComeBack, ()) {
    const auto numbers = *rc::gen::arbitrary<std::vector<int64_t>>();
    const auto reals = *rc::gen::container<std::vector<double>>(rc::gen::arbitrary<double>());
    const auto letters = *rc::gen::container<std::string>(rc::gen::inRange<char>(' ', '~'));
    Array array{letters};
    array.insert(array.end(), numbers.begin(), numbers.end());
    array.insert(array.end(), reals.begin(), reals.end());
    const PropertyList list = Dictionary{{letters, std::move(array)}};
    RC_ASSERT(PropertyList::parse(*list.text()) == list);
}

TEST(PropertyList, FormsOfXMLThatPeopleWrite) {
    struct Case {
        const char* content;
        PropertyList value;
    };
    for (const Case& row : {
             Case{"<string> a\n<![CDATA[<b>]]>&amp;&#x41; </string>", " a\n<b>&A "},
             Case{"<dict><key>k</key> <!-- why --> <integer> +7 </integer></dict>", Dictionary{{"k", 7}}},
             Case{"<integer>0x1F</integer>", 31},
             Case{"<real> 1.5e3 </real>", 1500.0},
             Case{"<data> AAEC\n Aw== </data>",
                  PropertyList::Data{std::byte{0}, std::byte{1}, std::byte{2}, std::byte{3}}},
             Case{"<array><true/><false></false><string/></array>", Array{true, false, ""}},
         }) {
        std::string error;
        const auto read = PropertyList::parse(plist(row.content), &error);
        ASSERT_TRUE(read) << row.content << ": " << error;
        EXPECT_EQ(*read, row.value) << row.content;
    }
    EXPECT_TRUE(PropertyList::parse("<!DOCTYPE plist PUBLIC \"x\" \"http://nowhere.invalid/x.dtd\">"
                                    "<plist><true/></plist>"));
    EXPECT_TRUE(PropertyList::parse("\xEF\xBB\xBF" + plist("<true/>")));
    EXPECT_EQ(PropertyList::parse(
                  "<?xml version='1.0' encoding='ISO-8859-1'?><plist><string>\xE9</string></plist>"),
              PropertyList("\xC3\xA9"));
}

TEST(PropertyList, WhatIsNoneGivesAnErrorWithItsLine) {
    EXPECT_EQ(errorOf(plist("\n<array>\n<set/></array>")), "line 3: unknown element <set>");
    for (const std::string& bytes : {
             std::string(),
             std::string("x"),
             std::string("<html/>"),
             std::string("<plist/>"),
             plist(""),
             plist("<true/><true/>"),
             plist("<array>"),
             plist("text"),
             plist("<dict><true/></dict>"),
             plist("<dict><key>a</key></dict>"),
             plist("<dict><key>a</key><key>b</key></dict>"),
             plist("<array><key>a</key></array>"),
             plist("<string><true/></string>"),
             plist("<integer>1.5</integer>"),
             plist("<integer>99999999999999999999</integer>"),
             plist("<integer/>"),
             plist("<real>x</real>"),
             plist("<date>2014-02-30T00:00:00Z</date>"),
             plist("<date>yesterday</date>"),
             plist("<data>!</data>"),
             plist("<string>&unknown;</string>"),
             plist("<plist><true/></plist>"),
             plist("<string>\x01</string>"),
             plist("<string>\xFF</string>"),
             std::string("<!DOCTYPE plist [<!ENTITY a \"aaaa\"><!ENTITY b \"&a;&a;&a;\">]><plist><string>&b;"
                         "</string></plist>"),
             std::string("<!DOCTYPE plist []><plist><true/></plist>"),
             std::string("<?xml version='1.0' encoding='UTF-7'?><plist><true/></plist>"),
             plist("<string a='" + std::string(5000, 'x') + "'/>"),
             std::string("bplist00"),
             std::string("bplist00") + std::string(40, '\xFF'),
             std::string("bplist00") + std::string(40, '\0'),
         })
        EXPECT_FALSE(errorOf(bytes).empty()) << bytes.substr(0, 80);
}

TEST(PropertyList, NestingAndSizeAreBounded) {
    const auto nested = [](std::size_t depth) {
        std::string open, close;
        for (std::size_t i = 0; i < depth; ++i) {
            open += "<array>";
            close += "</array>";
        }
        return plist(open + close);
    };
    EXPECT_TRUE(errorOf(nested(PropertyList::maximalDepth)).empty());
    for (const std::size_t depth : {std::size_t{PropertyList::maximalDepth} + 1, std::size_t{100'000}})
        EXPECT_FALSE(errorOf(nested(depth)).empty());
    EXPECT_FALSE(errorOf("<plist>" + std::string(PropertyList::maximalFileSize, ' ')).empty());
    std::string many;
    for (std::size_t i = 0; i <= PropertyList::maximalCountOfValues; ++i)
        many += "<true/>";
    EXPECT_FALSE(errorOf(plist("<array>" + many + "</array>")).empty());

    PropertyList deep = 1;
    for (int i = 0; i < PropertyList::maximalDepth; ++i)
        deep = Array{std::move(deep)};
    EXPECT_EQ(PropertyList::parse(*deep.text()), deep);
    EXPECT_FALSE(PropertyList(Array{std::move(deep)}).text());
}

// A binary file of arrays by the objects they refer to, the first one at the top.
std::string binaryArrays(const std::vector<std::vector<uint16_t>>& arrays) {
    std::string file = "bplist00";
    std::string offsets;
    const auto append = [](std::string& bytes, uint64_t number, int size) {
        for (int i = size - 1; i >= 0; --i)
            bytes += static_cast<char>(number >> (8 * i) & 0xFF);
    };
    for (const auto& references : arrays) {
        append(offsets, file.size(), 4);
        append(file, 0xA0 | references.size(), 1);
        for (const uint16_t reference : references)
            append(file, reference, 2);
    }
    const std::size_t table = file.size();
    file += offsets;
    append(file, 0, 6);
    append(file, 4, 1);
    append(file, 2, 1);
    append(file, arrays.size(), 8);
    append(file, 0, 8);
    append(file, table, 8);
    return file;
}

// As another program wrote it.
constexpr char foreignBytes[] =
    "\x62\x70\x6c\x69\x73\x74\x30\x30\xd9\x01\x02\x03\x04\x05\x06\x07\x08\x09\x0a\x0b\x0c\x0d\x0e\x1a"
    "\x1b\x1c\x1d\x50\x55\x62\x79\x74\x65\x73\x54\x64\x61\x74\x65\x55\x65\x6d\x70\x74\x79\x54\x6c\x69"
    "\x73\x74\x54\x6c\x6f\x6e\x67\x54\x6e\x6f\x6e\x65\x54\x74\x65\x78\x74\x54\x77\x69\x64\x65\x53\x6b"
    "\x65\x79\x43\x00\xff\x07\x33\x41\xb8\xc2\x0a\x4d\x00\x00\x00\xa0\xab\x0f\x10\x11\x12\x13\x14\x15"
    "\x16\x17\x18\x19\x10\x01\x10\xff\x11\x01\x00\x12\x00\x01\x00\x00\x13\x00\x00\x01\x00\x00\x00\x00"
    "\x00\x13\xff\xff\xff\xff\xff\xff\xff\xfb\x13\x7f\xff\xff\xff\xff\xff\xff\xff\x09\x08\x23\x3f\xb9"
    "\x99\x99\x99\x99\x99\x9a\x23\xfe\x37\xe4\x3c\x88\x00\x75\x9c\x5f\x10\x14\x78\x78\x78\x78\x78\x78"
    "\x78\x78\x78\x78\x78\x78\x78\x78\x78\x78\x78\x78\x78\x78\xd0\x55\x70\x6c\x61\x69\x6e\x63\x00\xe4"
    "\xd8\x3d\xde\x00\x08\x1b\x1c\x22\x27\x2d\x32\x37\x3c\x41\x46\x4a\x4e\x57\x58\x64\x66\x68\x6b\x70"
    "\x79\x82\x8b\x8c\x8d\x96\x9f\xb6\xb7\xbd\x00\x00\x00\x00\x00\x00\x01\x01\x00\x00\x00\x00\x00\x00"
    "\x00\x1e\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\xc4";
constexpr std::string_view foreignFile(foreignBytes, sizeof foreignBytes - 1);

TEST(PropertyList, BinaryFilesOfOthers) {
    std::string error;
    const auto read = PropertyList::parse(foreignFile, &error);
    ASSERT_TRUE(read) << error;
    const auto noon = std::chrono::sys_days(std::chrono::year(2014) / 3 / 1) + 12h + 30min + 5s;
    EXPECT_EQ(
        *read,
        PropertyList(Dictionary{
            {"text", "plain"},
            {"wide", "ä\xF0\x9F\x98\x80"},
            {"long", std::string(20, 'x')},
            {"list", Array{1, 255, 256, 65536, int64_t{1} << 40, -5, INT64_MAX, true, false, 0.1, -1e300}},
            {"date", PropertyList::Date(noon)},
            {"bytes", PropertyList::Data{std::byte{0}, std::byte{255}, std::byte{7}}},
            {"none", Dictionary{}},
            {"empty", Array{}},
            {"", "key"},
        }));
}

TEST(PropertyList, BinaryFilesThatUnfoldWithoutEnd) {
    EXPECT_EQ(PropertyList::parse(binaryArrays({{1, 1}, {}})), PropertyList(Array{Array{}, Array{}}));
    EXPECT_EQ(errorOf(binaryArrays({{0}})), "a value that contains itself");
    EXPECT_EQ(errorOf(binaryArrays({{1}, {2}, {0}})), "a value that contains itself");
    EXPECT_FALSE(errorOf(binaryArrays({{7}})).empty());
    std::vector<std::vector<uint16_t>> doubling;
    std::vector<std::vector<uint16_t>> chain;
    for (uint16_t i = 1; i <= 60; ++i)
        doubling.push_back({i, i});
    doubling.emplace_back();
    EXPECT_EQ(errorOf(binaryArrays(doubling)), "too many values");
    for (uint16_t i = 1; i <= 60'000; ++i)
        chain.push_back({i});
    chain.emplace_back();
    EXPECT_EQ(errorOf(binaryArrays(chain)), "too many values within one another");
}

TEST(PropertyList, DamagedFilesNeverHarm) {
    std::mt19937 random(7);
    for (const std::string& whole : {*example().text(), std::string(foreignFile)}) {
        for (std::size_t length = 0; length < whole.size(); length += 3)
            PropertyList::parse(std::string_view(whole).substr(0, length));
        for (int round = 0; round < 4000; ++round) {
            std::string damaged = whole;
            for (int i = 0; i < 3; ++i)
                damaged[random() % damaged.size()] = static_cast<char>(random());
            if (const auto read = PropertyList::parse(damaged)) {
                EXPECT_TRUE(read->text());
            }
        }
    }
}

class Folder {
public:
    Folder()
        : path(testing::TempDir() + "property-lists-" + std::to_string(getpid())) {
        std::filesystem::create_directories(path);
    }
    ~Folder() { std::filesystem::remove_all(path); }
    std::string file(const char* name) const { return (path / name).string(); }
    std::filesystem::path path;
};

TEST(PropertyList, Files) {
    const Folder folder;
    std::string error;
    EXPECT_FALSE(PropertyList::read(folder.file("none"), &error));
    EXPECT_EQ(error, folder.file("none") + ": No such file or directory.");
    EXPECT_FALSE(PropertyList::read(folder.path.string(), &error));
    EXPECT_EQ(error, folder.path.string() + ": not a file.");
    EXPECT_FALSE(PropertyList::read("/dev/zero", &error));

    ASSERT_TRUE(example().write(folder.file("a.plist"), &error)) << error;
    EXPECT_EQ(PropertyList::read(folder.file("a.plist")), example());
    ASSERT_TRUE(PropertyList(true).write(folder.file("a.plist"), &error)) << error;
    EXPECT_EQ(PropertyList::read(folder.file("a.plist")), PropertyList(true));
    EXPECT_FALSE(PropertyList().write(folder.file("a.plist"), &error)); // the old file stays
    EXPECT_EQ(PropertyList::read(folder.file("a.plist")), PropertyList(true));
    EXPECT_FALSE(example().write(folder.file("no/folder/a.plist"), &error));
    EXPECT_NE(error.find("No such file"), std::string::npos);

    std::ofstream(folder.file("broken")) << plist("<array>");
    EXPECT_FALSE(PropertyList::read(folder.file("broken"), &error));
    EXPECT_TRUE(error.starts_with(folder.file("broken") + ": line 1: ")) << error;
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path), {}),
              2); // nothing is left behind
}

// A list whose parts tell whether they belong together.
PropertyList numbered(int64_t number) {
    Array items(2000, PropertyList(number));
    return Dictionary{{"number", number}, {"items", std::move(items)}};
}

bool isWhole(const PropertyList& list) {
    const auto number = list["number"].integer();
    return number && list == numbered(*number);
}

TEST(PropertyList, AWriterThatIsKilledLeavesTheOldFileOrTheNewOne) {
    const Folder folder;
    const std::string file = folder.file("killed.plist");
    ASSERT_TRUE(numbered(0).write(file));
    std::mt19937 random(11);
    int64_t last = 0;
    int changed = 0;
    // Time enough for a child to write a few lists, however slow the disk is.
    auto window = 20ms;
    for (int round = 0; changed < 40 && round < 400; ++round) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            for (int64_t number = last + 1;; ++number)
                if (!numbered(number).write(file)) _exit(1);
        }
        std::this_thread::sleep_for(std::chrono::microseconds(500) + random() % 1000 * window / 1000);
        kill(child, SIGKILL);
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status));
        std::string error;
        const auto list = PropertyList::read(file, &error);
        ASSERT_TRUE(list) << error;
        ASSERT_TRUE(isWhole(*list));
        const int64_t number = *(*list)["number"].integer();
        ASSERT_GE(number, last);
        changed += number != last;
        if (number == last && window < 500ms) window += 5ms;
        last = number;
    }
    EXPECT_GE(changed, 40); // else the children never came to write
}

TEST(PropertyList, ReadersMeetOnlyWholeFilesWhileOneWrites) {
    const Folder folder;
    const std::string file = folder.file("read.plist");
    ASSERT_TRUE(numbered(0).write(file));
    std::jthread writer([&](const std::stop_token& stop) {
        for (int64_t number = 1; !stop.stop_requested(); ++number)
            numbered(number).write(file);
    });
    for (int i = 0; i < 200; ++i) {
        const auto list = PropertyList::read(file);
        ASSERT_TRUE(list && isWhole(*list));
    }
}

} // namespace
} // namespace platform
