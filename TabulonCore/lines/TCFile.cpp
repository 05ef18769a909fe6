#include "lines/TCFile.h"

#include "document/FileReader.h"
#include "document/FileWriter.h"
#include "environment/TCTrigonometryMode.h"
#include "environment/TCWarnLog.h"
#include "expressions/TCExpression.h"
#include "lines/TCLine.h"
#include "lines/TCLineCollection.h"
#include "results/TCResult.h"
#include "results/TCResultFormattingOptions.h"
#include "runtime/TBFLog.h"
#include "runtime/Unicode.h"
#include "units/TCUnitCollection.h"
#include "units/TCUnitStringParser.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <string_view>
#include <type_traits>
#include <utility>

namespace {

constexpr std::u16string_view decimalPlacesKey = u"decimal_places";
constexpr std::u16string_view trigonometryModeKey = u"trig_mode";
constexpr int32_t expectedResultPrecision = 50; // decimal places that count, where the file has no say

// What a file may ask for: an answer has no more than 100 decimals, and a mantissa of more digits than this
// in front of the point isn't scientific any more.
constexpr int32_t mostDecimalPlaces = 100;
constexpr int32_t greatestGranularity = 100;

static_assert(TCLineCollection::mostLines == TBF::FileLinesNode::mostLines);

// The attributes that every line has in a file. One that is missing there reads as 0.
struct AttributeRow {
    std::u16string_view key;
    int32_t (*get)(const TCLine& line);
    void (*set)(TCLine& line, int32_t value);
};

constexpr AttributeRow attributeRows[] = {
    {u"thousands_separator",
     [](const TCLine& line) { return int32_t{line.readableFormattingOptions().thousandsSeparator()}; },
     [](TCLine& line, int32_t value) { line.customFormattingOptions()->setThousandsSeparator(value != 0); }},
    {u"trailing_zeros",
     [](const TCLine& line) { return int32_t{line.readableFormattingOptions().trailingZeros()}; },
     [](TCLine& line, int32_t value) { line.customFormattingOptions()->setTrailingZeros(value != 0); }},
    {u"sn_mode", [](const TCLine& line) { return line.readableFormattingOptions().scientificNotationMode(); },
     [](TCLine& line, int32_t value) { line.customFormattingOptions()->setScientificNotationMode(value); }},
    {u"sn_style",
     [](const TCLine& line) { return line.readableFormattingOptions().scientificNotationStyle(); },
     [](TCLine& line, int32_t value) { line.customFormattingOptions()->setScientificNotationStyle(value); }},
    {u"sn_exp_granularity",
     [](const TCLine& line) {
         return static_cast<int32_t>(
             line.readableFormattingOptions().scientificNotationExponentGranularity());
     },
     [](TCLine& line, int32_t value) {
         line.customFormattingOptions()->setScientificNotationExponentGranularity(
             static_cast<uint32_t>(std::clamp(value, 0, greatestGranularity)));
     }},
    {u"display_base", [](const TCLine& line) { return line.readableFormattingOptions().displayBase(); },
     [](TCLine& line, int32_t value) { line.customFormattingOptions()->setDisplayBase(value); }},
    {u"display_format", [](const TCLine& line) { return line.readableFormattingOptions().displayFormat(); },
     [](TCLine& line, int32_t value) { line.customFormattingOptions()->setDisplayFormat(value); }},
    {u"expr_text_align",
     [](const TCLine& line) { return line.expressionFormattingOptions().textAlignment(); },
     [](TCLine& line, int32_t value) { line.expressionFormattingOptions().setTextAlignment(value); }},
};

// The keys as strings, made once and shared by all lines.
const TBF::Ref<TBF::String>& keyString(std::u16string_view key) {
    using Keys = std::vector<TBF::Ref<TBF::String>>;
    static const auto& keys = *[] {
        auto* const made =
            new Keys{TBF::String::create(decimalPlacesKey), TBF::String::create(trigonometryModeKey)};
        for (const AttributeRow& row : attributeRows)
            made->push_back(TBF::String::create(row.key));
        return made;
    }();
    const auto found =
        std::find_if(keys.begin(), keys.end(), [key](const auto& made) { return made->view() == key; });
    VerifyTrue(found != keys.end(), "");
    return *found;
}

// The number that a text begins with, kept within 32 bits; 0 without one.
int32_t integerOf(const TBF::String* text) {
    if (!text) return 0;
    const long value = std::strtol(text->utf8().c_str(), nullptr, 10);
    return static_cast<int32_t>(
        std::clamp<long>(value, std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::max()));
}

int32_t decimalPlacesOf(const TBF::String* text) {
    return std::clamp(integerOf(text), 0, mostDecimalPlaces);
}

double doubleOf(std::string_view text) {
    const std::size_t start = text.find_first_not_of(" \t\r\n");
    if (start == std::string_view::npos) return 0;
    text.remove_prefix(start);
    if (text.starts_with('+')) text.remove_prefix(1);
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

// The shortest text that reads as the same number.
std::u16string textOf(const TCFile::Value& value) {
    if (const auto* text = std::get_if<std::u16string>(&value)) return *text;
    char buffer[32] = {};
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, std::get<double>(value)).ptr;
    return TBF::utf16(std::string_view(buffer, static_cast<std::size_t>(end - buffer)));
}

std::optional<std::u16string> textOf(const TBF::Ref<TBF::String>& string) {
    return string ? std::optional(string->utf16()) : std::nullopt;
}

TBF::Ref<TBF::String> stringOf(const std::optional<std::u16string>& text) {
    return text ? TBF::String::create(*text) : nullptr;
}

TBF::FileSettingsNode settingsOf(const TCLineCollection& collection) {
    TBF::FileSettingsNode settings;
    settings.decimalPoint = collection.decimalPlaceCharacter();
    settings.thousandsSeparator = collection.thousandsSeparatorCharacter();
    const TBFTrigonometryMode mode = TCTrigonometryModeToTBFTrigonometryMode(collection.trigonometryMode());
    settings.trigonometryMode = static_cast<uint32_t>(mode);
    const auto& options = collection.defaultResultFormattingOptions();
    if (options) settings.decimalPlaces = options->decimalPlaces();
    return settings;
}

void writeLine(TCLine& line, TBF::FileLinesNode& lines, std::size_t index) {
    const std::optional<std::u16string> text = line.delocalizedExpressionString();
    if (text && text->find(u'\n') != std::u16string::npos) {
        TCWarnLog("Warning: Expression has a new line character: %s", TBF::utf8(*text).c_str());
        TCWarnLog("location is %i", static_cast<int>(text->find(u'\n')));
    }
    TBF::FileLine& record = lines.lineAt(index);
    record.expression = stringOf(text);
    // A line that was not evaluated yet isn't evaluated for the file. The answer of a text that the file
    // can't hold would stand there beside another text.
    const bool isWhole = !text || std::ranges::all_of(*text, TBF::FileWriter::canHold);
    if (isWhole && line.hasResult()) record.answer = stringOf(line.result()->completeStringValue());
    TCFile::writeLineFormattingAttributesFromLine(line, lines, index);
}

} // namespace

