#include "EditedDocument.h"

#include "environment/TCSettings.h"
#include "environment/TKEnvironment.h"
#include "environment/TKEnvironmentBuilder.h"
#include "eval/Foundation.h"
#include "expressions/TCExpressionToken.h"
#include "expressions/TCParsedExpression.h"
#include "lines/TCLine.h"
#include "lines/TCLineCollection.h"
#include "lines/TCLineCollectionDelegate.h"
#include "lines/TCLineReferenceIndex.h"
#include "lines/TCLineReferenceSubstituter.h"
#include "locale/Locale.h"
#include "results/TCResult.h"
#include "results/TCResultFormatter.h"
#include "results/TCResultFormattingOptions.h"
#include "runtime/Settings.h"
#include "runtime/TBFLog.h"
#include "runtime/Unicode.h"
#include "units/TCUnitCollection.h"
#include "variables/TCVariable.h"
#include "variables/TCVariableList.h"

#include <algorithm>
#include <array>
#include <map>
#include <memory>
#include <set>
#include <utility>

namespace {

constexpr std::array<std::pair<char16_t, char16_t>, 2> locales = {{{u'.', u','}, {u',', u'.'}}};

// Notes the lines that it hears of, and rewrites the references that a report asks to move, as an editor
// does.
class FollowingDelegate final : public TCLineCollectionDelegate, private TCLineReferenceSubstituterDelegate {
public:
    FollowingDelegate(bool followsReferences, bool writesElsewhere)
        : follows(followsReferences)
        , writes(writesElsewhere) {}

    // Since the last call.
    TCLineIndexSet takeLines() { return std::exchange(heardOf, {}); }

    void lineCollectionDidUpdateLinesAtIndexes(TCLineCollection&, const TCLineIndexSet& indexes) override {
        heardOf.add(indexes);
    }

    bool respondsToDidNoticeThatLineReferenceOnLines() const override { return follows; }

    void lineCollectionDidNoticeThatLineReferenceOnLinesShouldShiftBy(
        TCLineCollection& collection, const std::vector<std::shared_ptr<TCLine>>& lines,
        const std::vector<TCLineReferenceShifts>& shifts) override {
        const auto borrowed = std::shared_ptr<TCLineCollection>(std::shared_ptr<void>(), &collection);
        for (std::size_t i = 0; i < lines.size(); ++i) {
            auto text = TCLineReferenceSubstituter::stringByReplacingLineReferencesOfType(
                allTypes, *lines[i], borrowed, this, &shifts[i]);
            if (text) lines[i]->setExpressionString(std::move(text));
        }
        constexpr std::array texts = {u"x = 2", u"y = 3 m", u"7", u"x = 4 km"};
        if (writes) collection.lineAtIndex(0)->setExpressionString(texts[written++ % texts.size()]);
    }

private:
    static constexpr int32_t allTypes = 31;

    std::optional<TCAttributedString> stringForLineReference(TCLineReferenceType type, int64_t number,
                                                             std::size_t, TCLineCollection&,
                                                             const std::any& contextInfo) override {
        const auto& shifts = *std::any_cast<const TCLineReferenceShifts*>(contextInfo);
        const auto shift = shifts.find(TCLineReferenceIdentifier(type, number));
        if (shift == shifts.end()) return std::nullopt;
        const std::string name = TBF::utf8(TCLineReferenceFunctionNameForType(type));
        return TCAttributedString{
            TBF::utf16("(" + name + "(" + std::to_string(number + shift->second) + "))"), {}};
    }

