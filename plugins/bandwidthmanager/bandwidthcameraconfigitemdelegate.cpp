#include "bandwidthcameraconfigitemdelegate.h"

#include "bandwidthitemdelegate.h"
#include "bandwidthmeasuringcamera.h"
#include "cameraconfigurationeditor.h"
#include "flattreeitem.h"

BandwidthCameraConfigItemDelegate::BandwidthCameraConfigItemDelegate(QObject* parent) : QStyledItemDelegate(parent)
{
    connect(this, SIGNAL(closeEditor(QWidget*, QAbstractItemDelegate::EndEditHint)), this,
            SLOT(onCloseEditor(QWidget*, QAbstractItemDelegate::EndEditHint)));
}

BandwidthCameraConfigItemDelegate::~BandwidthCameraConfigItemDelegate() = default;

QWidget* BandwidthCameraConfigItemDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                                         const QModelIndex& index) const
{
    const FlatTreeItem* pItem = BandwidthItemDelegate::itemOfIndex(index);
    if (!pItem || !pItem->measuringCamera)
        return QStyledItemDelegate::createEditor(parent, option, index);
    auto* pEditor = new CameraConfigurationEditor(pItem->measuringCamera->getParameters(),
                                                  pItem->measuringCamera->getCameraInfo(), parent);
    pEditor->setFixedWidth(option.rect.width());
    connect(pEditor, SIGNAL(configureDialogClosed()), this, SLOT(onConfigureDialogClosed()));
    return pEditor;
}

void BandwidthCameraConfigItemDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                                             const QModelIndex& index) const
{
    if (editor)
        editor->setFixedWidth(option.rect.width());
    QStyledItemDelegate::updateEditorGeometry(editor, option, index);
}

void BandwidthCameraConfigItemDelegate::onCloseEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint)
{
    if (auto* pEditor = qobject_cast<CameraConfigurationEditor*>(editor))
        pEditor->onEditorClosed();
}

void BandwidthCameraConfigItemDelegate::onConfigureDialogClosed()
{
    emit commitData(qobject_cast<CameraConfigurationEditor*>(sender()));
}
