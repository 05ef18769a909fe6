#pragma once

// How a document's page looks: fonts, insets, widths, colours, and which parts show; and the style sheet
// that follows from these settings. Made for one page, changed and read on one thread.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

class TKLineCollectionExporterHTMLStyle {
public:
    // A colour as CSS writes it; none makes no declaration.
    using Color = std::optional<std::string>;

    // The whole style sheet, a line for each selector, in a fixed order.
    std::string cssString() const;

    // Further rules, which `cssString` doesn't have: for narrow windows, for paper, and for words that are
    // longer than their column.
    std::string adaptiveCSSString() const;

    // The declarations of one selector ("td.answer"); none for an unknown one.
    std::optional<std::string> cssForSelector(std::string_view selector) const;
    std::optional<std::string> cssForClass(std::string_view selector) const {
        return cssForSelector(selector);
    }

    // Which parts show.
    bool showsLineNumbers() const { return showsLineNumbersValue; }
    void setShowsLineNumbers(bool value) { showsLineNumbersValue = value; }
    bool showsDocumentTitle() const { return showsDocumentTitleValue; }
    void setShowsDocumentTitle(bool value) { showsDocumentTitleValue = value; }
    bool showsDocumentDate() const { return showsDocumentDateValue; }
    void setShowsDocumentDate(bool value) { showsDocumentDateValue = value; }
    bool showsDocumentStatistic() const { return showsDocumentStatisticValue; }
    void setShowsDocumentStatistic(bool value) { showsDocumentStatisticValue = value; }
    bool enableVerticalAutoresizing() const { return enableVerticalAutoresizingValue; }
    void setEnableVerticalAutoresizing(bool value) { enableVerticalAutoresizingValue = value; }
    bool enableHorizontalAutoresizing() const { return enableHorizontalAutoresizingValue; }
    void setEnableHorizontalAutoresizing(bool value) { enableHorizontalAutoresizingValue = value; }
    bool enableAdaptiveRules() const { return enableAdaptiveRulesValue; } // whether pages have them
    void setEnableAdaptiveRules(bool value) { enableAdaptiveRulesValue = value; }
    bool enableSyntaxColoring() const { return enableSyntaxColoringValue; }
    void setEnableSyntaxColoring(bool value) { enableSyntaxColoringValue = value; }

    // Lengths in CSS pixels.
    uint64_t fontSize() const { return fontSizeValue; }
    void setFontSize(uint64_t value) { fontSizeValue = value; }
    uint64_t sideInset() const { return sideInsetValue; }
    void setSideInset(uint64_t value) { sideInsetValue = value; }
    uint64_t topInset() const { return topInsetValue; }
    void setTopInset(uint64_t value) { topInsetValue = value; }
    uint64_t bottomInset() const { return bottomInsetValue; }
    void setBottomInset(uint64_t value) { bottomInsetValue = value; }
    uint64_t contentWidth() const { return contentWidthValue; }
    void setContentWidth(uint64_t value) { contentWidthValue = value; }
    uint64_t answerWidth() const { return answerWidthValue; }
    void setAnswerWidth(uint64_t value) { answerWidthValue = value; }

    // The first font of the page; an empty name stands for the default.
    const std::string& fontName() const { return fontNameValue; }
    void setFontName(std::string value) { fontNameValue = std::move(value); }

    // Colours of the page.
    const Color& documentTitleColor() const { return documentTitleColorValue; }
    void setDocumentTitleColor(Color value) { documentTitleColorValue = std::move(value); }
    const Color& documentDateColor() const { return documentDateColorValue; }
    void setDocumentDateColor(Color value) { documentDateColorValue = std::move(value); }
    const Color& documentBorderColor() const { return documentBorderColorValue; }
    void setDocumentBorderColor(Color value) { documentBorderColorValue = std::move(value); }
    const Color& statisticTitleColor() const { return statisticTitleColorValue; }
    void setStatisticTitleColor(Color value) { statisticTitleColorValue = std::move(value); }
    const Color& statisticColor() const { return statisticColorValue; }
    void setStatisticColor(Color value) { statisticColorValue = std::move(value); }
    const Color& expressionBackgroundColor() const { return expressionBackgroundColorValue; }
    void setExpressionBackgroundColor(Color value) { expressionBackgroundColorValue = std::move(value); }
    const Color& answerBackgroundColor() const { return answerBackgroundColorValue; }
    void setAnswerBackgroundColor(Color value) { answerBackgroundColorValue = std::move(value); }
    const Color& answerColor() const { return answerColorValue; }
    void setAnswerColor(Color value) { answerColorValue = std::move(value); }
    const Color& pageColor() const { return pageColorValue; }
    void setPageColor(Color value) { pageColorValue = std::move(value); }
    const Color& pageBackgroundColor() const { return pageBackgroundColorValue; }
    void setPageBackgroundColor(Color value) { pageBackgroundColorValue = std::move(value); }
    const Color& lineNumberColor() const { return lineNumberColorValue; }
    void setLineNumberColor(Color value) { lineNumberColorValue = std::move(value); }
    const Color& lineNumberBackgroundColor() const { return lineNumberBackgroundColorValue; }
    void setLineNumberBackgroundColor(Color value) { lineNumberBackgroundColorValue = std::move(value); }
    const Color& relativeReferenceColor() const { return relativeReferenceColorValue; }
    void setRelativeReferenceColor(Color value) { relativeReferenceColorValue = std::move(value); }
    const Color& relativeReferenceBorderColor() const { return relativeReferenceBorderColorValue; }
    void setRelativeReferenceBorderColor(Color value) {
        relativeReferenceBorderColorValue = std::move(value);
    }
    const Color& fixedReferenceColor() const { return fixedReferenceColorValue; }
    void setFixedReferenceColor(Color value) { fixedReferenceColorValue = std::move(value); }
    const Color& fixedReferenceBorderColor() const { return fixedReferenceBorderColorValue; }
    void setFixedReferenceBorderColor(Color value) { fixedReferenceBorderColorValue = std::move(value); }
    const Color& absoluteReferenceColor() const { return absoluteReferenceColorValue; }
    void setAbsoluteReferenceColor(Color value) { absoluteReferenceColorValue = std::move(value); }
    const Color& absoluteReferenceBorderColor() const { return absoluteReferenceBorderColorValue; }
    void setAbsoluteReferenceBorderColor(Color value) {
        absoluteReferenceBorderColorValue = std::move(value);
    }

