#include "CMenuService.h"

#include <Core/Logging/Logging.h>

namespace Viewer {

CMenuService::~CMenuService() = default;

Plugin::AppCore::ICommand* CMenuService::registerAction(QAction* action, const Core::CId& id,
                                                        const Core::AppCoreComponents::CContext& context)
{
    if (!action || !id.isValid())
        return nullptr;
    if (m_commands.contains(id)) {
        static const quint64 category = Core::Logging::getCatId("zenta.viewer.menuService");
        Core::Logging::createLogEntry(Core::Logging::LogLevelWarning, category,
                                      QStringLiteral("The command \"%1\" is registered again; the newer action wins")
                                          .arg(QString::fromUtf8(id.name())));
    }
    m_ownedCommands.push_back(std::make_unique<CCommand>(action, id, context));
    m_commands.insert(id, m_ownedCommands.back().get());
    return m_ownedCommands.back().get();
}

Plugin::AppCore::IActionContainer* CMenuService::actionContainer(const Core::CId& id) const
{
    return m_containers.value(id).get();
}

CActionContainer* CMenuService::createContainer(const Core::CId& id, QMenu* menu)
{
    auto container = std::make_shared<CActionContainer>(id, menu);
    m_containers.insert(id, container);
    return container.get();
}

Plugin::AppCore::ICommand* CMenuService::command(const Core::CId& id) const
{
    return m_commands.value(id);
}

} // namespace Viewer