TCFile::TCFile(std::string filePath)
    : path(std::move(filePath)) {}

TCFile::TCFile(std::shared_ptr<TCLineCollection> lineCollection)
    : collection(std::move(lineCollection)) {}

TCFile::~TCFile() = default;

std::shared_ptr<TCLineCollection> TCFile::lineCollectionFromPath(const std::string& path) {
    return TCFile(path).lineCollection();
}

bool TCFile::archiveToPath(std::shared_ptr<TCLineCollection> collection, const std::string& path,
                           const UserInfo& info) {
    TCFile file(std::move(collection));
    for (const auto& [key, value] : info)
        file.setValue(value, key);
    return file.writeToPath(path);
}

std::shared_ptr<TCLineCollection> TCFile::lineCollection() {
    if (!collection) readFromPath(path);
    return collection;
}

TCFileFormat TCFile::fileFormat() {
    if (format == TCFileFormatNotRead) readFromPath(path);
    return format;
}

bool TCFile::isEvaluationTestFile() {
    if (!collection) readFromPath(path);
    return isTest;
}

const std::optional<std::vector<std::shared_ptr<TCResult>>>& TCFile::expectedResults() const {
    if (!isTest) TCWarnLog("Warning: should not be requesting expected results from a non-test file");
    return results;
}

