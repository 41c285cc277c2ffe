#pragma once

#include <QString>
#include <QStringList>

// The command line of bwm-analyse.
struct SHeadlessOptions
{
    double seconds = 10.0;
    // Empty: every camera found.
    QStringList cameras;
    bool optimize = false;
    QString jsonPath;
    QString csvPath;
    // Seconds between tables on standard output; 0 prints one at the end only.
    double printInterval = 1.0;
    double discoverySeconds = 5.0;
    bool verbose = false;
    // Runs the host checks instead of an analysis; applies their fixes with fix.
    bool checkHost = false;
    bool fix = false;
    // Set on bad use; the text for standard error.
    QString error;
    bool help = false;
    QString helpText;

    static SHeadlessOptions parse(const QStringList& arguments);
};
