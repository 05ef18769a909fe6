// Reads the binary form: objects that refer to one another by number, found through a table of offsets at the
// end. An object may stand in many places, so that a few bytes can stand for billions of values, or for a
// value that contains itself: the graph is measured before any value is made.

#include "propertylist/PropertyListForms.h"

#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <bit>
#include <chrono>
#include <cmath>
#include <cstring>
#include <utility>

namespace platform {

namespace {

// Seconds from 1970 to 2001, where dates begin.
constexpr double dateOrigin = 978307200;

// The kind of an object is the upper half of its first byte.
enum Marker : unsigned {
    markerSimple = 0x0,
    markerInteger = 0x1,
    markerReal = 0x2,
    markerDate = 0x3,
    markerData = 0x4,
    markerASCII = 0x5,
    markerUTF16 = 0x6,
    markerUTF8 = 0x7,
    markerUID = 0x8,
    markerArray = 0xA,
    markerSet = 0xC,
    markerDictionary = 0xD,
};

class BinaryReader {
public:
    explicit BinaryReader(std::string_view file)
        : bytes(file) {}

    std::optional<PropertyList> read(std::string& error);

private:
    // Where an object's contents are.
    struct Contents {
        unsigned marker = 0;
        unsigned detail = 0;    // the lower half of the first byte
        std::size_t place = 0;  // of what follows
        std::size_t length = 0; // bytes of a leaf, references of an array or dictionary
    };
    struct Object {
        enum class State : uint8_t { unseen, entered, done } state = State::unseen;
        int depth = 0;          // of dictionaries and arrays, itself among them
        std::size_t weight = 1; // values, each counted wherever it stands
    };
    struct Visit {
        std::size_t object;
        Contents contents;
        std::size_t next = 0;
    };

    bool readTrailer();
    std::optional<uint64_t> integerAt(std::size_t place, std::size_t size) const;
    std::optional<Contents> contentsOf(std::size_t object) const;
    std::optional<std::size_t> reference(const Contents& contents, std::size_t index) const;
    bool enter(std::size_t object);
    bool measure();
    bool addPart(Object& object, const Object& part);

    std::optional<PropertyList> value(std::size_t object) const;
    std::optional<PropertyList> leaf(const Contents& contents) const;
    std::optional<PropertyList> array(const Contents& contents) const;
    std::optional<PropertyList> dictionary(const Contents& contents) const;

    static constexpr std::size_t trailerSize = 32;
    // So many bytes of a text weigh as much as a value.
    static constexpr std::size_t bytesPerWeight = 32;

