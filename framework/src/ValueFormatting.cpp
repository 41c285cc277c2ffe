#include <Utilities/ValueFormatting.h>

#include <cmath>

namespace {

QLocale withGrouping(QLocale locale, QFlags<FormatValueFlag> flags)
{
    QLocale::NumberOptions options = locale.numberOptions();
    if (flags.testFlag(FormatGroupDigits))
        options &= ~QLocale::OmitGroupSeparator;
    else
        options |= QLocale::OmitGroupSeparator;
    locale.setNumberOptions(options);
    return locale;
}

double divisor(FormatMultiplier multiplier)
{
    return std::pow(1000.0, int(multiplier));
}

QString unitText(FormatMultiplier multiplier, const QString& unit, QFlags<FormatValueFlag> flags)
{
    static const char* const prefixes[] = {"", "k", "M", "G"};
    QString text = unit;
    if (flags.testFlag(FormatUnitPrefix) && multiplier >= FormatMultiplierNone && multiplier <= FormatMultiplierGiga)
        text.prepend(QLatin1String(prefixes[multiplier]));
    // Deliberate: the separating space stays even before an empty unit unless asked otherwise.
    if (text.isEmpty() && flags.testFlag(FormatNoSpaceBeforeEmptyUnit))
        return text;
    return QLatin1Char(' ') + text;
}

} // namespace

QString formatDoubleValue(double value, int decimals, QFlags<FormatValueFlag> flags, const QLocale& locale)
{
    return withGrouping(locale, flags).toString(value, 'f', qMax(0, decimals));
}

QString formatIntegerValue(qint64 value, QFlags<FormatValueFlag> flags, const QLocale& locale)
{
    return withGrouping(locale, flags).toString(value);
}

QString formatDoubleValueAndUnits(double value, int decimals, FormatMultiplier multiplier, const QString& unit,
                                  QFlags<FormatValueFlag> flags, const QLocale& locale)
{
    return formatDoubleValue(value / divisor(multiplier), decimals, flags, locale) + unitText(multiplier, unit, flags);
}

QString formatUnsignedIntegerValueAndUnits(quint64 value, int decimals, FormatMultiplier multiplier,
                                           const QString& unit, QFlags<FormatValueFlag> flags,
                                           const QLocale& locale)
{
    // Integral output is kept exact: a double loses digits above 2^53.
    const QString number = multiplier == FormatMultiplierNone && decimals <= 0
                               ? withGrouping(locale, flags).toString(value)
                               : formatDoubleValue(double(value) / divisor(multiplier), decimals, flags, locale);
    return number + unitText(multiplier, unit, flags);
}
