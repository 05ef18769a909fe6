#pragma once

// Builds the sections of a document out of the events of its XML: elements that begin and end, and text.
// Unknown elements are passed over with all that is in them, an element without text counts as absent,
// and only text that stands right inside of an element is its text. Used by the file reader alone.

#include "document/FileInfoNode.h"
#include "document/FileLinesNode.h"
#include "document/FileSettingsNode.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace TBF {

class FileContents {
public:
    static constexpr std::string_view rootName = "data";

    // The events, in the order of the file. `fileLine` is the line on which the event ends.
    void startElement(std::string_view name, uint32_t fileLine);
    void text(std::string_view bytes, uint32_t fileLine);
    void endElement();

    // The name of the root element, if that isn't the root of a document; all other events are then without
    // effect.
    const std::string& foreignRoot() const { return otherRoot; }

    // Null for a section that isn't there. A section that occurs again replaces the earlier one.
    std::unique_ptr<FileInfoNode> info;
    std::unique_ptr<FileSettingsNode> settings;
    std::unique_ptr<FileLinesNode> lines;

private:
    enum class Place : uint8_t { outside, data, info, settings, lines, line, misc, formatting, item, leaf };
    enum class Leaf : uint8_t {
        version,
        mode,
        settingsTrigonometryMode,
        decimalPlaces,
        decimalPoint,
        thousandsSeparator,
        expression,
        answer,
        expectedAnswer,
        expectedUnit,
        precision,
        lineTrigonometryMode,
        key,
        value,
    };
    struct PlaceRow;
    struct LeafRow;
    static const PlaceRow placeRows[];
    static const LeafRow leafRows[];

    Place place() const { return places.empty() ? Place::outside : places.back(); }
    void enter(Place entered);
    void noteFirstChild(uint32_t fileLine);
    void finishLeaf();
    void finishLineLeaf();
    void finishItemLeaf();
    bool isFirstGeneration() const;
    FileLine& currentLine() { return lines->lineAt(lines->count() - 1); }
    Ref<String> leafString() const;
    Ref<String> sharedLeafString();

    std::vector<Place> places;  // from the root down to where the events are
    std::size_t passedOver = 0; // unknown elements that are open
    std::string otherRoot;
    Leaf leaf = Leaf::version; // of the place `leaf`, with its text
    std::string leafText;

    double version = 0;            // read so far: a body ahead of it is of the first generation
    bool awaitsFirstChild = false; // of a line
    FileDictionary dictionary;     // that is being read
    Ref<String> key;               // of the item that is being read
    Ref<String> value;

    // The short texts of dictionaries, of which a document has many that are alike, are made once.
    std::map<std::string, Ref<String>, std::less<>> sharedStrings;
};

} // namespace TBF
