#include "QuickLookGeneratorPlugin.h"

#include "GeneratePreviewForURL.h"
#include "environment/TCEnvironment.h"
#include "files/FileURL.h"
#include "lines/TCLine.h"
#include "lines/TCLineCollection.h"
#include "plugin/PlugInFactory.h"

#include <filesystem>
#include <fstream>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

// A host's request that remembers how it was answered.
struct RecordedRequest final : QLPreviewRequest {
    int answers = 0;
    std::optional<std::string> data;
    std::string contentType;
    QLProperties properties;

    void setDataRepresentation(std::optional<std::string_view> page, std::string_view type,
                               const QLProperties& pageProperties) override {
        ++answers;
        data = page;
        contentType = type;
        properties = pageProperties;
    }
};

QLGeneratorInstance makeInstance() {
    return static_cast<QLGeneratorInstance>(QuickLookGeneratorPluginFactory(nullptr, &kQLGeneratorTypeID));
}

uint32_t livingInstances() {
    return platform::plugInInstanceCountForFactory(*platform::UUID::fromString(kPlugInFactoryID));
}

std::string documentWithLine(const std::string& text) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<data><info><version>0.6</version></info><settings/>"
           "<lines><line><expression>" +
           text +
           "</expression><answer>4711</answer><formatting>"
           "<item><key>thousands_separator</key><value>1</value></item>"
           "<item><key>display_base</key><value>10</value></item></formatting></line></lines></data>\n";
}

class PreviewTests : public testing::Test {
protected:
    void SetUp() override {
        std::filesystem::create_directories(folder);
        void* granted = nullptr;
        plugin = makeInstance();
        ASSERT_EQ((*plugin)->QueryInterface(plugin, kQLGeneratorCallbacksInterfaceID, &granted), kQLResultOK);
        (*plugin)->Release(plugin);
    }
    void TearDown() override {
        (*plugin)->Release(plugin);
        std::filesystem::remove_all(folder);
    }

    std::string write(const char* name, const std::string& content) const {
        std::ofstream(folder / name, std::ios::binary) << content;
        return (folder / name).string();
    }

    RecordedRequest previewOf(const std::string& path) const {
        return previewOfURL(platform::fileURLOfPath(path).c_str());
    }
    RecordedRequest previewOfURL(const char* url) const {
        RecordedRequest request;
        EXPECT_EQ((*plugin)->GeneratePreviewForURL(plugin, &request, url, nullptr, nullptr), 0);
        return request;
    }

    const std::filesystem::path folder = testing::TempDir() + "plugin-tests-" + std::to_string(getpid());
    QLGeneratorInstance plugin = nullptr;
};

TEST(QuickLookGeneratorPluginTests, FactoryMakesTheGeneratorTypeOnly) {
    EXPECT_EQ(QuickLookGeneratorPluginFactory(nullptr, &kQLGeneratorCallbacksInterfaceID), nullptr);
    EXPECT_EQ(QuickLookGeneratorPluginFactory(nullptr, nullptr), nullptr);
    EXPECT_EQ(livingInstances(), 0u);
}

TEST(QuickLookGeneratorPluginTests, ReferencesAndInstancesAreCounted) {
    const auto instance = makeInstance();
    ASSERT_NE(instance, nullptr);
    EXPECT_EQ(livingInstances(), 1u);
    EXPECT_EQ((*instance)->AddRef(instance), 2u);
    EXPECT_EQ((*instance)->Release(instance), 1u);
    EXPECT_EQ((*instance)->Release(instance), 0u);
    EXPECT_EQ(livingInstances(), 0u);
}

TEST(QuickLookGeneratorPluginTests, OnlyTheCallbacksInterfaceIsGranted) {
    const auto instance = makeInstance();
    ASSERT_NE(instance, nullptr);
    void* granted = instance;
    EXPECT_EQ((*instance)->QueryInterface(instance, kQLGeneratorTypeID, &granted), 0x80000004u);
    EXPECT_EQ(granted, nullptr);
    EXPECT_EQ((*instance)->GeneratePreviewForURL, nullptr);

    EXPECT_EQ((*instance)->QueryInterface(instance, kQLGeneratorCallbacksInterfaceID, &granted), 0u);
    EXPECT_EQ(granted, instance);
    EXPECT_NE((*instance)->GeneratePreviewForURL, nullptr);
    EXPECT_NE((*instance)->CancelPreviewGeneration, nullptr);
    EXPECT_EQ((*instance)->Release(instance), 1u) << "a granted interface is a reference of its own";
    EXPECT_EQ((*instance)->Release(instance), 0u);
}

