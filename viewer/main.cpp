#include "CDeviceSelectorService.h"
#include "CDeviceStateService.h"
#include "CFirstScanWait.h"
#include "CHostComponentPlugin.h"
#include "CCameraSelectorPanel.h"
#include "CLanguageSelector.h"
#include "CLiveCameraController.h"
#include "CMainWindow.h"
#include "CMenuService.h"
#include "CMessageLogService.h"
#include "CProblemAssistantService.h"
#include "CViewerOptions.h"
#include "Screenshot.h"
#include "ViewerIds.h"
#include "CameraPoolWiring.h"

#include <Core/Plugin/CPluginManager.h>
#include <Core/Plugin/ServiceLookup.h>
#include <Plugin/CameraPool/ICameraEnumerationService.h>

#if __has_include(<camerapool/CameraPoolServices.h>)
#include <camerapool/CameraPoolServices.h>
#define ZENTA_HAS_CAMERA_POOL 1
#endif

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QTimer>

#include <cstdio>

using namespace Viewer;

namespace {
// Aravis waits a second for discovery answers; a scan is done well within this.
constexpr int FirstScanLimitMs = 5000;
} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("Zenta"));
    QCoreApplication::setApplicationName(QStringLiteral("zenta-viewer"));
    QCoreApplication::setApplicationVersion(QStringLiteral("7.3.0"));

    const SViewerOptions options = SViewerOptions::parse(QCoreApplication::arguments(),
                                                         QProcessEnvironment::systemEnvironment(),
                                                         QCoreApplication::applicationDirPath());
    if (!options.error.isEmpty()) {
        std::fprintf(stderr, "%s\n", qPrintable(options.error));
        return QCoreApplication::arguments().contains(QStringLiteral("--help")) ? 0 : 2;
    }

    const auto manager = Core::Plugin::PluginManagerPtr::create();
    // Before any service, window or plug-in makes its texts.
    CLanguageSelector languages(manager.toWeakRef());
    languages.applyLanguage(options.language.isEmpty() ? CLanguageSelector::savedLanguage() : options.language);
    const auto menus = QSharedPointer<CMenuService>::create();
    const auto log = QSharedPointer<CMessageLogService>::create();
    const auto selector = QSharedPointer<CDeviceSelectorService>::create();
    const auto deviceState = QSharedPointer<CDeviceStateService>::create(manager.toWeakRef());
    const auto assistant = QSharedPointer<CProblemAssistantService>::create();
    for (const Core::Service::ServicePtr& service : QList<Core::Service::ServicePtr>{
             menus, log, selector, deviceState, assistant})
        manager->addService(service);
    log->followLogErrors();

    CMainWindow window(menus.data(), log.data(), selector.data(), assistant.data());
    window.addLanguageMenu(&languages);
#ifdef ZENTA_HAS_CAMERA_POOL
    CameraPool::registerCameraPoolServices(manager, &window);
#endif
    window.cameraSelector()->setEnumerationService(
        Core::Plugin::getService<Plugin::CameraPool::ICameraEnumerationService>(manager));
    CLiveCameraController* cameras = connectCameraPool(&window, menus.data(), selector.data(), log.data(), manager);

    CHostComponentPlugin::addHostComponents(*manager);
    const QString source = QStringLiteral("Viewer");
    if (!options.grabCamera.isEmpty()) {
        if (cameras)
            cameras->grabWhenListed(options.grabCamera);
        else
            log->addMessage(CMessageLogService::SeverityWarning, source, QObject::tr("No camera services to grab from"), {});
    }
    if (QDir(options.pluginDir).exists()) {
        manager->addPluginFolder(options.pluginDir);
    } else {
        log->addMessage(CMessageLogService::SeverityWarning, source,
                        QObject::tr("The plug-in folder %1 does not exist").arg(options.pluginDir), {});
    }
    manager->loadPlugins(manager);
    QStringList loaded;
    for (Core::Plugin::IPlugin* plugin : manager->plugins()) {
        if (!qobject_cast<CHostComponentPlugin*>(plugin))
            loaded.append(plugin->metaObject()->className());
    }
    log->addMessage(CMessageLogService::SeverityInfo, source,
                    QObject::tr("Plug-ins loaded from %1: %2")
                        .arg(options.pluginDir, loaded.isEmpty() ? QObject::tr("none") : loaded.join(", ")),
                    {});
    window.show();

    if (options.openBandwidthManager) {
        // After the first discovery: opened before it, the dialog would find no camera to offer.
        auto* firstScan = new CFirstScanWait(
            Core::Plugin::getService<Plugin::CameraPool::ICameraEnumerationService>(manager).data(), FirstScanLimitMs,
            &window);
        QObject::connect(firstScan, &CFirstScanWait::settled, &window, [&] {
            if (Plugin::AppCore::ICommand* command = menus->command(Ids::BandwidthManagerCommand);
                command && command->action()) {
                command->action()->trigger();
            } else {
                log->addMessage(CMessageLogService::SeverityWarning, source,
                                QObject::tr("No Bandwidth Manager command to open"), {});
            }
        });
    }
    if (!options.screenshotFile.isEmpty()) {
        QTimer::singleShot(options.screenshotDelayMs, &window, [&] {
            const bool saved = grabTopLevelWindows().save(options.screenshotFile, "PNG");
            if (!saved)
                std::fprintf(stderr, "Could not save the screenshot to %s\n", qPrintable(options.screenshotFile));
            // exit() leaves a modal dialog's loop as well as the main one.
            QCoreApplication::exit(saved ? 0 : 1);
        });
    }

    const int result = QApplication::exec();
    manager->unloadPlugins(manager);
    return result;
}
