#include <Utilities/FeatureTreeWidget.h>

#include <GenICam/GenericException.h>

#include <QCheckBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QMenu>
#include <QSettings>
#include <QStandardItemModel>
#include <QTimer>
#include <QTreeView>
#include <QVBoxLayout>

namespace {

int visibilityLevel(const QString& text)
{
    static const QStringList levels{"Beginner", "Expert", "Guru", "Invisible"};
    const int level = levels.indexOf(text);
    return level < 0 ? 0 : level;
}

// Feature names travel in the first column's item for the context menu.
constexpr int kNameRole = Qt::UserRole + 1;

} // namespace

class FeatureTreeWidget::CPrivate
{
public:
    struct SLeaf
    {
        QPersistentModelIndex value;
        ParameterCollection::ParameterPtr parameter;
    };

    QString name;
    QSharedPointer<Core::CameraPoolComponents::IBaseInfo> info;
    int visibility = 0;
    bool favoritesOnly = false;
    QTreeView* view = nullptr;
    QStandardItemModel* model = nullptr;
    QCheckBox* polling = nullptr;
    QCheckBox* favorites = nullptr;
    QTimer* pollTimer = nullptr;
    QList<ParameterCollection::ParameterCollectionPtr> collections;
    QList<SLeaf> leaves;

    QString favoritesKey() const { return QStringLiteral("FeatureTreeWidget/%1/favorites").arg(name); }
    QStringList favoriteNames() const { return QSettings().value(favoritesKey()).toStringList(); }

    static QString readValue(const ParameterCollection::IParameter& parameter)
    {
        try {
            return parameter.isReadable() ? parameter.valueAsString() : QString();
        } catch (const GenICam_3_1_Dorvik_zenta::GenericException& e) {
            return QString::fromUtf8(e.GetDescription());
        }
    }

    // Returns false when nothing of the category is shown.
    bool addCategory(const ParameterCollection::IParameterCollection& collection, const QString& category,
                     QStandardItem* parent, const QStringList& favoriteList, int depth)
    {
        if (depth > 32)
            return false; // a category that contains itself
        const QStringList features = collection.getCategoryFeatures(category);
        for (const QString& feature : features) {
            const ParameterCollection::ParameterPtr parameter = collection.getParameter(feature);
            if (!parameter || parameter->isNull())
                continue;
            if (visibilityLevel(parameter->metaData().property(QStringLiteral("Visibility"))) > visibility)
                continue;
            const QString display = parameter->metaData().property(QStringLiteral("DisplayName"));
            auto* nameItem = new QStandardItem(display.isEmpty() ? feature : display);
            nameItem->setData(feature, kNameRole);
            nameItem->setToolTip(parameter->metaData().property(QStringLiteral("ToolTip")));
            auto* valueItem = new QStandardItem;
            nameItem->setEditable(false);
            valueItem->setEditable(false);
            if (parameter->kind() == ParameterCollection::EParameterKind::Category) {
                if (!addCategory(collection, feature, nameItem, favoriteList, depth + 1)) {
                    delete nameItem;
                    delete valueItem;
                    continue;
                }
                parent->appendRow({nameItem, valueItem});
                continue;
            }
            if (favoritesOnly && !favoriteList.contains(feature)) {
                delete nameItem;
                delete valueItem;
                continue;
            }
            valueItem->setText(readValue(*parameter));
            parent->appendRow({nameItem, valueItem});
            leaves.append({QPersistentModelIndex(valueItem->index()), parameter});
        }
        return parent->rowCount() > 0;
    }

    void rebuild()
    {
        for (const SLeaf& leaf : qAsConst(leaves))
            QObject::disconnect(leaf.parameter.data(), nullptr, model, nullptr);
        leaves.clear();
        model->removeRows(0, model->rowCount());
        const QStringList favoriteList = favoriteNames();
        for (const auto& collection : qAsConst(collections))
            addCategory(*collection, QStringLiteral("Root"), model->invisibleRootItem(), favoriteList, 0);
        for (const SLeaf& leaf : qAsConst(leaves)) {
            const QPersistentModelIndex index = leaf.value;
            ParameterCollection::IParameter* parameter = leaf.parameter.data();
            QObject::connect(parameter, &ParameterCollection::IParameter::parameterDataChangedDecoupled, model,
                             [this, index, parameter] {
                                 if (index.isValid())
                                     model->setData(index, readValue(*parameter));
                             });
        }
    }