    // Colours of the syntax classes: none while syntax colouring is off, whatever is stored.
    Color numberColor() const { return syntaxColor(numberColorValue); }
    void setNumberColor(Color value) { numberColorValue = std::move(value); }
    Color operatorColor() const { return syntaxColor(operatorColorValue); }
    void setOperatorColor(Color value) { operatorColorValue = std::move(value); }
    Color wordColor() const { return syntaxColor(wordColorValue); }
    void setWordColor(Color value) { wordColorValue = std::move(value); }
    Color unitColor() const { return syntaxColor(unitColorValue); }
    void setUnitColor(Color value) { unitColorValue = std::move(value); }
    Color variableColor() const { return syntaxColor(variableColorValue); }
    void setVariableColor(Color value) { variableColorValue = std::move(value); }
    Color functionColor() const { return syntaxColor(functionColorValue); }
    void setFunctionColor(Color value) { functionColorValue = std::move(value); }
    Color bracketColor() const { return syntaxColor(bracketColorValue); }
    void setBracketColor(Color value) { bracketColorValue = std::move(value); }
    Color rightwardsTitleColor() const { return syntaxColor(rightwardsTitleColorValue); }
    void setRightwardsTitleColor(Color value) { rightwardsTitleColorValue = std::move(value); }
    Color leftwardsTitleColor() const { return syntaxColor(leftwardsTitleColorValue); }
    void setLeftwardsTitleColor(Color value) { leftwardsTitleColorValue = std::move(value); }
    Color inlineCommentColor() const { return syntaxColor(inlineCommentColorValue); }
    void setInlineCommentColor(Color value) { inlineCommentColorValue = std::move(value); }
    Color leftwardsCommentColor() const { return syntaxColor(leftwardsCommentColorValue); }
    void setLeftwardsCommentColor(Color value) { leftwardsCommentColorValue = std::move(value); }
    Color rightwardsCommentColor() const { return syntaxColor(rightwardsCommentColorValue); }
    void setRightwardsCommentColor(Color value) { rightwardsCommentColorValue = std::move(value); }

private:
    Color syntaxColor(const Color& color) const { return enableSyntaxColoringValue ? color : std::nullopt; }

    bool showsLineNumbersValue = true;
    bool showsDocumentTitleValue = false;
    bool showsDocumentDateValue = false;
    bool showsDocumentStatisticValue = true;
    bool enableVerticalAutoresizingValue = false;
    bool enableHorizontalAutoresizingValue = true;
    bool enableAdaptiveRulesValue = false;
    bool enableSyntaxColoringValue = true;
    uint64_t fontSizeValue = 14;
    uint64_t sideInsetValue = 30;
    uint64_t topInsetValue = 30;
    uint64_t bottomInsetValue = 30;
    uint64_t contentWidthValue = 500;
    uint64_t answerWidthValue = 200;
    std::string fontNameValue = "Lucida Grande";
    Color documentTitleColorValue;
    Color documentDateColorValue = "#999";
    Color documentBorderColorValue = "#aaa";
    Color statisticTitleColorValue = "#333";
    Color statisticColorValue = "#333";
    Color expressionBackgroundColorValue;
    Color answerBackgroundColorValue = "#eef1fb";
    Color answerColorValue = "#000";
    Color pageColorValue;           // the browser's own
    Color pageBackgroundColorValue; // likewise
    Color lineNumberColorValue = "#555";
    Color lineNumberBackgroundColorValue = "#f8f8f8";
    Color relativeReferenceColorValue = "#e0e7f8"; // the ground of a reference
    Color relativeReferenceBorderColorValue = "#a9bbeb";
    Color fixedReferenceColorValue = "#ebe2f8";
    Color fixedReferenceBorderColorValue = "#b9a8d1";
    Color absoluteReferenceColorValue = "#e9d8f6";
    Color absoluteReferenceBorderColorValue = "#bf99e7";
    Color numberColorValue = "#000";
    Color operatorColorValue = "#000";
    Color wordColorValue;
    Color unitColorValue;
    Color variableColorValue;
    Color functionColorValue;
    Color bracketColorValue;
    Color rightwardsTitleColorValue = "#444";
    Color leftwardsTitleColorValue = "#444";
    Color inlineCommentColorValue = "#555";
    Color leftwardsCommentColorValue = "#555";
    Color rightwardsCommentColorValue = "#555";
};