    std::string_view bytes;
    std::size_t offsetSize = 0;
    std::size_t referenceSize = 0;
    std::size_t topObject = 0;
    std::size_t offsetTable = 0;
    std::vector<Object> objects;
    std::vector<Visit> visits;
    const char* problem = "a broken table of objects";
};

bool isContainer(unsigned marker) {
    return marker == markerArray || marker == markerSet || marker == markerDictionary;
}

// Big-endian, of 1 to 8 bytes.
std::optional<uint64_t> BinaryReader::integerAt(std::size_t place, std::size_t size) const {
    if (size < 1 || size > 8 || place > bytes.size() || bytes.size() - place < size) return std::nullopt;
    uint64_t number = 0;
    for (std::size_t i = 0; i < size; ++i)
        number = number << 8 | static_cast<unsigned char>(bytes[place + i]);
    return number;
}

bool BinaryReader::readTrailer() {
    if (bytes.size() < binaryPropertyListMagic.size() + trailerSize) return false;
    const std::size_t trailer = bytes.size() - trailerSize;
    offsetSize = static_cast<unsigned char>(bytes[trailer + 6]);
    referenceSize = static_cast<unsigned char>(bytes[trailer + 7]);
    const uint64_t count = *integerAt(trailer + 8, 8);
    const uint64_t top = *integerAt(trailer + 16, 8);
    const uint64_t table = *integerAt(trailer + 24, 8);
    if (offsetSize < 1 || offsetSize > 8 || referenceSize < 1 || referenceSize > 8) return false;
    if (table < binaryPropertyListMagic.size() || table > trailer) return false;
    if (count == 0 || count > (trailer - table) / offsetSize || top >= count) return false;
    topObject = static_cast<std::size_t>(top);
    offsetTable = static_cast<std::size_t>(table);
    objects.resize(static_cast<std::size_t>(count));
    return true;
}

// None for an object that reaches outside of the file.
std::optional<BinaryReader::Contents> BinaryReader::contentsOf(std::size_t object) const {
    const auto offset = integerAt(offsetTable + object * offsetSize, offsetSize);
    if (!offset || *offset < binaryPropertyListMagic.size() || *offset >= offsetTable) return std::nullopt;
    auto place = static_cast<std::size_t>(*offset);
    const unsigned first = static_cast<unsigned char>(bytes[place++]);
    Contents contents{first >> 4U, first & 0xFU, place, 0};
    uint64_t count = contents.detail;
    const bool hasCount = contents.marker >= markerData && contents.marker != markerUID;
    if (hasCount && count == 0xF) {
        const auto sizeMarker = integerAt(place, 1);
        if (!sizeMarker || *sizeMarker >> 4 != markerInteger || (*sizeMarker & 0xF) > 3) return std::nullopt;
        const std::size_t size = std::size_t{1} << (*sizeMarker & 0xF);
        const auto longCount = integerAt(place + 1, size);
        if (!longCount) return std::nullopt;
        count = *longCount;
        contents.place += 1 + size;
    } else if (contents.marker == markerInteger || contents.marker == markerReal ||
               contents.marker == markerDate) {
        count = uint64_t{1} << contents.detail;
    } else if (contents.marker == markerUID) {
        count = contents.detail + 1;
    } else if (contents.marker == markerSimple) {
        count = 0;
    }
    const std::size_t unit = contents.marker == markerUTF16        ? 2
                             : contents.marker == markerDictionary ? 2 * referenceSize
                             : isContainer(contents.marker)        ? referenceSize
                                                                   : 1;
    if (contents.place > offsetTable || count > (offsetTable - contents.place) / unit) return std::nullopt;
    contents.length = static_cast<std::size_t>(count) * (contents.marker == markerUTF16 ? 2 : 1);
    if (contents.marker == markerDictionary) contents.length *= 2;
    return contents;
}

// Of a dictionary first the keys, then the values.
std::optional<std::size_t> BinaryReader::reference(const Contents& contents, std::size_t index) const {
    const auto number = integerAt(contents.place + index * referenceSize, referenceSize);
    return number && *number < objects.size() ? std::optional(static_cast<std::size_t>(*number))
                                              : std::nullopt;
}

bool BinaryReader::enter(std::size_t object) {
    auto contents = contentsOf(object);
    if (!contents) return false;
    Object& entered = objects[object];
    entered.state = Object::State::entered;
    if (isContainer(contents->marker)) {
        entered.depth = 1;
    } else {
        entered.weight += contents->length / bytesPerWeight;
        contents->length = 0;
    }
    visits.push_back({object, *contents});
    return true;
}

bool BinaryReader::addPart(Object& object, const Object& part) {
    object.depth = std::max(object.depth, part.depth + 1);
    object.weight += part.weight;
    if (object.depth > PropertyList::maximalDepth) problem = "too many values within one another";
    if (object.weight > PropertyList::maximalCountOfValues) problem = "too many values";
    return object.depth <= PropertyList::maximalDepth && object.weight <= PropertyList::maximalCountOfValues;
}

// Goes through the graph with a stack of its own; false if it is broken or unfolds to too much.
bool BinaryReader::measure() {
    if (!enter(topObject)) return false;
    while (!visits.empty()) {
        Visit& visit = visits.back();
        Object& object = objects[visit.object];
        if (visit.next == visit.contents.length) {
            object.state = Object::State::done;
            visits.pop_back();
            continue;
        }
        const auto target = reference(visit.contents, visit.next);
        if (!target) return false;
        const Object& part = objects[*target];
        if (part.state == Object::State::done) {
            ++visit.next;
            if (!addPart(object, part)) return false;
            continue;
        }
        if (part.state == Object::State::entered) {
            problem = "a value that contains itself";
            return false;
        }
        if (visits.size() > static_cast<std::size_t>(PropertyList::maximalDepth)) {
            problem = "too many values within one another";
            return false;
        }
        if (!enter(*target)) return false;
    }
    return true;
}

// A real of 4 or 8 bytes.
std::optional<double> realOf(uint64_t bits, std::size_t size) {
    if (size == sizeof(double)) return std::bit_cast<double>(bits);
    if (size == sizeof(float)) return std::bit_cast<float>(static_cast<uint32_t>(bits));
    return std::nullopt;
}

std::optional<PropertyList> dateOf(double secondsFromOrigin) {
    const double milliseconds = std::round((secondsFromOrigin + dateOrigin) * 1000);
    const auto count = [](PropertyList::Date date) {
        return static_cast<double>(date.time_since_epoch().count());
    };
    if (!(milliseconds >= count(earliestDate) && milliseconds <= count(latestDate))) return std::nullopt;
    return PropertyList(PropertyList::Date(std::chrono::milliseconds(static_cast<int64_t>(milliseconds))));
}

// Broken units become U+FFFD.
std::string utf8OfUTF16(std::string_view units) {
    std::u16string text;
    for (std::size_t i = 0; i + 1 < units.size(); i += 2) {
        const auto high = static_cast<unsigned char>(units[i]);
        text += static_cast<char16_t>(high << 8U | static_cast<unsigned char>(units[i + 1]));
    }
    std::string result;
    const auto length = static_cast<int32_t>(text.size());
    for (int32_t i = 0; i < length;) {
        UChar32 character = 0;
        U16_NEXT(text.data(), i, length, character);
        if (U_IS_SURROGATE(character)) character = 0xFFFD;
        std::array<uint8_t, U8_MAX_LENGTH> sequence{};
        int32_t count = 0;
        U8_APPEND_UNSAFE(sequence.data(), count, character);
        result.append(sequence.begin(), sequence.begin() + count);
    }
    return result;
}

std::optional<PropertyList> BinaryReader::leaf(const Contents& contents) const {
    const std::string_view content = bytes.substr(contents.place, contents.length);
    const auto number = integerAt(contents.place, std::clamp<std::size_t>(contents.length, 1, 8));
    switch (contents.marker) {
    case markerSimple:
        if (contents.detail != 8 && contents.detail != 9) return std::nullopt;
        return PropertyList(contents.detail == 9);
    case markerInteger:
    case markerUID:
        // Of 8 bytes it has a sign; of 16 it is beyond what fits.
        if (!number || contents.length > 8) return std::nullopt;
        return PropertyList(static_cast<int64_t>(*number));
    case markerReal: {
        const auto real = number ? realOf(*number, contents.length) : std::nullopt;
        return real ? std::optional(PropertyList(*real)) : std::nullopt;
    }
    case markerDate: {
        const auto seconds = number ? realOf(*number, contents.length) : std::nullopt;
        return seconds ? dateOf(*seconds) : std::nullopt;
    }
    case markerData: {
        PropertyList::Data data(content.size());
        if (!data.empty()) std::memcpy(data.data(), content.data(), data.size());
        return PropertyList(std::move(data));
    }
    case markerASCII:
    case markerUTF8:
        return PropertyList(content);
    case markerUTF16:
        return PropertyList(utf8OfUTF16(content));
    default:
        return std::nullopt;
    }
}

std::optional<PropertyList> BinaryReader::array(const Contents& contents) const {
    PropertyList::Array items;
    items.reserve(contents.length);
    for (std::size_t i = 0; i < contents.length; ++i) {
        auto item = value(*reference(contents, i));
        if (!item) return std::nullopt;
        items.push_back(std::move(*item));
    }
    return PropertyList(std::move(items));
}

std::optional<PropertyList> BinaryReader::dictionary(const Contents& contents) const {
    const std::size_t count = contents.length / 2;
    std::vector<PropertyList::Entry> entries;
    entries.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        const auto key = value(*reference(contents, i));
        auto item = value(*reference(contents, count + i));
        if (!key || !key->string() || !item) return std::nullopt;
        entries.push_back({std::string(*key->string()), std::move(*item)});
    }
    return PropertyList(PropertyList::Dictionary::of(std::move(entries)));
}

// Recursive, to the depth that has been measured.
std::optional<PropertyList> BinaryReader::value(std::size_t object) const {
    const Contents contents = *contentsOf(object);
    if (contents.marker == markerDictionary) return dictionary(contents);
    return isContainer(contents.marker) ? array(contents) : leaf(contents);
}

std::optional<PropertyList> BinaryReader::read(std::string& error) {
    if (!readTrailer() || !measure()) {
        error = problem;
        return std::nullopt;
    }
    auto list = value(topObject);
    if (!list) error = "a broken value";
    return list;
}

} // namespace

std::optional<PropertyList> readBinaryPropertyList(std::string_view bytes, std::string& error) {
    return BinaryReader(bytes).read(error);
}

} // namespace platform