const std::optional<std::vector<std::optional<std::u16string>>>& TCFile::expectedUnitStrings() const {
    if (!isTest) TCWarnLog("Warning: should not be requesting expected unit strings from a non-test file");
    return unitStrings;
}

void TCFile::setLineCollection(std::shared_ptr<TCLineCollection> lineCollection) {
    collection = std::move(lineCollection);
}

int64_t TCFile::fileLineNumberForLine(const TCLine& line) const {
    if (!collection || line._lineCollection() != collection.get()) return -1;
    return line.index() < fileLineNumbers.size() ? fileLineNumbers[line.index()] : -1;
}

void TCFile::setValue(Value value, std::u16string key) {
    miscellaneous.insert_or_assign(std::move(key), std::move(value));
}

std::optional<std::u16string> TCFile::stringForKey(const std::u16string& key) const {
    const auto found = miscellaneous.find(key);
    if (found == miscellaneous.end()) return std::nullopt;
    return textOf(found->second);
}

std::optional<double> TCFile::numberForKey(const std::u16string& key) const {
    const auto found = miscellaneous.find(key);
    if (found == miscellaneous.end()) return std::nullopt;
    if (const auto* number = std::get_if<double>(&found->second)) return *number;
    return doubleOf(TBF::utf8(std::get<std::u16string>(found->second)));
}

std::optional<TBF::FileDictionary> TCFile::tbfMisclaneousDictionary() const {
    if (miscellaneous.empty()) return std::nullopt;
    TBF::FileDictionary dictionary;
    for (const auto& [key, value] : miscellaneous) {
        dictionary.set(TBF::String::create(key), TBF::String::create(textOf(value)));
    }
    return dictionary;
}

void TCFile::readTBFMisclaneousDictionary(const TBF::FileDictionary* dictionary) {
    if (!dictionary) return;
    for (const auto& [key, value] : *dictionary)
        setValue(value->utf16(), key->utf16());
}

bool TCFile::readFromPath(const std::string& filePath) {
    std::error_code ignored;
    const bool exists = std::filesystem::exists(filePath, ignored);
    TBF::FileReader reader(filePath);
    failure.clear();
    if (reader.readFile()) {
        takeContents(reader);
        return true;
    }
    failure = reader.failureSentence();
    if (exists) takeFailure(reader);
    return false;
}

bool TCFile::readFromBytes(std::string bytes, const std::string& name) {
    TBF::FileReader reader(name);
    failure.clear();
    const bool isRead = reader.readMemory(bytes);
    bytes = {}; // before the lines need their memory
    if (isRead) {
        takeContents(reader);
    } else {
        failure = reader.failureSentence();
        takeFailure(reader);
    }
    return isRead;
}

void TCFile::takeFailure(const TBF::FileReader& reader) {
    if (reader.error() == TBF::FileReaderErrorWrongFormat) {
        format = TCFileFormatOther;
    } else {
        format = TCFileFormatUnreadable;
        TBFErrorLog("Error (%d) reading file: '%s'", static_cast<int>(reader.error()),
                    reader.errorMessage().c_str());
    }
}

void TCFile::takeContents(const TBF::FileReader& reader) {
    format = TCFileFormatDocument;
    const TBF::FileSettingsNode settings = reader.settings() ? *reader.settings() : TBF::FileSettingsNode();
    if (reader.info() && reader.info()->version > TBF::documentFileVersion) {
        TBFErrorLog("This file appears to have been created with a newer version (%.2f)",
                    reader.info()->version);
    }
    readTBFMisclaneousDictionary(settings.miscellaneous ? &*settings.miscellaneous : nullptr);
    isTest = reader.info() && reader.info()->isEvaluationTest;
    results.reset();
    unitStrings.reset();
    fileLineNumbers.clear();
    if (isTest) {
        results.emplace();
        unitStrings.emplace();
    }

    const auto read = std::make_shared<TCLineCollection>();
    read->setTrigonometryMode(
        TCTrigonometryModeFromTBFTrigonometryMode(static_cast<int32_t>(settings.trigonometryMode)));
    const TBF::FileLinesNode noLines;
    const TBF::FileLinesNode& lines = reader.lines() ? *reader.lines() : noLines;
    read->beginBatchUpdate();
    for (std::size_t i = 0; i < lines.count(); ++i) {
        const TBF::FileLine& record = *lines.find(i);
        if (isTest) takeExpectations(record);
        const auto line = TCLine::make();
        line->_setExpression(std::make_shared<TCExpression>(textOf(record.expression)));
        readLineFormattingAttributesIntoLine(*line, lines, i);
        read->addLine(line);
        fileLineNumbers.push_back(record.fileLineNumber);
    }
    read->endBatchUpdate();
    if (settings.decimalPoint != 0 && settings.decimalPoint != settings.thousandsSeparator) {
        read->convertToLocaleWithDecimalPoint(settings.decimalPoint, settings.thousandsSeparator);
    }
    collection = read;
}

