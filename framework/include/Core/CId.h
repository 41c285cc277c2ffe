#pragma once

#include <QByteArray>
#include <QHash>

namespace Core {

// Identifier of a menu, a group or a command of the host.
class CId
{
public:
    CId() = default;
    CId(const char* name) : m_name(name) {}
    explicit CId(const QByteArray& name) : m_name(name) {}

    const QByteArray& name() const { return m_name; }
    bool isValid() const { return !m_name.isEmpty(); }

    friend bool operator==(const CId& a, const CId& b) { return a.m_name == b.m_name; }
    friend bool operator!=(const CId& a, const CId& b) { return a.m_name != b.m_name; }
    friend uint qHash(const CId& id, uint seed = 0) { return qHash(id.m_name, seed); }

private:
    QByteArray m_name;
};

} // namespace Core
