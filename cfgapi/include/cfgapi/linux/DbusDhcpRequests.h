#pragma once

#include <QMap>
#include <QMetaType>
#include <QString>
#include <QVariantMap>

#include <cstdint>
#include <string>

// A NetworkManager connection: settings by group ("connection", "ipv4", ...).
using SNmConnection = QMap<QString, QVariantMap>;
Q_DECLARE_METATYPE(SNmConnection)

namespace CfgApi {

// What CDbusDhcpService sends and how it reads the answers, kept free of the bus.

// A D-Bus error name as an IDhcpService code (13, 65, 84 or 91).
int32_t DhcpCodeForError(const QString& errorName);
// A connection of its own for a link that has none active.
SNmConnection NmDhcpConnection(const std::string& ifname);
// The applied connection with IPv4 by DHCP: static addresses and gateway dropped, the rest kept.
SNmConnection NmDhcpReapplied(SNmConnection applied);
// systemd-networkd's drop-in: its name below /run/systemd/network and its text.
std::string NetworkdDhcpFileName(const std::string& ifname);
std::string NetworkdDhcpFile(const std::string& ifname);

} // namespace CfgApi
