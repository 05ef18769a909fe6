#include "face/runtime/TBFCaseInsensitiveDictionary.h"
#include "face/runtime/TBFSettings.h"
#include "face/runtime/TBFString.h"
#include "runtime/Array.h"
#include "runtime/CaseInsensitiveDictionary.h"
#include "runtime/Settings.h"
#include "runtime/String.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <stdexcept>

namespace {

using namespace TBF;

using MallocText = std::unique_ptr<char, decltype(&std::free)>;

TEST(TBFString, NullHandlesAreHarmless) {
    int32_t size = -1;
    TBFChar buffer[1];
    EXPECT_EQ(TBFStringCompare(nullptr, nullptr), -1);
    EXPECT_EQ(TBFStringRetain(nullptr), nullptr);
    EXPECT_EQ(TBFStringCopy(nullptr), nullptr);
    TBFStringRelease(nullptr);
    EXPECT_EQ(TBFStringLength(nullptr), 0);
    EXPECT_EQ(TBFStringGetCharAtIndex(nullptr, 0), TBFCharNULL);
    EXPECT_EQ(TBFStringGetChars(nullptr, buffer, 1), 0);
    EXPECT_EQ(TBFStringGetUTF8(nullptr, &size), nullptr);
    EXPECT_EQ(size, 0);
    EXPECT_EQ(TBFStringCreateWithUTF8(nullptr), nullptr);
    EXPECT_EQ(TBFStringLowercaseString(nullptr), nullptr);
    EXPECT_EQ(TBFCharFromUTF8(nullptr), TBFCharNULL);
}

TEST(TBFString, CreatesReadsAndCopies) {
    const Ref<String> number = adopt(TBFStringCreateWithInteger(std::numeric_limits<int64_t>::min()));
    EXPECT_EQ(TBFStringGetCppString(number.get()), "-9223372036854775808");

    const Ref<String> text = adopt(TBFStringCreateWithUTF8("5 €"));
    const Ref<String> copy = adopt(TBFStringCopy(text.get()));
    EXPECT_EQ(copy, text);
    int32_t size = 0;
    const MallocText bytes(TBFStringGetUTF8(text.get(), &size), &std::free);
    EXPECT_STREQ(bytes.get(), "5 €");
    EXPECT_EQ(size, 6);
    TBFChar buffer[2] = {};
    EXPECT_EQ(TBFStringGetChars(text.get(), buffer, 2), 2);
    EXPECT_EQ(buffer[0], u'5');
    EXPECT_EQ(TBFStringGetCharAtIndex(text.get(), 2), u'€');
    EXPECT_EQ(TBFStringGetCharAtIndex(text.get(), 3), TBFCharNULL);
    EXPECT_EQ(TBFStringCompare(text.get(), adopt(TBFStringCreateWithCppString("5 €")).get()), 0);
    EXPECT_EQ(TBFStringCompare(text.get(), number.get()), -1);
}

TEST(TBFChar, ComparesAsUnsignedAndReadsOneUnit) {
    EXPECT_EQ(TBFCharCompare(0xFFFF, 0x0041), 1);
    EXPECT_EQ(TBFCharCompare(0x0041, 0xFFFF), -1);
    EXPECT_EQ(TBFCharCompare(0xFFFF, 0xFFFF), 0);
    EXPECT_EQ(TBFCharFromUTF8("€"), u'€');
    EXPECT_EQ(TBFCharFromUTF8("\U0001F34E"), TBFCharNULL); // two code units
    EXPECT_EQ(TBFCharFromUTF8("ab"), TBFCharNULL);
    EXPECT_EQ(TBFCharFromUTF8(""), TBFCharNULL);
    EXPECT_STREQ(MallocText(TBFCharGetUTF8(u'€'), &std::free).get(), "€");
}

TEST(TBFCaseInsensitiveDictionary, TakesNullKeysAndHandles) {
    char one = 0, other = 0;
    const Ref<CaseInsensitiveDictionary> dictionary = adopt(TBFCaseInsensitiveDictionaryCreate());
    const Ref<String> key = String::create(u"Größe");
    const Ref<String> upper = String::create(u"GRÖßE");
    TBFCaseInsensitiveDictionarySetItemForKey(dictionary.get(), &one, key.get(), false);
    TBFCaseInsensitiveDictionarySetItemForKey(dictionary.get(), &other, nullptr, false);
    EXPECT_EQ(TBFCaseInsensitiveDictionaryGetItemForKey(dictionary.get(), upper.get()), &one);
    EXPECT_EQ(TBFCaseInsensitiveDictionaryGetItemForKey(nullptr, upper.get()), nullptr);
    EXPECT_EQ(TBFCaseInsensitiveDictionaryCount(nullptr), 0);
    const Ref<Array> all = adopt(TBFCaseInsensitiveDictionaryGetAllItems(dictionary.get()));
    ASSERT_EQ(all->count(), 1);
    EXPECT_EQ(all->at(0), &one);
}

TEST(TBFSettings, AnUnknownNameIsAMistakeOfTheProgram) {
    EXPECT_THROW(TBFSettingsGetBool("TBFSettingOfNobody"), std::out_of_range);
    EXPECT_THROW(TBFSettingsGetBool(nullptr), std::out_of_range);
}

} // namespace
