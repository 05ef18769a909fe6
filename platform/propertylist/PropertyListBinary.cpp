// Reads the binary form and writes both, through libplist. Before the library sees a binary file, its graph
// of objects is walked: an object may stand in many places, so that a few bytes can stand for billions of
// values, or for a value that contains itself.

#include "propertylist/PropertyListForms.h"

#include <plist/plist.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <utility>

namespace platform {

namespace {

// Seconds from 1970 to 2001, where the library's dates begin.
constexpr int64_t dateOrigin = 978307200;

struct NodeDeleter {
    void operator()(void* node) const { plist_free(node); }
};
using Node = std::unique_ptr<void, NodeDeleter>;

struct FreeDeleter {
    void operator()(void* memory) const { std::free(memory); }
};
using Memory = std::unique_ptr<char, FreeDeleter>;

// The objects of a binary file and what they refer to.
class ObjectGraph {
public:
    explicit ObjectGraph(std::string_view file)
        : bytes(file) {}

    // Whether the file can be handed to the library; if not, `error` says why.
    bool check(std::string& error);

private:
    struct Object {
        enum class State : uint8_t { unseen, entered, done } state = State::unseen;
        int depth = 0;          // of dictionaries and arrays, itself among them
        std::size_t weight = 1; // values, each counted wherever it stands
    };
    struct Visit {
        std::size_t object;
        std::size_t references; // where they are in the file
        std::size_t count;
        std::size_t next = 0;
    };

    bool readTrailer();
    std::optional<uint64_t> integerAt(std::size_t place, std::size_t size) const;
    bool enter(std::size_t object);
    bool walk();

    static constexpr std::size_t trailerSize = 32;

