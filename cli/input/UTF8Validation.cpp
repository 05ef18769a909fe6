#include "input/UTF8Validation.h"

#include <cstdint>
#include <cstring>

namespace {

// The sequences of more than one byte, by their first byte. The second byte's range is what keeps out long
// forms, surrogates and values past the end of Unicode; all later ones are 80 to BF.
struct SequenceRow {
    uint8_t firstLow, firstHigh;
    uint8_t secondLow, secondHigh;
    uint8_t length;
};

constexpr SequenceRow sequences[] = {
    {0xC2, 0xDF, 0x80, 0xBF, 2}, {0xE0, 0xE0, 0xA0, 0xBF, 3}, {0xE1, 0xEC, 0x80, 0xBF, 3},
    {0xED, 0xED, 0x80, 0x9F, 3}, {0xEE, 0xEF, 0x80, 0xBF, 3}, {0xF0, 0xF0, 0x90, 0xBF, 4},
    {0xF1, 0xF3, 0x80, 0xBF, 4}, {0xF4, 0xF4, 0x80, 0x8F, 4},
};

constexpr uint8_t byteAt(std::string_view bytes, std::size_t i) {
    return static_cast<uint8_t>(bytes[i]);
}

// The length of the valid sequence at `start`, whose byte is not ASCII; 0 if there is none.
std::size_t sequenceLength(std::string_view bytes, std::size_t start) {
    const uint8_t first = byteAt(bytes, start);
    for (const SequenceRow& row : sequences) {
        if (first < row.firstLow || first > row.firstHigh) continue;
        if (bytes.size() - start < row.length) return 0;
        const uint8_t second = byteAt(bytes, start + 1);
        if (second < row.secondLow || second > row.secondHigh) return 0;
        for (std::size_t i = start + 2; i < start + row.length; ++i) {
            if ((byteAt(bytes, i) & 0xC0) != 0x80) return 0;
        }
        return row.length;
    }
    return 0;
}

bool nextEightAreASCII(std::string_view bytes, std::size_t start) {
    uint64_t word = 0;
    if (bytes.size() - start < sizeof word) return false;
    std::memcpy(&word, bytes.data() + start, sizeof word);
    return (word & 0x8080808080808080) == 0;
}

} // namespace

std::size_t firstInvalidUTF8(std::string_view bytes) {
    std::size_t i = 0;
    while (i < bytes.size()) {
        if (nextEightAreASCII(bytes, i)) {
            i += 8;
        } else if (byteAt(bytes, i) < 0x80) {
            ++i;
        } else if (const std::size_t length = sequenceLength(bytes, i)) {
            i += length;
        } else {
            return i;
        }
    }
    return bytes.size();
}
