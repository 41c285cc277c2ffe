#include <Utilities/ValueFormatting.h>

#include <gtest/gtest.h>

#include <functional>
#include <limits>

TEST(ValueFormatting, formatsByTable)
{
    const QLocale c = QLocale::c();
    const QLocale german(QLocale::German, QLocale::Germany);
    const QLocale english(QLocale::English, QLocale::UnitedStates);
    struct SCase
    {
        const char* scenario;
        std::function<QString()> format;
        QString expected;
    };
    const SCase cases[] = {
        {"double rounds to its decimals", [&] { return formatDoubleValue(2.345678, 2, FormatNoFlags, c); }, "2.35"},
        {"double keeps trailing zeros", [&] { return formatDoubleValue(1234.5, 2, FormatNoFlags, c); }, "1234.50"},
        {"German double uses the decimal comma",
         [&] { return formatDoubleValue(1234.5, 1, FormatNoFlags, german); }, "1234,5"},
        {"grouped German double", [&] { return formatDoubleValue(1234567.891, 2, FormatGroupDigits, german); },
         "1.234.567,89"},
        {"integer is not grouped without flag 8 even where the locale groups",
         [&] { return formatIntegerValue(1234567, FormatNoFlags, english); }, "1234567"},
        {"grouped integer", [&] { return formatIntegerValue(1234567, FormatGroupDigits, english); }, "1,234,567"},
        {"grouped negative integer", [&] { return formatIntegerValue(-1234, FormatGroupDigits, c); }, "-1,234"},
        {"plain value with its unit",
         [&] { return formatDoubleValueAndUnits(125000000, 0, FormatMultiplierNone, "B/s", FormatNoFlags, c); },
         "125000000 B/s"},
        {"millions with the prefix before the unit",
         [&] { return formatDoubleValueAndUnits(125000000, 0, FormatMultiplierMega, "B/s", FormatUnitPrefix, c); },
         "125 MB/s"},
        {"millions without the prefix flag keep the bare unit",
         [&] { return formatDoubleValueAndUnits(125000000, 0, FormatMultiplierMega, "B/s", FormatNoFlags, c); },
         "125 B/s"},
        {"payload in millions with an empty unit and flag 4",
         [&] {
             return formatUnsignedIntegerValueAndUnits(12345678, 2, FormatMultiplierMega, "",
                                                       FormatNoSpaceBeforeEmptyUnit, c);
         },
         "12.35"},
        {"empty unit keeps its space without flag 4",
         [&] { return formatUnsignedIntegerValueAndUnits(125000000, 0, FormatMultiplierMega, "", FormatNoFlags, c); },
         "125 "},
        {"flag 4 keeps the space before a real unit",
         [&] {
             return formatUnsignedIntegerValueAndUnits(5, 0, FormatMultiplierNone, "px", FormatNoSpaceBeforeEmptyUnit,
                                                       c);
         },
         "5 px"},
        {"kilo, grouped, with prefix",
         [&] {
             return formatDoubleValueAndUnits(1234567, 1, FormatMultiplierKilo, "B", FormatGroupDigits | FormatUnitPrefix,
                                              c);
         },
         "1,234.6 kB"},
        {"prefix alone stands for an empty unit",
         [&] {
             return formatUnsignedIntegerValueAndUnits(2000000000, 1, FormatMultiplierGiga, "",
                                                       FormatUnitPrefix | FormatNoSpaceBeforeEmptyUnit, c);
         },
         "2.0 G"},
        {"largest unsigned stays exact",
         [&] {
             return formatUnsignedIntegerValueAndUnits(std::numeric_limits<quint64>::max(), 0, FormatMultiplierNone,
                                                       "B", FormatNoFlags, c);
         },
         "18446744073709551615 B"},
        {"German millions with decimals",
         [&] {
             return formatUnsignedIntegerValueAndUnits(1500000, 2, FormatMultiplierMega, "",
                                                       FormatNoSpaceBeforeEmptyUnit, german);
         },
         "1,50"},
    };
    for (const SCase& row : cases)
        EXPECT_EQ(row.format(), row.expected) << row.scenario;
}