    std::string_view bytes;
    std::size_t offsetSize = 0;
    std::size_t referenceSize = 0;
    std::size_t topObject = 0;
    std::size_t offsetTable = 0;
    std::vector<Object> objects;
    std::vector<Visit> visits;
    const char* problem = "a broken table of objects";
};

// Big-endian, of 1 to 8 bytes.
std::optional<uint64_t> ObjectGraph::integerAt(std::size_t place, std::size_t size) const {
    if (size < 1 || size > 8 || place > bytes.size() || bytes.size() - place < size) return std::nullopt;
    uint64_t number = 0;
    for (std::size_t i = 0; i < size; ++i)
        number = number << 8 | static_cast<unsigned char>(bytes[place + i]);
    return number;
}

bool ObjectGraph::readTrailer() {
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

// Puts an object with its references on the stack. False for one that reaches outside of the file.
bool ObjectGraph::enter(std::size_t object) {
    const auto offset = integerAt(offsetTable + object * offsetSize, offsetSize);
    if (!offset || *offset < binaryPropertyListMagic.size() || *offset >= offsetTable) return false;
    auto place = static_cast<std::size_t>(*offset);
    const auto marker = static_cast<unsigned char>(bytes[place++]);
    const unsigned kind = marker >> 4;
    const bool isDictionary = kind == 0xD;
    Object& entered = objects[object];
    entered.state = Object::State::entered;
    if (!isDictionary && kind != 0xA && kind != 0xC) {
        visits.push_back({object, 0, 0});
        return true;
    }
    uint64_t count = marker & 0xF;
    if (count == 0xF) {
        const auto sizeMarker = integerAt(place, 1);
        if (!sizeMarker || *sizeMarker >> 4 != 1) return false;
        const std::size_t size = std::size_t{1} << (*sizeMarker & 0xF);
        const auto longCount = integerAt(place + 1, size);
        if (!longCount) return false;
        count = *longCount;
        place += 1 + size;
    }
    const uint64_t limit = (offsetTable - std::min(place, offsetTable)) / referenceSize;
    if (count > limit || (isDictionary && count > limit / 2)) return false;
    entered.depth = 1;
    visits.push_back({object, place, static_cast<std::size_t>(isDictionary ? 2 * count : count)});
    return true;
}

bool ObjectGraph::walk() {
    if (!enter(topObject)) return false;
    while (!visits.empty()) {
        Visit& visit = visits.back();
        Object& object = objects[visit.object];
        if (visit.next == visit.count) {
            object.state = Object::State::done;
            visits.pop_back();
            continue;
        }
        const auto reference = integerAt(visit.references + visit.next * referenceSize, referenceSize);
        if (!reference || *reference >= objects.size()) return false;
        const auto target = static_cast<std::size_t>(*reference);
        const Object& part = objects[target];
        if (part.state == Object::State::entered) {
            problem = "a value that contains itself";
            return false;
        }
        if (part.state == Object::State::unseen) {
            if (visits.size() > static_cast<std::size_t>(PropertyList::maximalDepth)) {
                problem = "too many values within one another";
                return false;
            }
            if (!enter(target)) return false;
            continue;
        }
        ++visit.next;
        object.depth = std::max(object.depth, part.depth + 1);
        object.weight += part.weight;
        if (object.depth > PropertyList::maximalDepth || object.weight > PropertyList::maximalCountOfValues) {
            problem = object.depth > PropertyList::maximalDepth ? "too many values within one another"
                                                                : "too many values";
            return false;
        }
    }
    return true;
}

bool ObjectGraph::check(std::string& error) {
    if (readTrailer() && walk()) return true;
    error = problem;
    return false;
}

std::string textOf(plist_t node) {
    uint64_t length = 0;
    const char* const text = plist_get_string_ptr(node, &length);
    return text ? std::string(text, length) : std::string();
}

// Keys may not hold what the library takes for the end of a text.
std::string keyOf(plist_t key) {
    char* text = nullptr;
    plist_get_key_val(key, &text);
    const Memory owned(text);
    return text ? std::string(text) : std::string();
}

PropertyList::Date dateOf(plist_t node) {
    int32_t seconds = 0;
    int32_t microseconds = 0;
    plist_get_date_val(node, &seconds, &microseconds);
    return PropertyList::Date(std::chrono::seconds(dateOrigin + seconds) +
                              std::chrono::milliseconds(microseconds / 1000));
}

PropertyList::Data bytesOf(plist_t node) {
    uint64_t length = 0;
    const char* const data = plist_get_data_ptr(node, &length);
    PropertyList::Data bytes(data ? length : 0);
    if (!bytes.empty()) std::memcpy(bytes.data(), data, bytes.size());
    return bytes;
}

PropertyList valueOf(plist_t node);

PropertyList::Dictionary dictionaryOf(plist_t node) {
    std::vector<PropertyList::Entry> entries;
    entries.reserve(plist_dict_get_size(node));
    plist_dict_iter iterator = nullptr;
    plist_dict_new_iter(node, &iterator);
    const Memory owned(static_cast<char*>(iterator));
    for (;;) {
        char* key = nullptr;
        plist_t item = nullptr;
        plist_dict_next_item(node, iterator, &key, &item);
        const Memory ownedKey(key);
        if (!item) break;
        entries.push_back({key ? std::string(key) : std::string(), valueOf(item)});
    }
    return PropertyList::Dictionary::of(std::move(entries));
}

PropertyList::Array arrayOf(plist_t node) {
    PropertyList::Array items;
    items.reserve(plist_array_get_size(node));
    plist_array_iter iterator = nullptr;
    plist_array_new_iter(node, &iterator);
    const Memory owned(static_cast<char*>(iterator));
    for (;;) {
        plist_t item = nullptr;
        plist_array_next_item(node, iterator, &item);
        if (!item) break;
        items.push_back(valueOf(item));
    }
    return items;
}

// Recursive, to the depth that has been checked.
PropertyList valueOf(plist_t node) {
    uint64_t integer = 0;
    uint8_t truth = 0;
    double real = 0;
    switch (plist_get_node_type(node)) {
    case PLIST_DICT:
        return dictionaryOf(node);
    case PLIST_ARRAY:
        return arrayOf(node);
    case PLIST_STRING:
        return textOf(node);
    case PLIST_KEY:
        return keyOf(node);
    case PLIST_UINT:
        plist_get_uint_val(node, &integer);
        return static_cast<int64_t>(integer);
    case PLIST_UID:
        plist_get_uid_val(node, &integer);
        return static_cast<int64_t>(integer);
    case PLIST_REAL:
        plist_get_real_val(node, &real);
        return real;
    case PLIST_BOOLEAN:
        plist_get_bool_val(node, &truth);
        return truth != 0;
    case PLIST_DATE:
        return dateOf(node);
    case PLIST_DATA:
        return bytesOf(node);
    default:
        return {};
    }
}

// What XML can't hold, controls and broken UTF-8, is replaced by U+FFFD.
std::string writableText(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    const auto* const bytes = reinterpret_cast<const uint8_t*>(text.data());
    const auto length = static_cast<int32_t>(text.size());
    for (int32_t i = 0; i < length;) {
        const int32_t start = i;
        UChar32 character = 0;
        U8_NEXT(bytes, i, length, character);
        const bool isControl = character >= 0 && character < 0x20 && character != '\t' && character != '\n';
        if (character < 0 || isControl || character == 0xFFFE || character == 0xFFFF) {
            result += "\xEF\xBF\xBD";
        } else {
            result.append(text.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(i - start)));
        }
    }
    return result;
}

class Writer {
public:
    Node node(const PropertyList& list, int depth);
    const char* problem = nullptr;

private:
    Node nodeOfDictionary(const PropertyList::Dictionary& dictionary, int depth);
    Node nodeOfArray(const PropertyList::Array& array, int depth);
    static Node nodeOfDate(PropertyList::Date date);
};

Node Writer::nodeOfDictionary(const PropertyList::Dictionary& dictionary, int depth) {
    Node result(plist_new_dict());
    for (const PropertyList::Entry& entry : dictionary) {
        Node part = node(entry.value, depth);
        if (!part) return nullptr;
        plist_dict_set_item(result.get(), writableText(entry.key).c_str(), part.release());
    }
    return result;
}

Node Writer::nodeOfArray(const PropertyList::Array& array, int depth) {
    Node result(plist_new_array());
    for (const PropertyList& item : array) {
        Node part = node(item, depth);
        if (!part) return nullptr;
        plist_array_append_item(result.get(), part.release());
    }
    return result;
}

Node Writer::nodeOfDate(PropertyList::Date date) {
    const auto seconds = std::chrono::floor<std::chrono::seconds>(date);
    const auto rest = std::chrono::duration_cast<std::chrono::microseconds>(date - seconds);
    const int64_t fromOrigin = seconds.time_since_epoch().count() - dateOrigin;
    return Node(plist_new_date(static_cast<int32_t>(std::clamp<int64_t>(fromOrigin, INT32_MIN, INT32_MAX)),
                               static_cast<int32_t>(rest.count())));
}

Node Writer::node(const PropertyList& list, int depth) {
    if (depth > PropertyList::maximalDepth) {
        problem = "too many values within one another";
        return nullptr;
    }
    switch (list.kind()) {
    case PropertyList::Kind::dictionary:
        return nodeOfDictionary(list.dictionary(), depth + 1);
    case PropertyList::Kind::array:
        return nodeOfArray(list.array(), depth + 1);
    case PropertyList::Kind::string:
        return Node(plist_new_string(writableText(*list.string()).c_str()));
    case PropertyList::Kind::integer:
        return Node(plist_new_uint(static_cast<uint64_t>(*list.integer())));
    case PropertyList::Kind::real:
        return Node(plist_new_real(*list.real()));
    case PropertyList::Kind::boolean:
        return Node(plist_new_bool(*list.boolean() ? 1 : 0));
    case PropertyList::Kind::date:
        return nodeOfDate(*list.date());
    case PropertyList::Kind::data:
        return Node(plist_new_data(reinterpret_cast<const char*>(list.data()->data()), list.data()->size()));
    case PropertyList::Kind::null:
        break;
    }
    problem = "a value without a kind";
    return nullptr;
}

} // namespace

std::optional<PropertyList> readBinaryPropertyList(std::string_view bytes, std::string& error) {
    if (!ObjectGraph(bytes).check(error)) return std::nullopt;
    plist_t root = nullptr;
    plist_from_bin(bytes.data(), static_cast<uint32_t>(bytes.size()), &root);
    const Node owned(root);
    if (!root) {
        error = "a broken value";
        return std::nullopt;
    }
    return valueOf(root);
}

std::optional<std::string> writePropertyList(const PropertyList& list, PropertyList::Form form,
                                             std::string& error) {
    Writer writer;
    const Node root = writer.node(list, 0);
    if (!root) {
        error = writer.problem;
        return std::nullopt;
    }
    char* text = nullptr;
    uint32_t length = 0;
    (form == PropertyList::Form::xml ? plist_to_xml : plist_to_bin)(root.get(), &text, &length);
    const Memory owned(text);
    if (!text) {
        error = "no memory";
        return std::nullopt;
    }
    return std::string(text, length);
}

} // namespace platform