    bool follows;
    bool writes;
    std::size_t written = 0;
    TCLineIndexSet heardOf;
};

std::string utf8Of(const std::optional<std::u16string>& text) {
    return text ? TBF::utf8(*text) : "(none)";
}

// What the line holds, without evaluating it: an answer that nobody has asked for counts as well.
std::string answerOf(TCLine& line) {
    int64_t error = 0;
    const auto result = line._resultAlongPath(nullptr, &error);
    if (!result) return "not evaluated";
    if (result->resultType() == TCResultTypeError)
        return TBF::utf8(errorStringForTCResultErrorType(result->errorType()));
    const auto shown =
        TCResultFormatter::sharedInstance().stringValueForResult(result.get(), line.formattingOptions());
    return "[" + utf8Of(shown) + "] " + utf8Of(result->completeStringValue()) + " " +
           utf8Of(result->unitString()) + (result->isPercent() ? " %" : "");
}

std::string tokensOf(const TCLine& line) {
    std::string text;
    const auto parsed = line.parsedExpression();
    if (!parsed) return "not parsed";
    for (const auto& token : parsed->tokens())
        text += std::to_string(token->range().location) + "+" + std::to_string(token->range().length) + ":" +
                std::to_string(token->type()) + "." + std::to_string(token->subType()) + " ";
    return text;
}

// The names that lines declare, each with the value at the end of the document.
std::vector<std::string> namesOf(const TCLineCollection& document) {
    std::vector<std::string> rows;
    for (const auto& variable : document.variables()->variables())
        rows.push_back(utf8Of(variable->name()) + " = " + TBF::utf8(variable->displayValue()));
    std::sort(rows.begin(), rows.end());
    return rows;
}

std::shared_ptr<TCLineCollection> freshLoadOf(const TCLineCollection& document) {
    auto fresh = std::make_shared<TCLineCollection>();
    if (document.defaultResultFormattingOptions())
        fresh->setDefaultResultFormattingOptions(std::make_shared<TCResultFormattingOptions>());
    fresh->setTrigonometryMode(document.trigonometryMode());
    fresh->setLocaleWithDecimalPoint(document.decimalPlaceCharacter(),
                                     document.thousandsSeparatorCharacter());
    fresh->beginBatchUpdate();
    for (const auto& line : document) {
        const auto twin = TCLine::lineWithExpressionString(line->expressionString());
        twin->setTrigonometryMode(line->trigonometryMode());
        fresh->addLine(twin);
    }
    fresh->endBatchUpdate();
    return fresh;
}

class EditedDocument {
public:
    explicit EditedDocument(const EditScenario& scenario)
        : follower(scenario.followsReferences, scenario.writesElsewhere)
        , document(std::make_shared<TCLineCollection>()) {
        document->setDelegate(&follower);
        if (scenario.sharesOptions)
            document->setDefaultResultFormattingOptions(std::make_shared<TCResultFormattingOptions>());
        document->beginBatchUpdate();
        for (const std::string& text : scenario.texts)
            document->addLine(TCLine::lineWithExpressionString(TBF::utf16(text)));
        document->endBatchUpdate();
    }

    ~EditedDocument() {
        document->setDelegate(nullptr);
        for (const std::u16string& name : globalNames)
            TCVariableList::sharedList()->removeVariableWithName(name);
    }

    TCLineCollection& lines() { return *document; }
    bool isInBatch() const { return inBatch; }

    void apply(const Edit& edit) {
        const std::size_t count = document->countOfLines();
        switch (edit.kind) {
        case EditKind::Insert:
            insert(edit, edit.position % (count + 1));
            return;
        case EditKind::SetGlobalName:
            setGlobalName(edit);
            return;
        case EditKind::RemoveGlobalName:
            if (globalNames.erase(TBF::utf16(edit.text)) == 0) return;
            TCVariableList::sharedList()->removeVariableWithName(TBF::utf16(edit.text));
            document->reevaluateLinesDependingOnVariable();
            return;
        case EditKind::PutBack:
            if (removed) document->insertLine(std::exchange(removed, nullptr), edit.position % (count + 1));
            return;
        case EditKind::BeginBatch:
            document->beginBatchUpdate();
            inBatch = true;
            return;
        case EditKind::EndBatch:
            endBatch();
            return;
        case EditKind::ModeOfDocument:
            document->setTrigonometryMode(1 + static_cast<int32_t>(edit.other % 2));
            return;
        case EditKind::ReadInLocale:
            document->setLocaleWithDecimalPoint(localeOf(edit).first, localeOf(edit).second);
            return;
        case EditKind::ConvertToLocale:
            document->convertToLocaleWithDecimalPoint(localeOf(edit).first, localeOf(edit).second);
            return;
        case EditKind::RemoveAll:
            document->removeAllLines();
            return;
        case EditKind::Reevaluate:
            document->reevaluateLinesDependingOnUnit();
            return;
        default:
            if (count > 0) applyToLine(edit, edit.position % count);
        }
    }

