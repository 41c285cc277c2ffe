#pragma once

#include <QFlags>
#include <QLocale>
#include <QString>

enum FormatValueFlag
{
    FormatNoFlags = 0x00,
    FormatNoSpaceBeforeEmptyUnit = 0x04,
    FormatGroupDigits = 0x08,
    FormatUnitPrefix = 0x20,
};
Q_DECLARE_FLAGS(FormatValueFlags, FormatValueFlag)
Q_DECLARE_OPERATORS_FOR_FLAGS(FormatValueFlags)

// The value is divided by 1000 to the power of the multiplier before it is shown.
enum FormatMultiplier
{
    FormatMultiplierNone = 0,
    FormatMultiplierKilo = 1,
    FormatMultiplierMega = 2,
    FormatMultiplierGiga = 3,
};

QString formatDoubleValue(double value, int decimals, QFlags<FormatValueFlag> flags, const QLocale& locale);
QString formatIntegerValue(qint64 value, QFlags<FormatValueFlag> flags, const QLocale& locale);
QString formatDoubleValueAndUnits(double value, int decimals, FormatMultiplier multiplier, const QString& unit,
                                  QFlags<FormatValueFlag> flags, const QLocale& locale);
QString formatUnsignedIntegerValueAndUnits(quint64 value, int decimals, FormatMultiplier multiplier,
                                           const QString& unit, QFlags<FormatValueFlag> flags,
                                           const QLocale& locale);
