#include "TBColorController.h"
#include "TBColorManager.h"

#include "NotificationCenter.h"
#include "bundle/Bundle.h"

#include <cmath>
#include <filesystem>
#include <fstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

using platform::Color;
using platform::PropertyList;
using testing::ElementsAre;
using testing::HasSubstr;

std::string entry(const char* identifier, double red, double green, double blue) {
    const auto real = [](const char* key, double value) {
        return std::string("<key>") + key + "</key><real>" + std::to_string(value) + "</real>";
    };
    return "<dict>" +
           (identifier ? std::string("<key>identifier</key><string>") + identifier + "</string>" : "") +
           real("redComponent", red) + real("greenComponent", green) + real("blueComponent", blue) +
           "<key>alphaComponent</key><integer>1</integer></dict>";
}

std::string colorsFile(const std::string& entries) {
    return "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>TBColors</key><array>" + entries +
           "</array></dict></plist>";
}

class ColorTests : public testing::Test {
protected:
    void SetUp() override {
        std::filesystem::create_directories(folder);
        manager.dataSource().clear();
    }
    void TearDown() override {
        manager.dataSource().clear();
        std::filesystem::remove_all(folder);
    }

    std::string write(const char* name, const std::string& content) const {
        std::ofstream(folder / name, std::ios::binary) << content;
        return (folder / name).string();
    }
    std::string cssOf(const char* identifier) const {
        const auto color = manager.colorForIdentifier(identifier);
        return color ? color->color().cssHexString() : "none";
    }
    std::vector<std::string> identifiers() const {
        std::vector<std::string> names;
        for (const auto& color : manager.dataSource())
            names.push_back(color->identifier());
        return names;
    }

    const std::filesystem::path folder = testing::TempDir() + "color-tests-" + std::to_string(getpid());
    TBColorManager& manager = TBColorManager::sharedInstance();
};

TEST_F(ColorTests, ADictionaryGivesAndTakesAColor) {
    const TBColor color(PropertyList::Dictionary{
        {"identifier", "A"}, {"redComponent", 1}, {"greenComponent", 0.5}, {"blueComponent", "x"}});
    EXPECT_EQ(color.identifier(), "A");
    EXPECT_EQ(color.color().cssHexString(), "#ff7f00");
    EXPECT_EQ(color.color().components().alpha, 0);
    EXPECT_TRUE(color.isPersistant());

    const TBColor third(Color::rgb(1.0 / 3, 0, 0, 0.25), "B");
    const PropertyList saved = third.dictionaryRepresentation();
    EXPECT_EQ(saved["redComponent"].real(), static_cast<double>(1.0F / 3)) << "in single precision";
    EXPECT_EQ(saved["alphaComponent"].real(), 0.25);
    EXPECT_EQ(TBColor(saved).dictionaryRepresentation(), saved);
    EXPECT_EQ(TBColor(PropertyList()).identifier(), "Undefined");
}

TEST_F(ColorTests, DefaultsAreKeptInOrderAndTheFirstCounts) {
    manager.loadDefaultsFromPath(
        write("a.plist", colorsFile(entry("A", 1, 0, 0) + entry(nullptr, 0, 1, 0) + entry("A", 0, 0, 1))));
    EXPECT_THAT(identifiers(), ElementsAre("A", "Undefined", "A"));
    EXPECT_EQ(cssOf("A"), "#ff0000");
    EXPECT_EQ(cssOf("Undefined"), "#00ff00");
    EXPECT_EQ(manager.colorForIdentifier("B"), nullptr);
}