    void refreshValues()
    {
        for (const SLeaf& leaf : qAsConst(leaves)) {
            if (leaf.value.isValid())
                model->setData(leaf.value, readValue(*leaf.parameter));
        }
    }
};

FeatureTreeWidget::FeatureTreeWidget(QString name, QSharedPointer<Core::CameraPoolComponents::IBaseInfo> info,
                                     QWidget* parent, int visibility, bool showFavoritesOnly)
    : QWidget(parent), d(new CPrivate)
{
    d->name = std::move(name);
    d->info = std::move(info);
    d->visibility = visibility;
    d->favoritesOnly = showFavoritesOnly;
    d->model = new QStandardItemModel(0, 2, this);
    d->model->setHorizontalHeaderLabels({tr("Feature"), tr("Value")});
    d->view = new QTreeView(this);
    d->view->setModel(d->model);
    d->view->setContextMenuPolicy(Qt::CustomContextMenu);
    d->view->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    d->polling = new QCheckBox(tr("Polling"), this);
    d->favorites = new QCheckBox(tr("Favorites only"), this);
    d->favorites->setChecked(showFavoritesOnly);
    d->pollTimer = new QTimer(this);
    d->pollTimer->setInterval(1000);

    auto* options = new QHBoxLayout;
    options->addWidget(d->polling);
    options->addWidget(d->favorites);
    options->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(options);
    layout->addWidget(d->view);

    connect(d->pollTimer, &QTimer::timeout, this, [this] { d->refreshValues(); });
    connect(d->polling, &QCheckBox::toggled, this, &FeatureTreeWidget::setPolling);
    connect(d->favorites, &QCheckBox::toggled, this, &FeatureTreeWidget::setViewAllFavorites);
    connect(d->view, &QTreeView::customContextMenuRequested, this, [this](const QPoint& position) {
        const QString feature = d->view->indexAt(position).siblingAtColumn(0).data(kNameRole).toString();
        if (feature.isEmpty())
            return;
        QStringList favoriteList = d->favoriteNames();
        const bool isFavorite = favoriteList.contains(feature);
        QMenu menu;
        QAction* toggle = menu.addAction(isFavorite ? tr("Remove from favorites") : tr("Add to favorites"));
        if (menu.exec(d->view->viewport()->mapToGlobal(position)) != toggle)
            return;
        if (isFavorite)
            favoriteList.removeAll(feature);
        else
            favoriteList.append(feature);
        QSettings().setValue(d->favoritesKey(), favoriteList);
        if (d->favoritesOnly)
            d->rebuild();
    });
}

FeatureTreeWidget::~FeatureTreeWidget()
{
    delete d;
}

void FeatureTreeWidget::addParameterCollection(const ParameterCollection::ParameterCollectionPtr& parameters)
{
    if (!parameters)
        return;
    d->collections.append(parameters);
    d->rebuild();
}

void FeatureTreeWidget::setPolling(bool enabled)
{
    const QSignalBlocker blocker(d->polling);
    d->polling->setChecked(enabled);
    if (enabled)
        d->pollTimer->start();
    else
        d->pollTimer->stop();
}

void FeatureTreeWidget::setPollingVisible(bool visible)
{
    d->polling->setVisible(visible);
}

void FeatureTreeWidget::setViewAllFavoritesVisible(bool visible)
{
    d->favorites->setVisible(visible);
}

// viewAll ticks "Favorites only": all favourites, and nothing else.
void FeatureTreeWidget::setViewAllFavorites(bool viewAll)
{
    const QSignalBlocker blocker(d->favorites);
    d->favorites->setChecked(viewAll);
    if (d->favoritesOnly == viewAll)
        return;
    d->favoritesOnly = viewAll;
    d->rebuild();
}

void FeatureTreeWidget::expandRootNodes()
{
    for (int row = 0; row < d->model->rowCount(); ++row)
        d->view->expand(d->model->index(row, 0));
}

QTreeView* FeatureTreeWidget::treeView() const
{
    return d->view;
}

QSize FeatureTreeWidget::sizeHint() const
{
    return QSize(480, 560);
}
