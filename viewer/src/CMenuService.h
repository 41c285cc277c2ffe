#pragma once

#include "CActionContainer.h"
#include "CCommand.h"

#include <Plugin/AppCore/IMenuService.h>

#include <QHash>

#include <memory>
#include <vector>

class QMenu;

namespace Viewer {

class CMenuService : public Plugin::AppCore::IMenuService
{
    Q_OBJECT
public:
    using IMenuService::IMenuService;
    ~CMenuService() override;

    Plugin::AppCore::ICommand* registerAction(QAction* action, const Core::CId& id,
                                              const Core::AppCoreComponents::CContext& context) override;
    Plugin::AppCore::IActionContainer* actionContainer(const Core::CId& id) const override;

    // The host's own menus; the menu stays its owner's.
    CActionContainer* createContainer(const Core::CId& id, QMenu* menu);
    Plugin::AppCore::ICommand* command(const Core::CId& id) const;

private:
    QHash<Core::CId, std::shared_ptr<CActionContainer>> m_containers;
    // Every command lives as long as the service, also one registered again under its id.
    std::vector<std::unique_ptr<CCommand>> m_ownedCommands;
    QHash<Core::CId, CCommand*> m_commands;
};

} // namespace Viewer
