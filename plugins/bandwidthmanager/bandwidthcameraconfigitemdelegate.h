#pragma once

#include <QStyledItemDelegate>

// The delegate of the tree's configure column: a button that opens the
// camera's features.
class BandwidthCameraConfigItemDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    explicit BandwidthCameraConfigItemDelegate(QObject* parent = nullptr);
    ~BandwidthCameraConfigItemDelegate() override;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

public slots:
    void onCloseEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint = QAbstractItemDelegate::NoHint);
    void onConfigureDialogClosed();
};
