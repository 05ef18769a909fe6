#include "xml/XMLBounds.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace platform {
namespace {

using testing::HasSubstr;

std::string attributes(std::size_t length) {
    std::string all;
    for (int i = 0; all.size() < length; ++i)
        all += " a" + std::to_string(i) + "=\"1\"";
    return all;
}

TEST(XMLBounds, OrdinaryFilesAreWithinThem) {
    const std::string rows[] = {
        "",
        "<a/>",
        "<!DOCTYPE plist PUBLIC \"-//X//DTD > 1.0\" 'http://x/y.dtd'><plist/>",
        "<a" + attributes(4000) + "/>",
        "<a>" + std::string(100'000, 'x') + "</a>",
        "<a><![CDATA[b <c " + std::string(4000, 'x') + "]]></a>",
        "<a>it's \"" + std::string(100'000, 'x') + "</a>",
        "<?xml version='1.0' encoding = \"utf-8\"?><a/>",
        "\xEF\xBB\xBF<?xml version='1.0' encoding='ISO-8859-1'?><a/>",
        "<?xml version='1.0' encoding",
    };
    for (const std::string& xml : rows)
        EXPECT_EQ(firstExcessOfXML(xml).what, "") << xml.substr(0, 80);
}

TEST(XMLBounds, WhatIsBeyondIsFoundWithItsLine) {
    std::string namespaces;
    for (int i = 0; i < 40; ++i)
        namespaces += " xmlns:n" + std::to_string(i) + "=\"u\"";
    const struct {
        std::string xml;
        const char* what;
        std::size_t line;
    } rows[] = {
        {"\n<a" + attributes(5000) + "/>", "tag of over 4,096 bytes", 2},
        {"<a>\n\n<!-- <b" + attributes(5000) + " -->", "tag of over 4,096 bytes", 3}, // whatever it stands in
        {"<a b='>" + std::string(5000, 'x') + "'/>", "tag of over 4,096 bytes", 1},
        {"<a" + namespaces + "><b" + namespaces + "/></a>", "namespaces", 1},
        {"<!DOCTYPE a []><a/>", "definitions", 1},
        {"<?xml version='1.0'?>\n<!DOCTYPE a SYSTEM 'x>' [<!ATTLIST a b CDATA 'c'>]><a/>", "definitions", 2},
        {"<!DOCTYPE a \"[<!ENTITY x 'y'>]><a/>", "definitions", 1}, // a quote that a parser steps over
        {"<!DOCTYPE a SYSTEM '" + std::string(5000, 'x') + "'><a/>", "definitions", 1},
        {"<?xml version='1.0' encoding='UTF-7'?><a/>", "encoding", 1},
        {"<?xml version='1.0' encoding='shift_jis'?><a/>", "encoding", 1},
        {std::string("\xFF\xFE<\0a\0", 6), "encoding", 1},
        {std::string("<\0a\0", 4), "encoding", 1},
    };
    for (const auto& row : rows) {
        const XMLExcess excess = firstExcessOfXML(row.xml);
        EXPECT_THAT(std::string(excess.what), HasSubstr(row.what)) << row.xml.substr(0, 80);
        EXPECT_EQ(excess.line, row.line) << row.xml.substr(0, 80);
    }
}

} // namespace
} // namespace platform
