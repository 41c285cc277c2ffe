#include <Utilities/FeatureTreeWidget.h>

#include "FeatureTreeValueDelegate.h"

#include <Core/Exception/BaseException.h>
#include <Core/Logging/Logging.h>
#include <GenICam/GenericException.h>

#include <QCheckBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QMenu>
#include <QPushButton>
#include <QScopedValueRollback>
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

quint64 logCategory()
{
    static const quint64 id = Core::Logging::getCatId("zenta.viewer.featureTree");
    return id;
}

// Call from a catch block.
QString describeCurrentException()
{
    try {
        throw;
    } catch (const GenICam_3_1_Dorvik_zenta::GenericException& e) {
        return QString::fromUtf8(e.GetDescription());
    } catch (const std::exception& e) {
        return QString::fromUtf8(e.what());
    } catch (const Core::Exception::BaseException& e) {
        return e.text();
    } catch (...) {
        return QStringLiteral("unknown failure");
    }
}

} // namespace

class FeatureTreeWidget::CPrivate
{
public:
    struct SLeaf
    {
        QPersistentModelIndex value;
        ParameterCollection::ParameterPtr parameter;
        // Until the whole tree is in the model: an item below a category not yet
        // added has no index.
        QStandardItem* item = nullptr;
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
    FeatureTreeWidget* owner = nullptr;
    // Set while the tree writes a value it read, so that this is not taken for the user's edit.
    bool showing = false;

    QString favoritesKey() const { return QStringLiteral("FeatureTreeWidget/%1/favorites").arg(name); }
    QStringList favoriteNames() const { return QSettings().value(favoritesKey()).toStringList(); }

    static QString readValue(const ParameterCollection::IParameter& parameter)
    {
        try {
            return parameter.isReadable() ? parameter.valueAsString() : QString();
        } catch (...) {
            return describeCurrentException();
        }
    }

    static bool isWritable(const ParameterCollection::IParameter& parameter)
    {
        try {
            return parameter.isWritable();
        } catch (...) {
            return false;
        }
    }

    ParameterCollection::ParameterPtr parameterAt(const QModelIndex& index) const
    {
        for (const SLeaf& leaf : leaves) {
            if (leaf.value == index)
                return leaf.parameter;
        }
        return {};
    }

    // Editable by kind while the camera lets it be written; read-only values
    // are greyed and in italics, and say so in their tool tip.
    void showValue(const SLeaf& leaf)
    {
        QStandardItem* item = model->itemFromIndex(leaf.value);
        if (!item)
            return;
        const ParameterCollection::IParameter& parameter = *leaf.parameter;
        const ParameterCollection::EParameterKind kind = parameter.kind();
        const bool writable = isWritable(parameter);
        const bool readOnly = !writable;
        const QScopedValueRollback<bool> showingGuard(showing, true);
        if (kind == ParameterCollection::EParameterKind::Boolean) {
            const QString text = readValue(parameter);
            const bool on = text.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0 || text == QLatin1String("1");
            item->setCheckable(true);
            item->setCheckState(on ? Qt::Checked : Qt::Unchecked);
            item->setText(on ? FeatureTreeWidget::tr("True") : FeatureTreeWidget::tr("False"));
            item->setFlags(writable ? (item->flags() | Qt::ItemIsUserCheckable) : (item->flags() & ~Qt::ItemIsUserCheckable));
        } else if (kind != ParameterCollection::EParameterKind::Command) {
            item->setText(readValue(parameter));
        }
        item->setEditable(writable && kind != ParameterCollection::EParameterKind::Boolean
                          && kind != ParameterCollection::EParameterKind::Command);
        QFont font = item->font();
        font.setItalic(readOnly);
        item->setFont(font);
        item->setForeground(readOnly ? view->palette().brush(QPalette::Disabled, QPalette::Text) : QBrush());
        item->setToolTip(readOnly ? FeatureTreeWidget::tr("Read only") : QString());
        if (auto* button = qobject_cast<QPushButton*>(view->indexWidget(leaf.value)))
            button->setEnabled(writable);
    }