void TCFile::takeExpectations(const TBF::FileLine& line) {
    const std::optional<std::u16string> unitText = textOf(line.expectedUnit);
    const std::optional<std::u16string> answer = textOf(line.expectedAnswer);
    const TCUnitStringParser unitParser(TCUnitCollection::sharedManager());
    const auto unit = unitText ? unitParser.unitFromString(*unitText) : nullptr;
    auto result = TCResult::resultWithRawResultString(
        answer ? std::optional<std::u16string_view>(*answer) : std::nullopt, unit);
    const TBF::String* const places = line.formattingAttributes.find(decimalPlacesKey);
    if (result) result->setRawResultPrecision(places ? decimalPlacesOf(places) : expectedResultPrecision);
    results->push_back(std::move(result));
    unitStrings->push_back(unitText);
}

bool TCFile::writeToPath(const std::string& filePath) {
    failure.clear();
    TBF::FileInfoNode info;
    TBF::FileSettingsNode settings;
    TBF::FileLinesNode lines;
    if (collection) {
        settings = settingsOf(*collection);
        for (std::size_t i = 0; i < collection->countOfLines(); ++i) {
            writeLine(*collection->lineAtIndex(i), lines, i);
        }
    }
    settings.miscellaneous = tbfMisclaneousDictionary();
    TBF::FileWriter writer;
    writer.setInfoNode(&info);
    writer.setSettingsNode(&settings);
    writer.setLinesNode(&lines);
    if (writer.writeFile(filePath)) return true;
    failure = writer.failureSentence();
    return false;
}

void TCFile::writeLineFormattingAttributesFromLine(const TCLine& line, TBF::FileLinesNode& lines,
                                                   std::size_t index) {
    TBF::FileDictionary& attributes = lines.lineAt(index).formattingAttributes;
    const TCResultFormattingOptions& options = line.readableFormattingOptions();
    if (options.isDecimalPlacesSet()) {
        attributes.set(keyString(decimalPlacesKey), TBF::String::createWithInteger(options.decimalPlaces()));
    }
    const TCLineCollection* const collection = line._lineCollection();
    if (!collection || line.trigonometryMode() != collection->trigonometryMode()) {
        const TBFTrigonometryMode mode = TCTrigonometryModeToTBFTrigonometryMode(line.trigonometryMode());
        attributes.set(keyString(trigonometryModeKey), TBF::String::createWithInteger(mode));
    }
    for (const AttributeRow& row : attributeRows) {
        attributes.set(keyString(row.key), TBF::String::createWithInteger(row.get(line)));
    }
    if (const TBF::FileLine* const before = index > 0 ? lines.find(index - 1) : nullptr)
        attributes.shareWith(before->formattingAttributes);
}

void TCFile::readLineFormattingAttributesIntoLine(TCLine& line, const TBF::FileLinesNode& lines,
                                                  std::size_t index) {
    static const TBF::FileDictionary none;
    const TBF::FileLine* const record = lines.find(index);
    const TBF::FileDictionary& attributes = record ? record->formattingAttributes : none;
    if (const TBF::String* const places = attributes.find(decimalPlacesKey)) {
        line.customFormattingOptions()->setDecimalPlaces(static_cast<uint32_t>(decimalPlacesOf(places)));
    }
    if (const int32_t mode = integerOf(attributes.find(trigonometryModeKey)); mode != 0) {
        line.setTrigonometryMode(TCTrigonometryModeFromTBFTrigonometryMode(mode));
    }
    for (const AttributeRow& row : attributeRows)
        row.set(line, integerOf(attributes.find(row.key)));
    line.takeFormattingOptions(line.readableFormattingOptions()); // lines with equal ones share them
}
