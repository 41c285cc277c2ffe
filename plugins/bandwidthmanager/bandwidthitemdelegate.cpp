#include "bandwidthitemdelegate.h"

#include "bandwidthlimiterinterpacketdelay.h"
#include "bandwidthmeasuringcamera.h"
#include "devicelinkthroughputlimiteditor.h"
#include "flattreeitem.h"

#include <Core/Logging/Logging.h>

using Plugin::BandwidthManager::CBandwidthMeasuringCamera;

namespace {

constexpr int kItemRole = Qt::UserRole + 1;

quint64 logCategory()
{
    static const quint64 id = Core::Logging::getCatId("zenta.viewer.plugins.bandwidthManager.treeWidget");
    return id;
}

ParameterCollection::ParameterCollectionPtr parametersOf(const FlatTreeItem* pItem)
{
    return pItem && pItem->measuringCamera ? pItem->measuringCamera->getParameters()
                                           : ParameterCollection::ParameterCollectionPtr();
}

// A camera that fails while asked counts as one without the editor.
template <class TEditor>
bool isEditorPossible(const ParameterCollection::ParameterCollectionPtr& ptrParameters)
{
    if (!ptrParameters)
        return false;
    try {
        return TEditor::isPossible(ptrParameters);
    } catch (const std::exception& e) {
        Core::Logging::createLogEntry(Core::Logging::LogLevelFailure, logCategory(), QString::fromUtf8(e.what()));
    } catch (...) {
        Core::Logging::createLogEntry(Core::Logging::LogLevelFailure, logCategory(),
                                      QStringLiteral("Unknown exception caught while choosing a limit editor."));
    }
    return false;
}

} // namespace

BandwidthItemDelegate::BandwidthItemDelegate(QObject* parent) : QStyledItemDelegate(parent)
{
    connect(this, SIGNAL(closeEditor(QWidget*, QAbstractItemDelegate::EndEditHint)), this,
            SLOT(onCloseEditor(QWidget*, QAbstractItemDelegate::EndEditHint)));
}

BandwidthItemDelegate::~BandwidthItemDelegate() = default;

FlatTreeItem* BandwidthItemDelegate::itemOfIndex(const QModelIndex& index)
{
    QVariant value = index.data(kItemRole);
    if (value.userType() != QMetaType::VoidStar && !value.convert(QMetaType::VoidStar))
        return nullptr;
    return static_cast<FlatTreeItem*>(value.value<void*>());
}

bool BandwidthItemDelegate::isDeviceLinkPossible(const QModelIndex& index)
{
    return isEditorPossible<DeviceLinkThroughputLimitEditor>(parametersOf(itemOfIndex(index)));
}

QWidget* BandwidthItemDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                             const QModelIndex& index) const
{
    FlatTreeItem* pItem = itemOfIndex(index);
    const ParameterCollection::ParameterCollectionPtr ptrParameters = parametersOf(pItem);
    QWidget* pEditor = nullptr;
    if (isEditorPossible<DeviceLinkThroughputLimitEditor>(ptrParameters))
        pEditor = new DeviceLinkThroughputLimitEditor(ptrParameters, parent);
    else if (isEditorPossible<BandwidthLimiterInterPacketDelay>(ptrParameters))
        pEditor = new BandwidthLimiterInterPacketDelay(ptrParameters, parent);
    else
        pEditor = QStyledItemDelegate::createEditor(parent, option, index);
    if (pItem)
        pItem->editor = pEditor;
    return pEditor;
}

void BandwidthItemDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    // That editor follows the camera by itself.
    if (isDeviceLinkPossible(index))
        return;
    QStyledItemDelegate::setEditorData(editor, index);
}

void BandwidthItemDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const
{
    auto* pDeviceLink = qobject_cast<DeviceLinkThroughputLimitEditor*>(editor);
    if (pDeviceLink && isDeviceLinkPossible(index)) {
        model->setData(index, QString::number(double(pDeviceLink->value()), 'g', 6), Qt::DisplayRole);
        return;
    }
    QStyledItemDelegate::setModelData(editor, model, index);
}

void BandwidthItemDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                                 const QModelIndex& index) const
{
    if (isDeviceLinkPossible(index)) {
        editor->setGeometry(option.rect);
        return;
    }
    QStyledItemDelegate::updateEditorGeometry(editor, option, index);
}

void BandwidthItemDelegate::onCloseEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint)
{
    if (auto* pDeviceLink = qobject_cast<DeviceLinkThroughputLimitEditor*>(editor))
        pDeviceLink->disconnectOwnSlots();
}
