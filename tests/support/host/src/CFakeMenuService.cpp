#include <host/fakes/CFakeMenuService.h>

namespace HostFakes {

QList<Plugin::AppCore::ICommand*> CFakeActionContainer::commandsInGroup(const Core::CId& group) const
{
    QList<Plugin::AppCore::ICommand*> result;
    for (const SEntry& entry : m_entries) {
        if (entry.group == group)
            result.append(entry.command);
    }
    return result;
}

CFakeActionContainer* CFakeMenuService::addContainer(const Core::CId& id)
{
    m_containers.push_back(std::make_unique<CFakeActionContainer>(id));
    return m_containers.back().get();
}

Plugin::AppCore::ICommand* CFakeMenuService::registerAction(QAction* action, const Core::CId& id,
                                                            const Core::AppCoreComponents::CContext& context)
{
    m_commands.push_back(std::make_unique<CFakeCommand>(action, id, context));
    return m_commands.back().get();
}

Plugin::AppCore::IActionContainer* CFakeMenuService::actionContainer(const Core::CId& id) const
{
    for (const auto& container : m_containers) {
        if (container->id() == id)
            return container.get();
    }
    return nullptr;
}

CFakeCommand* CFakeMenuService::command(const Core::CId& id) const
{
    for (const auto& command : m_commands) {
        if (command->id() == id)
            return command.get();
    }
    return nullptr;
}

} // namespace HostFakes
