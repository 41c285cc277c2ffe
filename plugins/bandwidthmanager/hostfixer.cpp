#include "hostfixer.h"

#include <cfgapi/linux/CCapabilityElevation.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

namespace Plugin::BandwidthManager {

namespace {

QString doneText(const QString& command, bool kept)
{
    return (kept ? QCoreApplication::translate("HostFixer", "Done (%1), and kept for the next start.")
                 : QCoreApplication::translate("HostFixer", "Done (%1), until the next restart."))
        .arg(command);
}

int runProcess(const QString& program, const QStringList& arguments, QString* output)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    // pkexec waits for the user's password.
    if (!process.waitForStarted(5000) || !process.waitForFinished(120000))
        return -1;
    if (output)
        *output = QString::fromLocal8Bit(process.readAll()).trimmed();
    return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
}

} // namespace

CHostFixer::CHostFixer(bool elevated, QStringList helperDirs, QString pkexec, Runner runner,
                       HostFix::CHostFixApplier applier, QString nmcli)
    : m_elevated(elevated)
    , m_helperDirs(std::move(helperDirs))
    , m_pkexec(std::move(pkexec))
    , m_nmcli(std::move(nmcli))
    , m_runner(runner ? std::move(runner) : Runner(runProcess))
    , m_applier(std::move(applier))
{
}

CHostFixer CHostFixer::forThisProcess()
{
    return CHostFixer(CfgApi::CCapabilityElevation().IsElevated(),
                      {QCoreApplication::applicationDirPath(), QStringLiteral(BWM_HELPER_DIR)},
                      QStandardPaths::findExecutable(QStringLiteral("pkexec")), Runner(),
                      HostFix::CHostFixApplier("/proc/sys", qEnvironmentVariable("BWM_SYSCTL_DIR", QStringLiteral("/etc/sysctl.d")).toStdString()),
                      QStandardPaths::findExecutable(QStringLiteral("nmcli")));
}

QString CHostFixer::helperPath(HostFix::EKind kind) const
{
    for (const QString& dir : m_helperDirs) {
        const QFileInfo helper(dir + QLatin1Char('/') + QString::fromStdString(HostFix::helperName(kind)));
        if (helper.isExecutable())
            return helper.absoluteFilePath();
    }
    return {};
}

bool CHostFixer::keptByNetworkManager(const HostFix::SFix& fix) const
{
    if (m_nmcli.isEmpty() || fix.kind == HostFix::EKind::RmemMax || fix.kind == HostFix::EKind::RpFilter)
        return false;
    const QString link = QString::fromStdString(fix.interfaceName);
    QString connection;
    if (m_runner(m_nmcli, {"-g", "GENERAL.CONNECTION", "device", "show", link}, &connection) != 0 || connection.isEmpty()
        || connection == QLatin1String("--"))
        return false;
    QStringList change{"connection", "modify", connection};
    switch (fix.kind) {
    case HostFix::EKind::Mtu: change << "802-3-ethernet.mtu" << QString::number(fix.value); break;
    case HostFix::EKind::RxRing: change << "ethtool.ring-rx" << QString::number(fix.value); break;
    case HostFix::EKind::Coalescing:
        change << "ethtool.coalesce-adaptive-rx" << (fix.value == HostFix::Adaptive ? "on" : "off");
        if (fix.value != HostFix::Adaptive)
            change << "ethtool.coalesce-rx-usecs" << QString::number(fix.value);
        break;
    case HostFix::EKind::RmemMax:
    case HostFix::EKind::RpFilter: return false;
    }
    QString output;
    return m_runner(m_nmcli, change, &output) == 0;
}

CHostFixer::SOutcome CHostFixer::apply(const HostFix::SFix& fix) const
{
    const QString command = QString::fromStdString(HostFix::rootCommand(fix));
    SOutcome outcome;
    if (m_elevated) {
        outcome.path = EPath::Direct;
        std::string error;
        outcome.applied = m_applier.apply(fix, error);
        if (!outcome.applied) {
            outcome.text = QCoreApplication::translate("HostFixer", "Not changed: %1").arg(QString::fromStdString(error));
            return outcome;
        }
        outcome.text = doneText(command, keptByNetworkManager(fix) || m_applier.persist(fix, error));
        return outcome;
    }
    const QString helper = helperPath(fix.kind);
    if (!helper.isEmpty() && !m_pkexec.isEmpty()) {
        QStringList arguments{helper};
        for (const std::string& argument : HostFix::helperArguments(fix))
            arguments << QString::fromStdString(argument);
        QString output;
        const int status = m_runner(m_pkexec, arguments, &output);
        if (status == 0) {
            outcome.path = EPath::Helper;
            outcome.applied = true;
            outcome.text =
                doneText(command, keptByNetworkManager(fix) || output.contains(QLatin1String("kept for the next start")));
            return outcome;
        }
        // 126 and 127: the password was not given; 1 and 2: the helper refused.
        if (status == 1 || status == 2) {
            outcome.path = EPath::Helper;
            outcome.text = QCoreApplication::translate("HostFixer", "Not changed: %1").arg(output);
            return outcome;
        }
    }
    outcome.text = QCoreApplication::translate("HostFixer", "This needs root. Run: %1").arg(command);
    return outcome;
}

} // namespace Plugin::BandwidthManager
