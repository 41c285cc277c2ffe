#pragma once

#include <Plugin/AppCore/ICommand.h>

#include <QAction>
#include <QPointer>

namespace Viewer {

class CCommand : public Plugin::AppCore::ICommand
{
public:
    CCommand(QAction* action, const Core::CId& id, const Core::AppCoreComponents::CContext& context)
        : m_action(action), m_id(id), m_context(context)
    {
    }

    QAction* action() const override { return m_action; }
    Core::CId id() const override { return m_id; }
    Core::AppCoreComponents::CContext context() const override { return m_context; }

private:
    // Plug-ins own their actions and may go first.
    QPointer<QAction> m_action;
    Core::CId m_id;
    Core::AppCoreComponents::CContext m_context;
};

} // namespace Viewer
