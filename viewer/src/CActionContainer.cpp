#include "CActionContainer.h"

#include <Plugin/AppCore/ICommand.h>

#include <QAction>
#include <QMenu>

#include <algorithm>

namespace Viewer {

CActionContainer::CActionContainer(const Core::CId& id, QMenu* menu) : m_id(id), m_menu(menu) {}

void CActionContainer::appendGroup(const Core::CId& group)
{
    if (!m_menu)
        return;
    if (!m_groups.isEmpty())
        m_groups.last().end = m_menu->addSeparator();
    m_groups.append({group, nullptr});
}

QList<Core::CId> CActionContainer::groups() const
{
    QList<Core::CId> ids;
    for (const SGroup& group : m_groups)
        ids.append(group.id);
    return ids;
}

void CActionContainer::addCommand(Plugin::AppCore::ICommand* command, const Core::CId& group)
{
    if (!m_menu || !command || !command->action())
        return;
    // Commands for a group the menu does not know go into a group of their own at the end.
    auto it = std::find_if(m_groups.begin(), m_groups.end(), [&](const SGroup& g) { return g.id == group; });
    if (it == m_groups.end()) {
        appendGroup(group);
        it = m_groups.end() - 1;
    }
    if (it->end)
        m_menu->insertAction(it->end, command->action());
    else
        m_menu->addAction(command->action());
}

} // namespace Viewer
