#include "cfgapi/linux/CDbusDhcpService.h"

#include "cfgapi/linux/DbusDhcpRequests.h"

#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusConnectionInterface>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusMetaType>
#include <QtDBus/QDBusObjectPath>

#include <fstream>
#include <sys/stat.h>

namespace CfgApi {

namespace {

const QString kNm = QStringLiteral("org.freedesktop.NetworkManager");
const QString kNetworkd = QStringLiteral("org.freedesktop.network1");

int32_t CodeForError(const QDBusMessage& reply)
{
    return DhcpCodeForError(reply.errorName());
}

QDBusMessage Call(QDBusConnection& bus, const QString& service, const QString& path, const QString& interface,
                  const QString& method, const QList<QVariant>& args)
{
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, method);
    message.setAutoStartService(false);
    message.setArguments(args);
    return bus.call(message, QDBus::Block, 25000);
}

int32_t ViaNetworkManager(QDBusConnection& bus, const std::string& ifname)
{
    qDBusRegisterMetaType<SNmConnection>();
    QDBusMessage device = Call(bus, kNm, QStringLiteral("/org/freedesktop/NetworkManager"), kNm,
                               QStringLiteral("GetDeviceByIpIface"), {QString::fromStdString(ifname)});
    if (device.type() == QDBusMessage::ErrorMessage)
        return CodeForError(device);
    if (device.arguments().isEmpty())
        return 13;
    const QString devicePath = device.arguments().at(0).value<QDBusObjectPath>().path();
    const QString deviceInterface = kNm + QStringLiteral(".Device");

    QDBusMessage applied = Call(bus, kNm, devicePath, deviceInterface, QStringLiteral("GetAppliedConnection"), {0u});
    if (applied.type() == QDBusMessage::ErrorMessage) {
        // Not active: make and activate a connection of its own.
        const SNmConnection fresh = NmDhcpConnection(ifname);
        QDBusMessage added = Call(bus, kNm, QStringLiteral("/org/freedesktop/NetworkManager"), kNm,
                                  QStringLiteral("AddAndActivateConnection"),
                                  {QVariant::fromValue(fresh), QVariant::fromValue(QDBusObjectPath(devicePath)),
                                   QVariant::fromValue(QDBusObjectPath("/"))});
        return added.type() == QDBusMessage::ErrorMessage ? CodeForError(added) : 1;
    }
    if (applied.arguments().size() != 2)
        return 13;
    const SNmConnection connection = NmDhcpReapplied(qdbus_cast<SNmConnection>(applied.arguments().at(0)));
    const qulonglong version = applied.arguments().at(1).toULongLong();

    QDBusMessage reapplied = Call(bus, kNm, devicePath, deviceInterface, QStringLiteral("Reapply"),
                                  {QVariant::fromValue(connection), QVariant::fromValue(version), 0u});
    return reapplied.type() == QDBusMessage::ErrorMessage ? CodeForError(reapplied) : 0;
}

int32_t ViaNetworkd(QDBusConnection& bus, uint32_t ifindex, const std::string& ifname, const std::string& runRoot)
{
    const std::string dir = runRoot + "/systemd/network";
    ::mkdir((runRoot + "/systemd").c_str(), 0755);
    ::mkdir(dir.c_str(), 0755);
    std::ofstream file(dir + "/" + NetworkdDhcpFileName(ifname), std::ios::trunc);
    file << NetworkdDhcpFile(ifname);
    file.close();
    if (!file)
        return 91;
    const QString path = QStringLiteral("/org/freedesktop/network1");
    const QString manager = kNetworkd + QStringLiteral(".Manager");
    QDBusMessage reload = Call(bus, kNetworkd, path, manager, QStringLiteral("Reload"), {});
    if (reload.type() == QDBusMessage::ErrorMessage)
        return CodeForError(reload);
    QDBusMessage reconfigure = Call(bus, kNetworkd, path, manager, QStringLiteral("ReconfigureLink"),
                                    {static_cast<int>(ifindex)});
    return reconfigure.type() == QDBusMessage::ErrorMessage ? CodeForError(reconfigure) : 0;
}

} // namespace

int32_t DhcpCodeForError(const QString& name)
{
    if (name.endsWith(QLatin1String("PermissionDenied")) || name == QLatin1String("org.freedesktop.DBus.Error.AccessDenied"))
        return 91;
    if (name.endsWith(QLatin1String("UnknownDevice")) || name.endsWith(QLatin1String("NotManaged")) ||
        name.endsWith(QLatin1String("LinkNotFound")))
        return 84;
    if (name.startsWith(QLatin1String("org.freedesktop.DBus.Error.")))
        return 13;
    return 65;
}

SNmConnection NmDhcpConnection(const std::string& ifname)
{
    SNmConnection fresh;
    fresh[QStringLiteral("connection")] = QVariantMap{{QStringLiteral("type"), QStringLiteral("802-3-ethernet")},
                                                      {QStringLiteral("interface-name"), QString::fromStdString(ifname)}};
    fresh[QStringLiteral("ipv4")] = QVariantMap{{QStringLiteral("method"), QStringLiteral("auto")}};
    return fresh;
}

SNmConnection NmDhcpReapplied(SNmConnection connection)
{
    QVariantMap ipv4 = connection.value(QStringLiteral("ipv4"));
    ipv4[QStringLiteral("method")] = QStringLiteral("auto");
    ipv4.remove(QStringLiteral("address-data"));
    ipv4.remove(QStringLiteral("addresses"));
    ipv4.remove(QStringLiteral("gateway"));
    connection[QStringLiteral("ipv4")] = ipv4;
    return connection;
}

std::string NetworkdDhcpFileName(const std::string& ifname)
{
    // The lexically first matching file wins, hence the "00-".
    return "00-bandwidthmanager-" + ifname + ".network";
}

std::string NetworkdDhcpFile(const std::string& ifname)
{
    return "[Match]\nName=" + ifname + "\n\n[Network]\nDHCP=ipv4\n";
}

int32_t CDbusDhcpService::EnableDhcp(uint32_t ifindex, const std::string& ifname)
{
    QDBusConnection bus = QDBusConnection::systemBus();
    if (!bus.isConnected() || !bus.interface())
        return 50;
    if (bus.interface()->isServiceRegistered(kNm))
        return ViaNetworkManager(bus, ifname);
    if (bus.interface()->isServiceRegistered(kNetworkd))
        return ViaNetworkd(bus, ifindex, ifname, m_runRoot);
    return 50;
}

} // namespace CfgApi
