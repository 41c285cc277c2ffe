#pragma once

#include <Plugin/AppCore/IActionContainer.h>

#include <QList>
#include <QMenu>
#include <QPointer>


namespace Viewer {

// A menu split into groups; each group is a section, separated from the next.
class CActionContainer : public Plugin::AppCore::IActionContainer
{
public:
    CActionContainer(const Core::CId& id, QMenu* menu);

    Core::CId id() const override { return m_id; }
    void addCommand(Plugin::AppCore::ICommand* command, const Core::CId& group) override;

    void appendGroup(const Core::CId& group);
    QList<Core::CId> groups() const;
    QMenu* menu() const { return m_menu; }

private:
    struct SGroup
    {
        Core::CId id;
        QAction* end; // the separator after the group, or null for the last group
    };

    Core::CId m_id;
    QPointer<QMenu> m_menu;
    QList<SGroup> m_groups;
};

} // namespace Viewer