TEST(QuickLookGeneratorPluginTests, InstancesOfAProcessShareOneEnvironment) {
    const auto first = makeInstance();
    const auto environment = TCEnvironment::current();
    QLGeneratorInstance second = nullptr;
    std::thread([&second] { second = makeInstance(); }).join();
    ASSERT_NE(second, nullptr);
    EXPECT_NE(first, second);
    EXPECT_NE(*first, *second) << "each instance has a table of its own";
    EXPECT_NE(environment, nullptr);
    EXPECT_EQ(TCEnvironment::current(), environment);
    (*first)->Release(first);
    (*second)->Release(second);
    EXPECT_EQ(TCEnvironment::current(), environment) << "the environment outlives the instances";
}

TEST_F(PreviewTests, ADocumentBecomesAPage) {
    const RecordedRequest request = previewOf(write("a b%.tabulon", documentWithLine("1,234.5 + 1")));
    EXPECT_EQ(request.answers, 1);
    EXPECT_EQ(request.contentType, kUTTypeHTML);
    EXPECT_EQ(request.properties, (QLProperties{{"TextEncodingName", "UTF-8"}, {"MIMEType", "text/html"}}));
    ASSERT_TRUE(request.data);
    EXPECT_THAT(*request.data, AllOf(HasSubstr("<!DOCTYPE "), HasSubstr("1,235.5")));
    EXPECT_THAT(*request.data, Not(HasSubstr("4711"))) << "answers are never taken from the file";
    EXPECT_THAT(*request.data,
                AllOf(HasSubstr("<td class=\"line_number\">1</td>"), Not(HasSubstr("<tr class=\"heading\">")),
                      Not(HasSubstr("<tr class=\"statistic\">")), HasSubstr("margin: 0px 0px"),
                      HasSubstr("height: 100%; position: absolute;")));
}

TEST_F(PreviewTests, ADocumentWithoutLinesHasAPageWithoutLineRows) {
    const auto page = previewOf(write("empty.tabulon", "<?xml version=\"1.0\"?><data/>")).data;
    ASSERT_TRUE(page);
    EXPECT_THAT(*page,
                AllOf(HasSubstr("<tr class=\"top_padding\">"), HasSubstr("<tr class=\"bottom_padding\">"),
                      HasSubstr("<tr class=\"line expander\">"), Not(HasSubstr("<tr class=\"line top\">"))));
}

TEST_F(PreviewTests, EveryRequestReadsTheFileAfresh) {
    const std::string path = write("a.tabulon", documentWithLine("2 + 3"));
    EXPECT_THAT(previewOf(path).data.value_or(""), HasSubstr(">5<"));
    write("a.tabulon", documentWithLine("2 + 4"));
    EXPECT_THAT(previewOf(path).data.value_or(""), HasSubstr(">6<"));
}

TEST_F(PreviewTests, AFileThatIsNoXMLIsNotAnswered) {
    EXPECT_EQ(previewOf(write("notes.txt", "1 + 2\n")).answers, 0);
    EXPECT_EQ(previewOf(write("nothing.txt", "")).answers, 0);
}

TEST_F(PreviewTests, ADocumentThatCannotBeReadHasNoPage) {
    const std::string whole = documentWithLine("1 + 2");
    const std::string urls[] = {
        platform::fileURLOfPath(write("cut.tabulon", whole.substr(0, whole.size() / 2))),
        platform::fileURLOfPath(write("root.tabulon", "<?xml version=\"1.0\"?><html/>")),
        platform::fileURLOfPath((folder / "missing.tabulon").string()),
        platform::fileURLOfPath(folder.string()),
        "http://localhost/x.tabulon",
    };
    for (const std::string& url : urls) {
        const RecordedRequest request = previewOfURL(url.c_str());
        EXPECT_EQ(request.answers, 1) << url;
        EXPECT_FALSE(request.data) << url;
    }
    EXPECT_FALSE(previewOfURL(nullptr).data);
}

TEST_F(PreviewTests, ThePageIsMadeOfLinesAlone) {
    EXPECT_FALSE(htmlStringForLineCollection(nullptr));
    const auto collection = std::make_shared<TCLineCollection>();
    collection->addLine(TCLine::lineWithExpressionString(u"6 * 7"));
    EXPECT_THAT(htmlStringForLineCollection(collection).value_or(""), HasSubstr(">42<"));
}

} // namespace