    void endBatch() {
        if (std::exchange(inBatch, false)) document->endBatchUpdate();
    }

    // The lines whose answers aren't those of the last call, and of which no word came meanwhile.
    std::string linesChangedInSilence() {
        std::string what;
        const TCLineIndexSet heardOf = follower.takeLines();
        std::map<const TCLine*, std::string> answers;
        for (const auto& line : *document) {
            std::string answer = answerOf(*line);
            const auto before = lastAnswers.find(line.get());
            const bool isOther = before == lastAnswers.end() || before->second != answer;
            if (isOther && !heardOf.contains(line->index()))
                what += "  nobody heard of line " + std::to_string(line->index()) + ": " + answer + "\n";
            answers.emplace(line.get(), std::move(answer));
        }
        lastAnswers = std::move(answers);
        return what;
    }

private:
    void insert(const Edit& edit, std::size_t index) {
        const auto line = TCLine::lineWithExpressionString(TBF::utf16(edit.text));
        if (edit.other % 8 == 0) line->setTrigonometryMode(2);
        document->insertLine(line, index);
    }

    // A value of the same text has one of several units, or a percent sign.
    void setGlobalName(const Edit& edit) {
        const std::u16string name = TBF::utf16(edit.text);
        const auto list = TCVariableList::sharedList();
        if (!globalNames.contains(name) && list->containsVariableWithExactCaseName(name)) return;
        if (globalNames.insert(name).second) list->addVariableWithName(name, u"5");
        constexpr std::array units = {u"m", u"km", u"kg"};
        const auto unit = edit.other % 4 < units.size()
                              ? TCUnitCollection::sharedManager()->unitWithName(units[edit.other % 4])
                              : nullptr;
        list->variableWithExactCaseName(name)->setDelocalizedValue(u"5", edit.other / 4 % 4 == 0, unit);
        document->reevaluateLinesDependingOnVariable();
    }

    static std::pair<char16_t, char16_t> localeOf(const Edit& edit) { return locales[edit.other % 2]; }

    void applyToLine(const Edit& edit, std::size_t index) {
        const auto line = document->lineAtIndex(index);
        switch (edit.kind) {
        case EditKind::SetText:
            line->setExpressionString(edit.text.empty() && edit.other % 2 == 0
                                          ? std::nullopt
                                          : std::optional(TBF::utf16(edit.text)));
            return;
        case EditKind::Remove:
            removed = line;
            document->removeLineAtIndex(index);
            return;
        case EditKind::Move:
            document->moveLineAtIndex(index, edit.other % document->countOfLines());
            return;
        case EditKind::ModeOfLine:
            line->setTrigonometryMode(1 + static_cast<int32_t>(edit.other % 2));
            return;
        case EditKind::AskForAnswer:
            line->result();
            return;
        default:
            return;
        }
    }