    // Other features may follow the one written (a rate from a delay, a lock from a mode).
    void afterWrite(const QModelIndex& index, const QString& error)
    {
        refreshValues();
        if (error.isEmpty())
            return;
        Core::Logging::createLogEntry(Core::Logging::LogLevelWarning, logCategory(),
                                      FeatureTreeWidget::tr("Writing %1 failed: %2")
                                          .arg(index.siblingAtColumn(0).data(kNameRole).toString(), error));
        if (QStandardItem* item = model->itemFromIndex(index))
            item->setToolTip(error);
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
            leaves.append({QPersistentModelIndex(), parameter, valueItem});
        }
        return parent->rowCount() > 0;
    }

    void addCommandButtons(FeatureTreeWidget* owner)
    {
        for (const SLeaf& leaf : qAsConst(leaves)) {
            if (leaf.parameter->kind() != ParameterCollection::EParameterKind::Command)
                continue;
            auto* button = new QPushButton(FeatureTreeWidget::tr("Execute"));
            const ParameterCollection::ParameterPtr parameter = leaf.parameter;
            const QPersistentModelIndex index = leaf.value;
            QObject::connect(button, &QPushButton::clicked, owner, [this, parameter, index] {
                QString error;
                try {
                    if (auto* command = qobject_cast<ParameterCollection::ICommandParameter*>(parameter.data()))
                        command->execute(false);
                } catch (...) {
                    error = describeCurrentException();
                }
                afterWrite(index, error);
            });
            view->setIndexWidget(leaf.value, button);
        }
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
        for (SLeaf& leaf : leaves)
            leaf.value = QPersistentModelIndex(leaf.item->index());
        addCommandButtons(owner);
        refreshValues();
        for (const SLeaf& leaf : qAsConst(leaves)) {
            const QPersistentModelIndex index = leaf.value;
            ParameterCollection::IParameter* parameter = leaf.parameter.data();
            QObject::connect(parameter, &ParameterCollection::IParameter::parameterDataChangedDecoupled, model,
                             [this, index, parameter] {
                                 for (const SLeaf& leaf : qAsConst(leaves)) {
                                     if (leaf.value == index && index.isValid())
                                         showValue(leaf);
                                 }
                             });
        }
    }

    void refreshValues()
    {
        for (const SLeaf& leaf : qAsConst(leaves)) {
            if (leaf.value.isValid())
                showValue(leaf);
        }
    }

    void onItemChanged(QStandardItem* item)
    {
        if (showing)
            return;
        for (const SLeaf& leaf : qAsConst(leaves)) {
            if (leaf.value != item->index() || leaf.parameter->kind() != ParameterCollection::EParameterKind::Boolean)
                continue;
            QString error;
            try {
                if (auto* boolean = qobject_cast<ParameterCollection::IBooleanParameter*>(leaf.parameter.data()))
                    boolean->setValue(item->checkState() == Qt::Checked);
            } catch (...) {
                error = describeCurrentException();
            }
            afterWrite(leaf.value, error);
            return;
        }
    }
};

FeatureTreeWidget::FeatureTreeWidget(QString name, QSharedPointer<Core::CameraPoolComponents::IBaseInfo> info,
                                     QWidget* parent, int visibility, bool showFavoritesOnly)
    : QWidget(parent), d(new CPrivate)
{
    d->owner = this;
    d->name = std::move(name);
    d->info = std::move(info);
    d->visibility = visibility;
    d->favoritesOnly = showFavoritesOnly;
    d->model = new QStandardItemModel(0, 2, this);
    d->model->setHorizontalHeaderLabels({tr("Feature"), tr("Value")});
    d->view = new QTreeView(this);
    d->view->setModel(d->model);
    d->view->setItemDelegateForColumn(
        1, new CFeatureTreeValueDelegate([this](const QModelIndex& index) { return d->parameterAt(index); },
                                         [this](const QModelIndex& index, const QString& error) {
                                             d->afterWrite(index, error);
                                         },
                                         this));
    d->view->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::SelectedClicked
                             | QAbstractItemView::EditKeyPressed);
    connect(d->model, &QStandardItemModel::itemChanged, this, [this](QStandardItem* item) { d->onItemChanged(item); });
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
