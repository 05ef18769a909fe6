#include "TBColorController.h"

#include "TBColorManager.h"
#include "bundle/Bundle.h"
#include "environment/TKFolders.h"

#include <filesystem>

namespace {

using Style = TKLineCollectionExporterHTMLStyle;
using Setter = void (Style::*)(Style::Color);

constexpr const char* identifiers[] = {
    "TBNumbersSyntaxColor",   "TBWordsSyntaxColor",     "TBCommentsSyntaxColor", "TBHeadingsSyntaxColor",
    "TBConstantsSyntaxColor", "TBOperatorsSyntaxColor", "TBUnitsSyntaxColor",    "TBFunctionsSyntaxColor",
    "TBLabelsSyntaxColor",    "TBBracketsSyntaxColor",
};

struct StyleRow {
    const char* identifier;
    Setter set;
};

// Black where there is no such colour.
constexpr StyleRow tokenRows[] = {
    {"TBNumbersSyntaxColor", &Style::setNumberColor},
    {"TBOperatorsSyntaxColor", &Style::setOperatorColor},
    {"TBUnitsSyntaxColor", &Style::setUnitColor},
    {"TBFunctionsSyntaxColor", &Style::setFunctionColor},
    {"TBBracketsSyntaxColor", &Style::setBracketColor},
    {"TBConstantsSyntaxColor", &Style::setVariableColor},
    {"TBWordsSyntaxColor", &Style::setWordColor},
    {"TBCommentsSyntaxColor", &Style::setInlineCommentColor},
};

// What a scheme may say of the page around the tokens. The style's own where there is no such colour.
constexpr StyleRow pageRows[] = {
    {"TBPageTextColor", &Style::setPageColor},
    {"TBPageBackgroundColor", &Style::setPageBackgroundColor},
    {"TBPageBordersColor", &Style::setDocumentBorderColor},
    {"TBPageAnswersColor", &Style::setAnswerColor},
    {"TBPageAnswersBackgroundColor", &Style::setAnswerBackgroundColor},
    {"TBPageLineNumbersColor", &Style::setLineNumberColor},
    {"TBPageLineNumbersBackgroundColor", &Style::setLineNumberBackgroundColor},
    {"TBPageTitlesColor", &Style::setLeftwardsTitleColor},
    {"TBPageTitlesColor", &Style::setRightwardsTitleColor},
    {"TBPageTitlesColor", &Style::setStatisticTitleColor},
    {"TBPageTitlesColor", &Style::setStatisticColor},
    {"TBPageCommentsColor", &Style::setLeftwardsCommentColor},
    {"TBPageCommentsColor", &Style::setRightwardsCommentColor},
    {"TBPageRelativeReferencesColor", &Style::setRelativeReferenceColor},
    {"TBPageRelativeReferencesBorderColor", &Style::setRelativeReferenceBorderColor},
    {"TBPageFixedReferencesColor", &Style::setFixedReferenceColor},
    {"TBPageFixedReferencesBorderColor", &Style::setFixedReferenceBorderColor},
    {"TBPageAbsoluteReferencesColor", &Style::setAbsoluteReferenceColor},
    {"TBPageAbsoluteReferencesBorderColor", &Style::setAbsoluteReferenceBorderColor},
};

} // namespace

void TBColorController::beginLife(const platform::Bundle& mainBundle) {
    TBColorManager& manager = TBColorManager::sharedInstance();
    if (const auto defaults = mainBundle.pathForResource("Colors", "plist"))
        manager.loadDefaultsFromPath(*defaults);
    path.reset();
    if (const auto folder = TKApplicationSupportDirectory())
        path = (std::filesystem::path(*folder) / "Colors.plist").string();
    std::error_code ignored;
    if (path && std::filesystem::exists(*path, ignored)) manager.loadColorsFromPath(*path);
    for (const char* const identifier : identifiers)
        if (!manager.colorForIdentifier(identifier)) manager.setColor(platform::Color(), identifier, true);
}

void TBColorController::endLife(const platform::Bundle& mainBundle) const {
    if (path)
        TBColorManager::sharedInstance().saveColorsToPath(*path, TKApplicationInfoDictionary(mainBundle));
}

std::span<const char* const> TBColorController::syntaxColoringColorIdentifiers() {
    return identifiers;
}

Style TBColorController::htmlStyle() {
    return htmlStyleForColorManager(TBColorManager::sharedInstance());
}

Style TBColorController::htmlStyleForColorManager(const TBColorManager& manager) {
    Style style;
    for (const StyleRow& row : tokenRows) {
        const std::shared_ptr<TBColor> color = manager.colorForIdentifier(row.identifier);
        (style.*row.set)((color ? color->color() : platform::Color()).cssHexString());
    }
    for (const StyleRow& row : pageRows)
        if (const std::shared_ptr<TBColor> color = manager.colorForIdentifier(row.identifier))
            (style.*row.set)(color->color().cssHexString());
    return style;
}
