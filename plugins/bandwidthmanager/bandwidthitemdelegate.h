#pragma once

#include <QStyledItemDelegate>

struct FlatTreeItem;

// The delegate of the tree's limit column: the device link editor where the
// camera offers a writable limit, else the inter-packet delay limiter.
class BandwidthItemDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    explicit BandwidthItemDelegate(QObject* parent = nullptr);
    ~BandwidthItemDelegate() override;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    // The tree's row behind a cell: role 257 holds the address of its FlatTreeItem.
    static FlatTreeItem* itemOfIndex(const QModelIndex& index);

public slots:
    void onCloseEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint = QAbstractItemDelegate::NoHint);

private:
    static bool isDeviceLinkPossible(const QModelIndex& index);
};
