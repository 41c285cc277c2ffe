#pragma once

#include <Core/CameraPoolComponents/IDeviceBaseInfo.h>

#include <QPointer>
#include <QSharedPointer>
#include <QStandardItemModel>
#include <QWidget>

class QMenu;
class QTreeView;

namespace Plugin::CameraPool {
class ICameraEnumerationService;
}

namespace Viewer {

class CDeviceSelectorService;

// The devices of the camera pool by transport layer; the selection goes to
// the selector service, the context menu is the host's container menu.
class CCameraSelectorPanel : public QWidget
{
    Q_OBJECT
public:
    CCameraSelectorPanel(CDeviceSelectorService* selector, QMenu* contextMenu, QWidget* parent = nullptr);

    void setEnumerationService(const QSharedPointer<Plugin::CameraPool::ICameraEnumerationService>& enumeration);
    QTreeView* view() const { return m_view; }
    QStandardItemModel* model() { return &m_model; }

public slots:
    void onRefresh();

private slots:
    void onCurrentChanged();
    void onContextMenuRequested(const QPoint& position);

private:
    Core::CameraPoolComponents::DeviceBaseInfoPtr deviceAt(const QModelIndex& index) const;

    CDeviceSelectorService* m_selector;
    QPointer<QMenu> m_contextMenu;
    QSharedPointer<Plugin::CameraPool::ICameraEnumerationService> m_enumeration;
    QStandardItemModel m_model;
    QTreeView* m_view;
    QHash<QStandardItem*, Core::CameraPoolComponents::DeviceBaseInfoPtr> m_devices;
};

} // namespace Viewer
