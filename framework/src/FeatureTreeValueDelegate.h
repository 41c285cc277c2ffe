#pragma once

#include <ParameterCollection/IParameter.h>

#include <QStyledItemDelegate>

#include <functional>

// Edits a feature's value in the tree with an editor of its kind, writes it
// to the camera, and reports the outcome: an empty text on success.
class CFeatureTreeValueDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    using ParameterLookup = std::function<ParameterCollection::ParameterPtr(const QModelIndex&)>;
    using WriteDone = std::function<void(const QModelIndex&, const QString& error)>;

    CFeatureTreeValueDelegate(ParameterLookup lookup, WriteDone done, QObject* parent);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;

private:
    ParameterLookup m_lookup;
    WriteDone m_done;
};