TEST_F(ColorTests, ColorsOfAFileTakeTheirPlacesAndTellOfIt) {
    manager.loadDefaultsFromPath(write("a.plist", colorsFile(entry("A", 1, 0, 0) + entry("A", 0, 0, 1))));
    std::vector<std::string> news;
    const auto observation = platform::NotificationCenter::shared().addObserver(
        TBColorDidChange, nullptr, [&](const auto& notification) {
            news.push_back(notification.template objectAs<TBColor>()->color().cssHexString());
        });
    EXPECT_TRUE(
        manager.loadColorsFromPath(write("b.plist", colorsFile(entry("B", 1, 1, 1) + entry("A", 0, 1, 0)))));
    EXPECT_THAT(identifiers(), ElementsAre("A", "A", "B"));
    EXPECT_EQ(cssOf("A"), "#00ff00");
    EXPECT_EQ(cssOf("B"), "#ffffff");
    EXPECT_THAT(news, ElementsAre("#00ff00")) << "a new identifier is no change";
}

TEST_F(ColorTests, FilesWithoutColorsChangeNothing) {
    manager.setColor(Color::rgb(1, 0, 0), "A", true);
    const std::string files[] = {
        (folder / "missing.plist").string(),
        write("text", "red"),
        write("other", "<?xml version=\"1.0\"?><plist "
                       "version=\"1.0\"><dict><key>TBColors</key><string/></dict></plist>"),
        folder.string(),
    };
    for (const std::string& file : files) {
        std::string error;
        manager.loadDefaultsFromPath(file);
        EXPECT_FALSE(manager.loadColorsFromPath(file, &error)) << file;
        EXPECT_THAT(error, HasSubstr(file));
        EXPECT_THAT(identifiers(), ElementsAre("A"));
    }
}

TEST_F(ColorTests, OnlyPersistentColorsAreSaved) {
    manager.setColor(Color::rgb(1, 0, 0), "A", true);
    manager.setColor(Color::rgb(0, 1, 0), "B", false);
    const std::string path = (folder / "saved.plist").string();
    manager.saveColorsToPath(path, PropertyList::Dictionary{{"CreatorID", "x"}});
    const auto saved = PropertyList::read(path);
    ASSERT_TRUE(saved);
    EXPECT_EQ((*saved)["TBColors"].array().size(), 1u);
    EXPECT_EQ((*saved)["TBColors"].at(0)["identifier"].string(), "A");
    EXPECT_EQ((*saved)["TBVersionInfo"]["CreatorID"].string(), "x");
    manager.saveColorsToPath((folder / "no" / "such").string(), PropertyList());
    EXPECT_FALSE(std::filesystem::exists(folder / "no"));
}

TEST_F(ColorTests, AColorByItsComponentsIsMadeOnce) {
    manager.setColor(Color::rgb(0.5, 0.25, 0), "A", true);
    EXPECT_EQ(TBColorManager::colorWithRed(0.5, 0.25, 0, 1).cssHexString(), "#7f3f00");
    EXPECT_EQ(manager.dataSource().size(), 1u);
    TBColorManager::colorWithRed(0.5, 0.25, 0, 0.5);
    TBColorManager::colorWithRed(0.5, 0.25, 0, 0.5);
    EXPECT_THAT(identifiers(), ElementsAre("A", "Undefined"));
    EXPECT_FALSE(manager.dataSource().back()->isPersistant());
}

TEST_F(ColorTests, AnApplicationBeginsWithDefaultsItsUsersColorsAndBlack) {
    write("Colors.plist",
          colorsFile(entry("TBNumbersSyntaxColor", 1, 0, 0) + entry("TBUnitsSyntaxColor", 0, 1, 0)));
    setenv("XDG_DATA_HOME", (folder / "data").c_str(), 1);
    TBColorController controller;
    const platform::Bundle bundle("example.test", folder.string());
    controller.beginLife(bundle);
    ASSERT_TRUE(controller.dataSourcePath());
    EXPECT_EQ(cssOf("TBNumbersSyntaxColor"), "#ff0000");
    EXPECT_EQ(cssOf("TBLabelsSyntaxColor"), "#000000");
    EXPECT_EQ(manager.dataSource().size(), TBColorController::syntaxColoringColorIdentifiers().size());

    manager.setColor(Color::rgb(0, 0, 1), "TBNumbersSyntaxColor", true);
    controller.endLife(bundle);
    manager.dataSource().clear();
    TBColorController().beginLife(bundle);
    EXPECT_EQ(cssOf("TBNumbersSyntaxColor"), "#0000ff");
    EXPECT_EQ(cssOf("TBUnitsSyntaxColor"), "#00ff00");
    unsetenv("XDG_DATA_HOME");
}