    FollowingDelegate follower;
    std::shared_ptr<TCLineCollection> document;
    std::shared_ptr<TCLine> removed;
    std::set<std::u16string> globalNames;
    std::map<const TCLine*, std::string> lastAnswers;
    bool inBatch = false;
};

std::string textsOf(const TCLineCollection& document) {
    std::string text;
    for (const auto& line : document)
        text += "    " + std::to_string(line->index()) + " (" +
                (line->trigonometryMode() == 1 ? "degrees" : "radians") + ")  " +
                utf8Of(line->expressionString()) + "\n";
    return text;
}

// Nothing where both agree.
std::string differenceBetween(TCLineCollection& edited, TCLineCollection& fresh, bool comparesTokens) {
    std::string what;
    for (std::size_t i = 0; i < edited.countOfLines(); ++i) {
        TCLine& line = *edited.lineAtIndex(i);
        TCLine& twin = *fresh.lineAtIndex(i);
        std::string is = answerOf(line);
        std::string expected = answerOf(twin);
        if (is == expected && comparesTokens) {
            is = tokensOf(line);
            expected = tokensOf(twin);
        }
        if (is != expected)
            what += "  line " + std::to_string(i) + " after edits: " + is + "\n  line " + std::to_string(i) +
                    " loaded:      " + expected + "\n";
    }
    const auto are = namesOf(edited);
    const auto expected = namesOf(fresh);
    if (what.empty() && are != expected) {
        what += "  names after edits:";
        for (const std::string& row : are)
            what += " " + row + ";";
        what += "\n  names loaded:     ";
        for (const std::string& row : expected)
            what += " " + row + ";";
        what += "\n";
    }
    return what.empty() ? what : what + textsOf(edited);
}

const char* nameOf(EditKind kind) {
    constexpr std::array names = {
        "set text",          "insert",           "remove",       "move",           "begin batch",
        "end batch",         "mode of document", "mode of line", "read in locale", "convert to locale",
        "put back",          "remove all",       "reevaluate",   "ask for answer", "set global name",
        "remove global name"};
    return names[static_cast<std::size_t>(kind)];
}

} // namespace

std::optional<EditDifference> firstDifference(const EditScenario& scenario) {
    EditedDocument document(scenario);
    for (std::size_t step = 0; step <= scenario.edits.size(); ++step) {
        if (step > 0) document.apply(scenario.edits[step - 1]);
        if (step == scenario.edits.size()) document.endBatch();
        if (document.isInBatch()) continue;
        const auto fresh = freshLoadOf(document.lines());
        std::string what = differenceBetween(document.lines(), *fresh, scenario.comparesTokens);
        what += document.linesChangedInSilence();
        if (!what.empty()) return EditDifference{step, std::move(what)};
    }
    return std::nullopt;
}

EditScenario minimized(EditScenario scenario) {
    const auto fails = [](const EditScenario& candidate) { return firstDifference(candidate).has_value(); };
    if (const auto difference = firstDifference(scenario)) scenario.edits.resize(difference->countOfEdits);
    bool smaller = true;
    const auto leaveOut = [&](auto EditScenario::*part) {
        for (std::size_t i = (scenario.*part).size(); i > 0; --i) {
            EditScenario candidate = scenario;
            (candidate.*part).erase((candidate.*part).begin() + static_cast<std::ptrdiff_t>(i - 1));
            if (!fails(candidate)) continue;
            scenario = std::move(candidate);
            smaller = true;
        }
    };
    while (std::exchange(smaller, false)) {
        leaveOut(&EditScenario::edits);
        leaveOut(&EditScenario::texts);
    }
    return scenario;
}

std::string description(const EditScenario& scenario) {
    std::string text = scenario.followsReferences ? "references follow\n" : "";
    if (scenario.writesElsewhere) text += "the delegate writes elsewhere\n";
    if (scenario.sharesOptions) text += "options are shared\n";
    for (const std::string& line : scenario.texts)
        text += "  | " + line + "\n";
    for (const Edit& edit : scenario.edits)
        text += std::string("  ") + nameOf(edit.kind) + " " + std::to_string(edit.position) + " " +
                std::to_string(edit.other) + "  " + edit.text + "\n";
    return text;
}

void startEnvironmentForEdits(const char* contentBundle, bool allowsRedefinitions) {
    TBFErrorLogSetEnabled(0);
    platform::Locale::setIdentifier("en_US");
    const auto settings = TBF::Settings::create();
    // A change of a setting is reported.
    if (allowsRedefinitions) settings->setBool(TBFSettingAllowsVariableRedefinitions, true);
    TBF::startFoundation(settings);
    TCSettings::make()->set();
    const auto environment = TKEnvironmentBuilder().build();
    environment->setUpdatesValuesFromWeb(false);
    environment->loadFromBundleAtPath(contentBundle, "en");
    environment->completeLoading();
    environment->set();
}
