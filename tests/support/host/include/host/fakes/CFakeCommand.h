#pragma once

#include <Plugin/AppCore/ICommand.h>

#include <QPointer>
#include <QAction>

namespace HostFakes {

// A registered action as the menu service hands it back.
class CFakeCommand : public Plugin::AppCore::ICommand
{
public:
    CFakeCommand(QAction* action, const Core::CId& id, const Core::AppCoreComponents::CContext& context)
        : m_action(action), m_id(id), m_context(context)
    {
    }

    QAction* action() const override { return m_action.data(); }
    Core::CId id() const override { return m_id; }
    Core::AppCoreComponents::CContext context() const override { return m_context; }

private:
    QPointer<QAction> m_action;
    Core::CId m_id;
    Core::AppCoreComponents::CContext m_context;
};

} // namespace HostFakes
