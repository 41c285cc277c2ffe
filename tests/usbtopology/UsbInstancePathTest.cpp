#include "TopologyTestSupport.h"

#include <usbtopology/UsbInstancePath.h>

#include <gtest/gtest.h>

namespace {

struct SAsciiCase {
    const char* szScenario;
    std::string strUtf8;
    std::string strAscii;
};

class DescriptorAscii : public ::testing::TestWithParam<SAsciiCase> {};

TEST_P(DescriptorAscii, AsLibusbReducesTheDescriptor)
{
    EXPECT_EQ(usbtopology::ToDescriptorAscii(GetParam().strUtf8), GetParam().strAscii);
}

INSTANTIATE_TEST_SUITE_P(
    Path, DescriptorAscii,
    ::testing::Values(SAsciiCase{"ASCII stays", "KW-1300u 4.0", "KW-1300u 4.0"},
                      SAsciiCase{"Latin letter below 0x100 is one mark", "Z\xC3\xBCrich", "Z?rich"},
                      SAsciiCase{"BMP letter is one mark", "\xE6\x97\xA5\xE6\x9C\xAC", "??"},
                      SAsciiCase{"letter above U+FFFF is a surrogate pair", "a\xF0\x9F\x93\xB7z", "a??z"},
                      SAsciiCase{"stray continuation byte", "a\x80z", "a?z"},
                      SAsciiCase{"truncated sequence at the end", "ab\xE6\x97", "ab??"}),
    [](const auto& info) { return topologytest::ScenarioName(info.param.szScenario); });

TEST(UsbInstancePath, FormatAndFieldReduction)
{
    EXPECT_EQ(usbtopology::BuildUsbInstancePath("Kamera Werk", "KW-1300u", "40123456"),
              L"U3V\\Kamera Werk\\KW-1300u\\40123456");
    EXPECT_EQ(usbtopology::BuildUsbInstancePath("A\\B", "", ""), L"U3V\\A?B\\\\");
}

TEST(UsbInstancePath, ComparisonIgnoresAsciiCaseOnly)
{
    EXPECT_TRUE(usbtopology::IsSameUsbInstancePath(L"U3V\\Kamera\\KW\\ab12", L"u3v\\KAMERA\\kw\\AB12"));
    EXPECT_FALSE(usbtopology::IsSameUsbInstancePath(L"U3V\\Kamera\\KW\\ab12", L"U3V\\Kamera\\KW\\ab13"));
    EXPECT_FALSE(usbtopology::IsSameUsbInstancePath(L"U3V\\Kamera\\KW\\ab1", L"U3V\\Kamera\\KW\\ab12"));
}

} // namespace
