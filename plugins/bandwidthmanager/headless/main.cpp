// bwm-analyse: the Bandwidth Manager's analysis over SSH, without a display.
#include "headlessanalysis.h"
#include "headlessoptions.h"

#include <camerapool/CameraPoolServices.h>

#include <Core/Logging/Logging.h>
#include <Core/Plugin/CPluginManager.h>

#include <QApplication>

#include <cstdio>

int main(int argc, char** argv)
{
    // The tree is a widget, never shown: Qt's offscreen platform needs no display.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("Zenta"));
    QCoreApplication::setApplicationName(QStringLiteral("bwm-analyse"));
    const SHeadlessOptions options = SHeadlessOptions::parse(QCoreApplication::arguments());
    if (options.help) {
        std::fputs(qPrintable(options.helpText), stdout);
        return 0;
    }
    if (!options.error.isEmpty()) {
        std::fprintf(stderr, "bwm-analyse: %s\n", qPrintable(options.error));
        return 2;
    }
    Core::Logging::setStderrEnabled(options.verbose);
    const auto manager = Core::Plugin::PluginManagerPtr::create();
    int status = 1;
    {
        // Closes the cameras before the manager goes.
        QObject servicesParent;
        CameraPool::SCameraPoolOptions poolOptions = CameraPool::SCameraPoolOptions::fromEnvironment();
        poolOptions.rescanIntervalMs = 1000;
        CameraPool::registerCameraPoolServices(manager, &servicesParent, poolOptions);
        CHeadlessAnalysis analysis(manager, options, stdout, stderr);
        QObject::connect(&analysis, &CHeadlessAnalysis::finished, &app, [&status](int exitStatus) {
            status = exitStatus;
            QCoreApplication::exit(exitStatus);
        });
        analysis.start();
        QApplication::exec();
    }
    return status;
}
