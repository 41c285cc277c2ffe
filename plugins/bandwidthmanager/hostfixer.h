#pragma once

#include "hostfix.h"
#include "hostfixapplier.h"

#include <QString>
#include <QStringList>

#include <functional>

namespace Plugin::BandwidthManager {

// Applies a host check's fix by the first way open to this process: directly
// with CAP_NET_ADMIN; otherwise through the fix's privileged helper started
// with pkexec, which asks for a password under that kind's polkit action;
// otherwise not at all, and the outcome names the command to run as root.
// A link setting applied to a link that NetworkManager manages is kept in its
// connection through nmcli, which changes that one property and leaves the
// rest of the connection as it is.
class CHostFixer
{
public:
    enum class EPath
    {
        Direct,
        Helper,
        Command
    };
    struct SOutcome
    {
        EPath path = EPath::Command;
        bool applied = false;
        QString text;
    };
    // Runs a program to its end: its exit status, -1 where it did not start; its output in output.
    using Runner = std::function<int(const QString& program, const QStringList& arguments, QString* output)>;

    // helperDirs: where the bwm-fix-* helpers may lie, in order; pkexec: its path, empty where there is none.
    // nmcli: its path, empty where there is none.
    CHostFixer(bool elevated, QStringList helperDirs, QString pkexec, Runner runner = {},
               HostFix::CHostFixApplier applier = HostFix::CHostFixApplier(), QString nmcli = QString());

    // This process's own standing: CAP_NET_ADMIN, the helpers beside it and
    // installed, pkexec on the path. BWM_SYSCTL_DIR moves the kept sysctls (tests).
    static CHostFixer forThisProcess();

    SOutcome apply(const HostFix::SFix& fix) const;

private:
    QString helperPath(HostFix::EKind kind) const;
    // True where NetworkManager manages the link and now keeps the setting.
    bool keptByNetworkManager(const HostFix::SFix& fix) const;

    bool m_elevated;
    QStringList m_helperDirs;
    QString m_pkexec;
    QString m_nmcli;
    Runner m_runner;
    HostFix::CHostFixApplier m_applier;
};

} // namespace Plugin::BandwidthManager
