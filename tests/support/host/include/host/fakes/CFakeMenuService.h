#pragma once

#include <host/fakes/CFakeActionContainer.h>
#include <host/fakes/CFakeCommand.h>

#include <Plugin/AppCore/IMenuService.h>

#include <QHash>
#include <memory>
#include <vector>

namespace HostFakes {

// Menus exist only when the test adds them; every registration is kept.
class CFakeMenuService : public Plugin::AppCore::IMenuService
{
public:
    using IMenuService::IMenuService;

    CFakeActionContainer* addContainer(const Core::CId& id);

    Plugin::AppCore::ICommand* registerAction(QAction* action, const Core::CId& id,
                                              const Core::AppCoreComponents::CContext& context) override;
    Plugin::AppCore::IActionContainer* actionContainer(const Core::CId& id) const override;

    // Null when nothing was registered under the id.
    CFakeCommand* command(const Core::CId& id) const;
    int commandCount() const { return static_cast<int>(m_commands.size()); }

private:
    std::vector<std::unique_ptr<CFakeCommand>> m_commands;
    std::vector<std::unique_ptr<CFakeActionContainer>> m_containers;
};

} // namespace HostFakes
