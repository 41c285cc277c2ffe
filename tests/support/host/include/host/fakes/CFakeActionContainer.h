#pragma once

#include <Plugin/AppCore/IActionContainer.h>

#include <QList>

namespace HostFakes {

// A menu that records the commands added to it, group by group.
class CFakeActionContainer : public Plugin::AppCore::IActionContainer
{
public:
    struct SEntry
    {
        Plugin::AppCore::ICommand* command;
        Core::CId group;
    };

    explicit CFakeActionContainer(const Core::CId& id) : m_id(id) {}

    Core::CId id() const override { return m_id; }
    void addCommand(Plugin::AppCore::ICommand* command, const Core::CId& group) override
    {
        m_entries.append({command, group});
    }

    const QList<SEntry>& entries() const { return m_entries; }
    QList<Plugin::AppCore::ICommand*> commandsInGroup(const Core::CId& group) const;

private:
    Core::CId m_id;
    QList<SEntry> m_entries;
};

} // namespace HostFakes
