#include "runtime/PolyString.h"
#include "runtime/String.h"
#include "runtime/StringBuffer.h"
#include "runtime/Unicode.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <rapidcheck.h>
#include <string>
#include <unordered_map>

namespace {

using namespace TBF;

TEST(Unicode, BadUTF8BecomesReplacementCharacters) {
    const struct {
        int line;
        std::string bytes;
        std::u16string expected;
    } rows[] = {
        {__LINE__, "", u""},
        {__LINE__, "1 €", u"1 €"},
        {__LINE__, "\xF0\x9F\x8D\x8E", u"\U0001F34E"},
        {__LINE__, "a\xFFz", u"a\uFFFDz"},
        {__LINE__, "a\xE2\x82", u"a\uFFFD"},                         // cut off
        {__LINE__, "\xE2\x28\xA1", u"\uFFFD(\uFFFD"},                // a stray continuation
        {__LINE__, "\xC0\xAF", u"\uFFFD\uFFFD"},                     // overlong
        {__LINE__, "\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},           // an encoded surrogate
        {__LINE__, "\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"}, // beyond the last plane
        {__LINE__, std::string("a\0b", 3), std::u16string(u"a\0b", 3)},
    };
    for (const auto& row : rows)
        EXPECT_EQ(utf16(row.bytes), row.expected) << "row at line " << row.line;
}

TEST(Unicode, LoneSurrogatesAreReplacedWhenEncoding) {
    EXPECT_EQ(utf8(std::u16string{u'a', 0xD83C}), "a\uFFFD");
    EXPECT_EQ(utf8(std::u16string{0xDF4E, u'a'}), "\uFFFDa");
    EXPECT_EQ(utf8(std::u16string{0xD83C, 0xD83C, 0xDF4E}), "\uFFFD\U0001F34E");
}

TEST(Unicode, EveryCodeUnitButSurrogatesGoesThereAndBack) {
    for (uint32_t unit = 0; unit <= 0xFFFF; ++unit) {
        const std::u16string text(1, static_cast<char16_t>(unit));
        const bool surrogate = unit >= 0xD800 && unit <= 0xDFFF;
        ASSERT_EQ(utf16(utf8(text)), surrogate ? u"\uFFFD" : text) << unit;
    }
}

TEST(Unicode, AnyBytesDecodeToATextThatIsStable) {
    EXPECT_TRUE(rc::check([](const std::string& bytes) {
        const std::u16string text = utf16(bytes);
        RC_ASSERT(utf16(utf8(text)) == text);
    }));
}

TEST(Unicode, CaseMappingKnowsNoLocale) {
    const struct {
        std::u16string text, lower, upper;
    } rows[] = {
        {u"", u"", u""},
        {u"Mb 12 KiB", u"mb 12 kib", u"MB 12 KIB"},
        {u"ÄÖ\u00DF", u"äö\u00DF", u"ÄÖSS"},
        {u"TITLE I", u"title i", u"TITLE I"},
        {u"\u0130", u"i\u0307", u"\u0130"}, // grows
        {u"ΟΔΟΣ", u"οδος", u"ΟΔΟΣ"},        // the final sigma
        {u"Σ", u"σ", u"Σ"},
        {u"\U00010400", u"\U00010428", u"\U00010400"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(lowercase(row.text), row.lower) << utf8(row.text);
        EXPECT_EQ(uppercase(row.text), row.upper) << utf8(row.text);
        EXPECT_EQ(String::create(row.text)->lowercase()->view(), row.lower);
    }
}

TEST(String, SharesItselfWhereNothingChanges) {
    const Ref<String> text = String::create(u"plain µ text");
    EXPECT_EQ(text->lowercase(), text);
    EXPECT_EQ(text->substring(0, 12), text);
    EXPECT_EQ(text->substring(-1, std::numeric_limits<int32_t>::max()), text);
    EXPECT_FALSE(text->isUnique() && text->substring(0, 11) == text);
}

TEST(String, SubstringIsThePartInside) {
    const Ref<String> text = String::create(u"0123456789");
    const struct {
        int32_t location, length;
        std::u16string expected;
    } rows[] = {
        {2, 3, u"234"},
        {8, 5, u"89"},
        {10, 1, u""},
        {11, 1, u""},
        {3, 0, u""},
        {3, -1, u""},
        {5, 2147483647, u"56789"},
        {-2, 4, u"01"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(text->substring(row.location, row.length)->view(), row.expected) << row.location;
    }
}

TEST(String, EqualTextsHaveEqualHashes) {
    EXPECT_TRUE(rc::check([](const std::u16string& text, const std::u16string& other) {
        const Ref<String> a = String::create(text);
        const Ref<String> b = String::create(other);
        RC_ASSERT(a->hash() == String::hashOf(text));
        RC_ASSERT(a->equals(*String::create(text)));
        b->hash();
        RC_ASSERT(a->equals(*b) == (text == other));
        RC_ASSERT(String::createWithConcatenation(text, other)->view() == text + other);
    }));
}

TEST(String, MapsAreSearchedWithoutMakingAString) {
    std::unordered_map<Ref<String>, int, StringContentHash, StringContentEqual> map;
    map[String::create(u"euro")] = 1;
    map[String::createWithUTF8("euro")] = 2;
    EXPECT_EQ(map.size(), 1U);
    EXPECT_EQ(map.find(std::u16string_view(u"euro"))->second, 2);
    EXPECT_EQ(map.count(std::u16string_view(u"Euro")), 0U);
}

TEST(PolyString, MakesTheOtherFormOnce) {
    const Ref<PolyString> fromBytes = PolyString::create("5 €");
    String* const made = fromBytes->tbfString();
    EXPECT_EQ(made->view(), u"5 €");
    EXPECT_EQ(fromBytes->tbfString(), made);

    const Ref<String> text = String::create(u"5 €");
    const Ref<PolyString> fromString = PolyString::create(text.get());
    EXPECT_EQ(fromString->cppString(), "5 €");
    EXPECT_EQ(fromString->tbfString(), text.get());
    EXPECT_EQ(fromString->cString(), fromString->cppString().c_str());

    const Ref<PolyString> empty = PolyString::create(String::empty().get());
    EXPECT_EQ(empty->cppString(), "");
    EXPECT_EQ(empty->cppString(), "");
}

TEST(StringBuffer, DropsWhatDoesNotFit) {
    const Ref<StringBuffer> buffer = StringBuffer::create(4);
    for (const char byte : {'a', 'b', 'c', 'd'})
        buffer->append(byte);
    EXPECT_EQ(buffer->length(), 3);
    EXPECT_EQ(buffer->cppString(), "abc");
    buffer->reset();
    buffer->append("wxyz");
    EXPECT_EQ(buffer->createString()->view(), u"wxy");
    buffer->reset();
    buffer->append('n');
    buffer->appendFormat("%d", 1234);
    EXPECT_EQ(buffer->length(), 5); // the whole length of the text, though it overran
    EXPECT_EQ(buffer->createString(), nullptr);
    EXPECT_EQ(buffer->cppString(), "n12");
    buffer->append("more");
    buffer->append('!');
    buffer->appendFormat("%s", "more");
    EXPECT_EQ(buffer->length(), 5);
}

} // namespace