TEST_F(ColorTests, StylesWithoutColorsAreBlack) {
    const auto style = TBColorController::htmlStyle();
    for (const auto& color :
         {style.numberColor(), style.operatorColor(), style.unitColor(), style.functionColor(),
          style.bracketColor(), style.variableColor(), style.wordColor(), style.inlineCommentColor()})
        EXPECT_EQ(color, "#000000");
    EXPECT_EQ(style.leftwardsTitleColor(), "#444");
    EXPECT_EQ(style.rightwardsCommentColor(), "#555");
    EXPECT_EQ(style.cssForSelector("body"), "margin: 0px; padding: 0px;");
}

// The contrast of two colours after WCAG, from 1 to 21.
double channel(const std::string& css, std::size_t index) {
    const std::size_t digits = css.size() == 4 ? 1 : 2;
    const std::string part = css.substr(1 + index * digits, digits);
    const double level = std::stoi(digits == 1 ? part + part : part, nullptr, 16) / 255.0;
    return level <= 0.04045 ? level / 12.92 : std::pow((level + 0.055) / 1.055, 2.4);
}
double luminance(const std::string& css) {
    return 0.2126 * channel(css, 0) + 0.7152 * channel(css, 1) + 0.0722 * channel(css, 2);
}
double contrast(const std::string& one, const std::string& other) {
    const auto [low, high] = std::minmax({luminance(one), luminance(other)});
    return (high + 0.05) / (low + 0.05);
}

TEST_F(ColorTests, EverySchemeCanBeRead) {
    EXPECT_NEAR(contrast("#000", "#ffffff"), 21, 0.001);
    constexpr double enough = 4.5;
    for (const bool isDark : {false, true}) {
        manager.dataSource().clear();
        manager.loadDefaultsFromPath(CONTENT_FOLDER "/Colors.plist");
        for (const char* const identifier : TBColorController::syntaxColoringColorIdentifiers())
            EXPECT_NE(cssOf(identifier), "none") << identifier;
        if (isDark) {
            ASSERT_TRUE(manager.loadColorsFromPath(CONTENT_FOLDER "/Colors-dark.plist"));
        }
        const auto style = TBColorController::htmlStyle();
        const std::string page = style.pageBackgroundColor().value_or("#fff");
        const std::string text = style.pageColor().value_or("#000");
        EXPECT_EQ(luminance(page) < 0.1, isDark);

        const TKLineCollectionExporterHTMLStyle::Color tokens[] = {
            style.numberColor(),
            style.operatorColor(),
            style.unitColor(),
            style.functionColor(),
            style.bracketColor(),
            style.variableColor(),
            style.wordColor(),
            style.inlineCommentColor(),
            style.leftwardsTitleColor(),
            style.rightwardsTitleColor(),
            style.leftwardsCommentColor(),
            style.rightwardsCommentColor(),
        };
        for (const auto& color : tokens)
            EXPECT_GE(contrast(*color, page), enough) << *color << " on " << page;
        const std::pair<std::string, TKLineCollectionExporterHTMLStyle::Color> others[] = {
            {text, page},
            {text, style.relativeReferenceColor()},
            {text, style.fixedReferenceColor()},
            {text, style.absoluteReferenceColor()},
            {*style.answerColor(), style.answerBackgroundColor()},
            {*style.lineNumberColor(), style.lineNumberBackgroundColor()},
            {*style.statisticColor(), page},
        };
        for (const auto& [color, ground] : others)
            EXPECT_GE(contrast(color, *ground), enough) << color << " on " << *ground;
    }
}

} // namespace
