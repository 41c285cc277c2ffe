#include "CCameraSelectorPanel.h"

#include "CDeviceSelectorService.h"
#include "CTransportLayerInfo.h"

#include <Plugin/CameraPool/ICameraEnumerationService.h>

#include <QHeaderView>
#include <QMenu>
#include <QTreeView>
#include <QVBoxLayout>

namespace Viewer {

namespace {

constexpr int kKeyRole = Qt::UserRole + 1;

} // namespace

CCameraSelectorPanel::CCameraSelectorPanel(CDeviceSelectorService* selector, QMenu* contextMenu, QWidget* parent)
    : QWidget(parent), m_selector(selector), m_contextMenu(contextMenu), m_view(new QTreeView(this))
{
    m_model.setHorizontalHeaderLabels({tr("Devices")});
    m_view->setModel(&m_model);
    m_view->setHeaderHidden(true);
    m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_view->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(m_view->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &CCameraSelectorPanel::onCurrentChanged);
    connect(m_view, &QTreeView::customContextMenuRequested, this, &CCameraSelectorPanel::onContextMenuRequested);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view);
    onRefresh();
}

void CCameraSelectorPanel::setEnumerationService(
    const QSharedPointer<Plugin::CameraPool::ICameraEnumerationService>& enumeration)
{
    if (m_enumeration)
        disconnect(m_enumeration.data(), nullptr, this, nullptr);
    m_enumeration = enumeration;
    if (m_enumeration) {
        connect(m_enumeration.data(), &Plugin::CameraPool::ICameraEnumerationService::enumerationChanged, this,
                &CCameraSelectorPanel::onRefresh);
    }
    onRefresh();
}

void CCameraSelectorPanel::onRefresh()
{
    const QModelIndex current = m_view->currentIndex();
    const QString selectedKey = current.isValid() ? current.data(kKeyRole).toString() : QString();
    {
        // Rebuilding must not look like the user choosing nothing.
        const QSignalBlocker blocker(m_view->selectionModel());
        m_model.removeRows(0, m_model.rowCount());
        m_devices.clear();
    }
    if (!m_enumeration) {
        auto* none = new QStandardItem(tr("No camera services"));
        none->setEnabled(false);
        m_model.appendRow(none);
        return;
    }
    QStandardItem* reselect = nullptr;
    const QList<Plugin::CameraPool::TransportLayerPtr> layers = m_enumeration->transportLayers();
    for (const Plugin::CameraPool::TransportLayerPtr& layer : layers) {
        if (!layer)
            continue;
        Core::CameraPoolComponents::DeviceBaseInfoPtr layerInfo(
            new CTransportLayerInfo(layer->name(), layer->displayName()));
        auto* layerItem = new QStandardItem(layer->displayName().isEmpty() ? layer->name() : layer->displayName());
        layerItem->setData(layerInfo->key(), kKeyRole);
        m_devices.insert(layerItem, layerInfo);
        if (layerInfo->key() == selectedKey)
            reselect = layerItem;
        for (const Core::CameraPoolComponents::CameraInfoPtr& camera : layer->cameras()) {
            if (!camera)
                continue;
            auto* cameraItem = new QStandardItem(camera->displayName());
            cameraItem->setData(camera->key(), kKeyRole);
            cameraItem->setToolTip(camera->key());
            m_devices.insert(cameraItem, camera);
            layerItem->appendRow(cameraItem);
            if (camera->key() == selectedKey)
                reselect = cameraItem;
        }
        m_model.appendRow(layerItem);
    }
    m_view->expandAll();
    if (reselect)
        m_view->setCurrentIndex(reselect->index());
    else
        m_selector->setSelection({});
}

void CCameraSelectorPanel::onCurrentChanged()
{
    m_selector->setSelection(deviceAt(m_view->currentIndex()));
}

void CCameraSelectorPanel::onContextMenuRequested(const QPoint& position)
{
    const QModelIndex index = m_view->indexAt(position);
    if (!index.isValid() || !m_contextMenu || m_contextMenu->actions().isEmpty())
        return;
    m_view->setCurrentIndex(index);
    m_contextMenu->exec(m_view->viewport()->mapToGlobal(position));
}

Core::CameraPoolComponents::DeviceBaseInfoPtr CCameraSelectorPanel::deviceAt(const QModelIndex& index) const
{
    return m_devices.value(m_model.itemFromIndex(index));
}

} // namespace Viewer
