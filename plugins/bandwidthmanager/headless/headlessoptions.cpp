#include "headlessoptions.h"

#include <QCommandLineParser>

#include <cmath>

namespace {

// A day: longer runs belong to a service, not to a command.
constexpr double MaximumSeconds = 86400.0;

bool readSeconds(const QString& text, double minimum, double* value)
{
    bool ok = false;
    const double parsed = text.toDouble(&ok);
    if (!ok || !std::isfinite(parsed) || parsed < minimum || parsed > MaximumSeconds)
        return false;
    *value = parsed;
    return true;
}

} // namespace

SHeadlessOptions SHeadlessOptions::parse(const QStringList& arguments)
{
    SHeadlessOptions options;
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Measures cameras' bandwidth without a window, as the Bandwidth Manager does. Exit status: 0 when no "
        "camera had an error, 1 when one had, 2 on bad use."));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Shows this help."));
    const QCommandLineOption seconds({QStringLiteral("t"), QStringLiteral("seconds")},
                                     QStringLiteral("How long to measure (default 10)."), QStringLiteral("seconds"));
    const QCommandLineOption cameras(
        {QStringLiteral("c"), QStringLiteral("cameras")},
        QStringLiteral("\"all\" (default), or names separated by commas: a camera's serial number, IP address, "
                       "name as listed, or key."),
        QStringLiteral("list"));
    const QCommandLineOption optimize(QStringLiteral("optimize"),
                                      QStringLiteral("Optimizes every GigE adapter before measuring."));
    const QCommandLineOption report({QStringLiteral("r"), QStringLiteral("report")},
                                    QStringLiteral("Writes the run as JSON to this file."), QStringLiteral("file"));
    const QCommandLineOption csv(QStringLiteral("csv"), QStringLiteral("Writes one row per camera per tick to this file."),
                                 QStringLiteral("file"));
    const QCommandLineOption interval(QStringLiteral("print-every"),
                                      QStringLiteral("Seconds between tables (default 1; 0: at the end only)."),
                                      QStringLiteral("seconds"));
    const QCommandLineOption discovery(QStringLiteral("discovery-seconds"),
                                       QStringLiteral("How long to wait for the cameras (default 5)."),
                                       QStringLiteral("seconds"));
    const QCommandLineOption verbose({QStringLiteral("v"), QStringLiteral("verbose")},
                                     QStringLiteral("Prints the camera backend's log on standard error."));
    const QCommandLineOption checkHost(QStringLiteral("check-host"),
                                       QStringLiteral("Checks the host for what loses frames (socket buffers, rings, "
                                                      "MTU, filtering, interrupts, subnets) instead of measuring."));
    const QCommandLineOption fix(QStringLiteral("fix"),
                                 QStringLiteral("With --check-host: applies the fixes (as root, or through pkexec)."));
    parser.addOptions({help, seconds, cameras, optimize, report, csv, interval, discovery, verbose, checkHost, fix});
    options.helpText = parser.helpText();
    if (!parser.parse(arguments)) {
        options.error = parser.errorText();
        return options;
    }
    if (parser.isSet(help)) {
        options.help = true;
        return options;
    }
    if (!parser.positionalArguments().isEmpty()) {
        options.error = QStringLiteral("Unexpected argument: %1").arg(parser.positionalArguments().first());
        return options;
    }
    if (parser.isSet(seconds) && !readSeconds(parser.value(seconds), 0.5, &options.seconds)) {
        options.error = QStringLiteral("Bad duration \"%1\": give seconds from 0.5 to 86400.").arg(parser.value(seconds));
        return options;
    }
    if (parser.isSet(interval) && !readSeconds(parser.value(interval), 0.0, &options.printInterval)) {
        options.error = QStringLiteral("Bad interval \"%1\": give seconds from 0 to 86400.").arg(parser.value(interval));
        return options;
    }
    if (parser.isSet(discovery) && !readSeconds(parser.value(discovery), 0.0, &options.discoverySeconds)) {
        options.error =
            QStringLiteral("Bad discovery time \"%1\": give seconds from 0 to 86400.").arg(parser.value(discovery));
        return options;
    }
    const QString list = parser.value(cameras).trimmed();
    if (!list.isEmpty() && list != QLatin1String("all")) {
        for (const QString& name : list.split(QLatin1Char(','), Qt::SkipEmptyParts))
            options.cameras << name.trimmed();
        if (options.cameras.isEmpty()) {
            options.error = QStringLiteral("No camera named in \"%1\".").arg(list);
            return options;
        }
    }
    options.optimize = parser.isSet(optimize);
    options.jsonPath = parser.value(report);
    options.csvPath = parser.value(csv);
    options.verbose = parser.isSet(verbose);
    options.checkHost = parser.isSet(checkHost);
    options.fix = parser.isSet(fix);
    if (options.fix && !options.checkHost)
        options.error = QStringLiteral("--fix goes with --check-host.");
    return options;
}
