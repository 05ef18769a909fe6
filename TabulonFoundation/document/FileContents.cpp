#include "document/FileContents.h"

#include "runtime/Unicode.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <limits>
#include <utility>

namespace TBF {

namespace {

// Up to this version lines have the elements `precision` and `trig_mode` in place of `formatting`.
constexpr double lastVersionOfFirstGeneration = 0.5;

// Bounds on shared strings: a document of nothing but different ones isn't held twice.
constexpr std::size_t maxSharedLength = 64;
constexpr std::size_t maxSharedCount = 1000;

// The number that the text begins with, 0 without one, independent of the process's locale.
double doubleOf(std::string_view text) {
    const std::size_t start = text.find_first_not_of(" \t\r\n\f\v");
    if (start == std::string_view::npos) return 0;
    text.remove_prefix(start);
    if (text.starts_with('+')) text.remove_prefix(1);
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

// The same for integers, kept within 32 bits.
int32_t integerOf(const std::string& text) {
    const long value = std::strtol(text.c_str(), nullptr, 10);
    return static_cast<int32_t>(
        std::clamp<long>(value, std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::max()));
}

} // namespace

// Elements that hold others, by the place where they may stand.
struct FileContents::PlaceRow {
    Place parent;
    std::string_view name;
    Place place;
};

const FileContents::PlaceRow FileContents::placeRows[] = {
    {Place::outside, rootName, Place::data},        {Place::data, "info", Place::info},
    {Place::data, "settings", Place::settings},     {Place::data, "lines", Place::lines},
    {Place::settings, "misc", Place::misc},         {Place::lines, "line", Place::line},
    {Place::line, "formatting", Place::formatting}, {Place::misc, "item", Place::item},
    {Place::formatting, "item", Place::item},
};

// Elements that hold text.
struct FileContents::LeafRow {
    Place parent;
    std::string_view name;
    Leaf leaf;
};

const FileContents::LeafRow FileContents::leafRows[] = {
    {Place::info, "version", Leaf::version},
    {Place::info, "mode", Leaf::mode},
    {Place::settings, "trig_mode", Leaf::settingsTrigonometryMode},
    {Place::settings, "dp", Leaf::decimalPlaces},
    {Place::settings, "dp_char", Leaf::decimalPoint},
    {Place::settings, "th_char", Leaf::thousandsSeparator},
    {Place::line, "expression", Leaf::expression},
    {Place::line, "answer", Leaf::answer},
    {Place::line, "expected_ans", Leaf::expectedAnswer},
    {Place::line, "expected_unit", Leaf::expectedUnit},
    {Place::line, "precision", Leaf::precision},
    {Place::line, "trig_mode", Leaf::lineTrigonometryMode},
    {Place::item, "key", Leaf::key},
    {Place::item, "value", Leaf::value},
};

void FileContents::startElement(std::string_view name, uint32_t fileLine) {
    noteFirstChild(fileLine);
    if (passedOver > 0) {
        ++passedOver;
        return;
    }
    const Place parent = place();
    for (const PlaceRow& row : placeRows) {
        if (row.parent == parent && row.name == name) return enter(row.place);
    }
    for (const LeafRow& row : leafRows) {
        if (row.parent != parent || row.name != name) continue;
        leaf = row.leaf;
        leafText.clear();
        return enter(Place::leaf);
    }
    if (parent == Place::outside) otherRoot = name;
    passedOver = 1;
}

void FileContents::enter(Place entered) {
    places.push_back(entered);
    switch (entered) {
    case Place::info:
        info = std::make_unique<FileInfoNode>();
        break;
    case Place::settings:
        settings = std::make_unique<FileSettingsNode>();
        break;
    case Place::lines:
        lines = std::make_unique<FileLinesNode>();
        break;
    case Place::line:
        lines->lineAt(lines->count());
        awaitsFirstChild = true;
        break;
    case Place::misc:
    case Place::formatting:
        dictionary = FileDictionary();
        break;
    case Place::item:
        key.reset();
        value.reset();
        break;
    default:
        break;
    }
}

void FileContents::text(std::string_view bytes, uint32_t fileLine) {
    noteFirstChild(fileLine);
    if (passedOver == 0 && place() == Place::leaf) leafText += bytes;
}

void FileContents::noteFirstChild(uint32_t fileLine) {
    if (!awaitsFirstChild) return;
    awaitsFirstChild = false;
    currentLine().fileLineNumber = fileLine;
}

void FileContents::endElement() {
    awaitsFirstChild = false;
    if (passedOver > 0) {
        --passedOver;
        return;
    }
    const Place left = places.back();
    places.pop_back();
    if (left == Place::leaf) finishLeaf();
    if (left == Place::misc) settings->miscellaneous = std::move(dictionary);
    if (left == Place::formatting && !isFirstGeneration()) {
        if (lines->count() > 1) dictionary.shareWith(lines->find(lines->count() - 2)->formattingAttributes);
        currentLine().formattingAttributes = std::move(dictionary);
    }
}

void FileContents::finishLeaf() {
    if (place() == Place::line) return finishLineLeaf();
    if (place() == Place::item) return finishItemLeaf();
    if (leafText.empty()) return;
    switch (leaf) {
    case Leaf::version:
        version = info->version = doubleOf(leafText);
        break;
    case Leaf::mode:
        info->isEvaluationTest = info->isEvaluationTest || leafText == "test";
        break;
    case Leaf::settingsTrigonometryMode:
        settings->trigonometryMode = static_cast<uint32_t>(integerOf(leafText));
        break;
    case Leaf::decimalPlaces:
        settings->decimalPlaces = static_cast<uint32_t>(integerOf(leafText));
        break;
    case Leaf::decimalPoint:
        settings->decimalPoint = codeUnitOf(leafText);
        break;
    case Leaf::thousandsSeparator:
        settings->thousandsSeparator = codeUnitOf(leafText);
        break;
    default:
        break;
    }
}

void FileContents::finishLineLeaf() {
    const std::size_t index = lines->count() - 1;
    const bool isTest = info && info->isEvaluationTest;
    const bool hasNumber = isFirstGeneration() && !leafText.empty() && integerOf(leafText) >= 0;
    switch (leaf) {
    case Leaf::expression:
        currentLine().expression = leafString();
        break;
    case Leaf::answer:
        currentLine().answer = leafString();
        break;
    case Leaf::expectedAnswer:
        if (isTest) currentLine().expectedAnswer = leafString();
        break;
    case Leaf::expectedUnit:
        if (isTest) currentLine().expectedUnit = leafString();
        break;
    case Leaf::precision:
        if (hasNumber) lines->setDecimalPlaces_0_5(index, integerOf(leafText));
        break;
    case Leaf::lineTrigonometryMode:
        if (hasNumber) lines->setTrigonometryMode_0_5(index, integerOf(leafText));
        break;
    default:
        break;
    }
}

// Key and value pair up in either order, and may do so several times in one item.
void FileContents::finishItemLeaf() {
    (leaf == Leaf::key ? key : value) = sharedLeafString();
    if (!key || !value) return;
    dictionary.set(std::move(key), std::move(value));
    key.reset();
    value.reset();
}

bool FileContents::isFirstGeneration() const {
    return !(version > lastVersionOfFirstGeneration);
}

Ref<String> FileContents::leafString() const {
    return leafText.empty() ? nullptr : String::createWithUTF8(leafText);
}

Ref<String> FileContents::sharedLeafString() {
    if (leafText.size() > maxSharedLength) return leafString();
    const auto found = sharedStrings.find(leafText);
    if (found != sharedStrings.end()) return found->second;
    Ref<String> made = leafString();
    if (made && sharedStrings.size() < maxSharedCount) sharedStrings.emplace(leafText, made);
    return made;
}

} // namespace TBF
