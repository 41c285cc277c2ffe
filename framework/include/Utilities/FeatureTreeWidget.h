#pragma once

#include <Core/CameraPoolComponents/IBaseInfo.h>
#include <ParameterCollection/IParameterCollection.h>

#include <QSharedPointer>
#include <QWidget>

class QTreeView;

// A camera's features as a tree of categories, each feature with its value,
// editable by kind.
class FeatureTreeWidget : public QWidget
{
    Q_OBJECT
public:
    // visibility: 0 beginner, 1 expert, 2 guru, 3 invisible; features above it are hidden.
    FeatureTreeWidget(QString name, QSharedPointer<Core::CameraPoolComponents::IBaseInfo> info, QWidget* parent,
                      int visibility, bool showFavoritesOnly);
    ~FeatureTreeWidget() override;

    void addParameterCollection(const ParameterCollection::ParameterCollectionPtr& parameters);
    void setPolling(bool enabled);
    void setPollingVisible(bool visible);
    void setViewAllFavoritesVisible(bool visible);
    void setViewAllFavorites(bool viewAll);
    void expandRootNodes();
    QTreeView* treeView() const;
    QSize sizeHint() const override;

private:
    class CPrivate;
    CPrivate* d;
};
