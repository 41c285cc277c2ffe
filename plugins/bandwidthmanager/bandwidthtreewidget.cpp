#include "bandwidthtreewidget.h"

#include "bandwidthcameraconfigitemdelegate.h"
#include "bandwidthitemdelegate.h"
#include "bandwidthmeasuringcamera.h"
#include "exceptiontext.h"
#include "flattree.h"
#include "measuringcameraset.h"

#include <Core/Logging/Logging.h>
#include <GenICam/GenericException.h>
#include <Utilities/LayoutPersistence.h>
#include <Utilities/ValueFormatting.h>

#include <QEvent>
#include <QHeaderView>
#include <QPixmap>
#include <QPushButton>
#include <QSettings>
#include <QSpinBox>
#include <QTimer>

namespace {

constexpr int ColumnCount = 8;
constexpr int HeaderLayoutVersion = 7;
constexpr int DefaultSectionSize = 80;
constexpr int DefaultWidths[ColumnCount] = {280, 250, 20, 160, 70, 100, 55, 55};
constexpr int ItemRole = Qt::UserRole + 1;
constexpr int CameraRole = Qt::UserRole + 2;
constexpr double Epsilon = 2.220446049250313e-16;

quint64 logCategory()
{
    static const quint64 id = Core::Logging::getCatId("zenta.viewer.plugins.bandwidthManager.treeWidget");
    return id;
}

QIcon scaledIcon(const char* path)
{
    return QIcon(QPixmap(QString::fromLatin1(path)).scaled(19, 19, Qt::IgnoreAspectRatio, Qt::FastTransformation));
}

// The delegate hears of the close first, so that a closing limit editor writes nothing more.
void closeCellEditor(QTreeWidget* tree, QTreeWidgetItem* row, int column, const QModelIndex& index)
{
    QWidget* editor = tree->indexWidget(index);
    QAbstractItemDelegate* delegate = tree->itemDelegate(index);
    if (column == 1) {
        if (auto* limitDelegate = qobject_cast<BandwidthItemDelegate*>(delegate))
            limitDelegate->onCloseEditor(editor, QAbstractItemDelegate::NoHint);
    } else if (auto* configDelegate = qobject_cast<BandwidthCameraConfigItemDelegate*>(delegate)) {
        configDelegate->onCloseEditor(editor, QAbstractItemDelegate::NoHint);
    }
    tree->closePersistentEditor(row, column);
}

Qt::Alignment columnAlignment(int column)
{
    return (column <= 1 ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter;
}

} // namespace

BandwidthTreeWidget::BandwidthTreeWidget(QWidget* parent)
    : QTreeWidget(parent),
      flatTree(new FlatTree),
      cameras(new MeasuringCameraSet),
      boldFont(font()),
      warningIcon(scaledIcon(":/zentaviewercomponents/Resources/Warning_16_black.png")),
      errorIcon(scaledIcon(":/zentaviewercomponents/Resources/Error_16.png"))
{
    qRegisterMetaType<BandwidthTreeWidget::SOptimizationResult>("BandwidthTreeWidget::SOptimizationResult");
    boldFont.setWeight(75);
    connect(this, SIGNAL(itemChanged(QTreeWidgetItem*, int)), this, SLOT(onItemChanged(QTreeWidgetItem*, int)));
    QTimer::singleShot(0, this, SLOT(onAddGigEButtonTimer()));
    connect(&optimizeMapper, SIGNAL(mapped(int)), this, SLOT(onOptimizeButton(int)));
}

BandwidthTreeWidget::~BandwidthTreeWidget()
{
    for (FlatTreeItemID id : measuredCameraIds())
        stopCamera(id);
    delete flatTree;
    flatTree = nullptr;
    delete cameras;
    cameras = nullptr;
}

void BandwidthTreeWidget::setCameraServices(const Core::Plugin::PluginManagerWeakPtr& services)
{
    this->services = services;
    flatTree->setServices(services);
}

void BandwidthTreeWidget::setOpenCameras(const QList<Core::CameraPoolComponents::CameraInfoPtr>& list)
{
    openCameras = list;
}

bool BandwidthTreeWidget::setDeviceClasses(const QStringList& deviceClasses)
{
    if (!flatTree)
        return false;
    GenICam_3_1_Dorvik_zenta::gcstring_vector classes;
    for (const QString& name : deviceClasses)
        classes.emplace_back(name.toStdString());
    flatTree->setDeviceClasses(classes);
    return true;
}

void BandwidthTreeWidget::setupColumns(QSettings* settings)
{
    QHeaderView* headerView = header();
    headerView->setDefaultAlignment(Qt::AlignLeft);
    headerView->setDefaultSectionSize(DefaultSectionSize);
    setColumnCount(ColumnCount);
    setItemDelegateForColumn(1, new BandwidthItemDelegate(this));
    setItemDelegateForColumn(2, new BandwidthCameraConfigItemDelegate(this));

    retranslateHeader();
    QTreeWidgetItem* headerRow = headerItem();
    for (int column = 0; column < ColumnCount; ++column)
        headerRow->setTextAlignment(column, Qt::AlignLeft | Qt::AlignVCenter);
    headerView->setSectionResizeMode(2, QHeaderView::Fixed);

    if (restoreHeaderLayout(settings, HeaderLayoutVersion, headerView))
        return;
    for (int column = 0; column < ColumnCount; ++column)
        headerView->resizeSection(column, DefaultWidths[column]);
    headerView->setStretchLastSection(true);
}

void BandwidthTreeWidget::retranslateHeader()
{
    const QString texts[ColumnCount] = {tr("Camera"),
                                        tr("Bandwidth (MB/s)"),
                                        QString(),
                                        tr("Payload Received (MB/s)"),
                                        tr("fps Sent"),
                                        tr("fps Received"),
                                        tr("Images"),
                                        tr("Errors")};
    QTreeWidgetItem* headerRow = headerItem();
    for (int column = 0; column < ColumnCount; ++column)
        headerRow->setText(column, texts[column]);
}

// Until setupColumns has run, the header is the form's placeholder.
void BandwidthTreeWidget::changeEvent(QEvent* e)
{
    if (e->type() == QEvent::LanguageChange && columnCount() == ColumnCount)
        retranslateHeader();
    QTreeWidget::changeEvent(e);
}

bool BandwidthTreeWidget::saveColumns(QSettings* settings)
{
    return saveHeaderLayout(settings, HeaderLayoutVersion, header());
}

FlatTreeItem* BandwidthTreeWidget::itemOfRow(const QTreeWidgetItem* pRow) const
{
    if (!pRow)
        return nullptr;
    QVariant value = pRow->data(0, ItemRole);
    if (!value.isValid())
        return nullptr;
    if (value.userType() != QMetaType::VoidStar && !value.convert(QMetaType::VoidStar))
        return nullptr;
    return static_cast<FlatTreeItem*>(value.value<void*>());
}

int BandwidthTreeWidget::populateChildren(const FlatTreeItem* pItem, QTreeWidgetItem* pParentRow)
{
    if (!pItem || !pParentRow)
        return 0;
    int count = 0;
    const std::vector<FlatTreeItemID> children = pItem->children;
    for (FlatTreeItemID id : children) {
        FlatTreeItem& child = flatTree->item(id);
        auto* row = new QTreeWidgetItem;
        child.row = row;
        Qt::ItemFlags flags = row->flags() | Qt::ItemIsSelectable;
        if (child.isCamera && child.cameraInfo
            && (child.cameraInfo->deviceClass() == QLatin1String("U3V")
                || child.cameraInfo->deviceClass() == QLatin1String("GEV")))
            flags |= Qt::ItemIsEditable;
        row->setFlags(flags);
        for (int column = 0; column < ColumnCount; ++column)
            row->setTextAlignment(column, columnAlignment(column));
        row->setText(0, child.text);
        refreshRow(id);
        if (child.isCamera) {
            row->setCheckState(0, child.measuringCamera ? Qt::Checked : Qt::Unchecked);
            if (child.measuringCamera)
                row->setFont(0, boldFont);
        }
        const QVariant address = QVariant::fromValue(static_cast<void*>(&child));
        for (int column = 0; column <= 2; ++column) {
            row->setData(column, ItemRole, address);
            if (child.isCamera)
                row->setData(column, CameraRole, 1);
        }
        pParentRow->addChild(row);
        if (child.measuringCamera) {
            if (flags & Qt::ItemIsEditable)
                openPersistentEditor(row, 1);
            openPersistentEditor(row, 2);
        }
        ++count;
        if (!child.children.empty())
            count += populateChildren(&child, row);
    }
    pParentRow->setExpanded(true);
    if (header()->count() > 1)
        header()->setSectionResizeMode(1, QHeaderView::Fixed);
    return count;
}

void BandwidthTreeWidget::clear()
{
    if (flatTree) {
        for (size_t id = 0; id < flatTree->size(); ++id) {
            FlatTreeItem& item = flatTree->item(id);
            if (!item.measuringCamera || !item.row)
                continue;
            closeCellEditor(this, item.row, 2, indexFromItem(item.row, 2));
            closeCellEditor(this, item.row, 1, indexFromItem(item.row, 1));
            item.editor = nullptr;
        }
        for (size_t id = 0; id < flatTree->size(); ++id)
            flatTree->item(id).row = nullptr;
    }
    QTreeWidget::clear();
}

void BandwidthTreeWidget::refreshTree()
{
    if (deferredWhileOptimizing([this] { refreshTree(); }))
        return;
    try {
        QStringList lost;
        const std::vector<Plugin::BandwidthManager::CBandwidthMeasuringCamera*> measuring = cameras->cameras;
        for (Plugin::BandwidthManager::CBandwidthMeasuringCamera* camera : measuring) {
            if (!camera->isConnectionLost())
                continue;
            if (camera->getCameraInfo())
                lost << camera->getCameraInfo()->key();
            for (FlatTreeItemID id = 1; id < flatTree->size(); ++id) {
                FlatTreeItem& item = flatTree->item(id);
                if (item.measuringCamera != camera)
                    continue;
                if (item.openCamera)
                    dropOpenCamera(item.openCamera);
                else
                    stopCamera(id);
                break;
            }
        }
        clear();
        const std::vector<Plugin::BandwidthManager::CBandwidthMeasuringCamera*> remaining = cameras->cameras;
        for (Plugin::BandwidthManager::CBandwidthMeasuringCamera* camera : remaining) {
            if (camera->isConnectionLost())
                cameras->destroy(camera);
        }
        flatTree->build(*cameras, openCameras);
        if (flatTree->size() > 0) {
            populateChildren(&flatTree->item(0), invisibleRootItem());
            sortByColumn(0, Qt::AscendingOrder);
            if (QTreeWidgetItem* first = topLevelItem(0)) {
                QSize hint = first->sizeHint(0);
                if (hint.width() == -1)
                    hint.setWidth(0);
                hint.setHeight(QSpinBox().sizeHint().height());
                first->setSizeHint(0, hint);
            }
        }
        onAddGigEButtonTimer();
        for (FlatTreeItemID id = 0; id < flatTree->size(); ++id) {
            const FlatTreeItem& item = flatTree->item(id);
            if (item.isAdapter && item.isGigE)
                updateButtonState(id);
        }
        markLostCameras(lost);
        resumeReturnedCameras(lost);
    } catch (const GenICam_3_1_Dorvik_zenta::GenericException& e) {
        Core::Logging::createLogEntry(Core::Logging::LogLevelFailure, logCategory(),
                                      QString::fromUtf8(e.GetDescription()));
    } catch (const std::exception& e) {
        Core::Logging::createLogEntry(Core::Logging::LogLevelFailure, logCategory(), QString::fromUtf8(e.what()));
    } catch (...) {
        // The host's own exception is no std::exception; nothing may reach the event loop.
        Core::Logging::createLogEntry(Core::Logging::LogLevelFailure, logCategory(),
                                      Plugin::BandwidthManager::describeCurrentException(QStringLiteral("refreshing the tree")));
    }
}

// A camera whose connection was lost keeps its row, marked, until the pool
// drops it from its list and a later rebuild removes the row.
void BandwidthTreeWidget::markLostCameras(const QStringList& keys)
{
    for (const QString& key : keys) {
        const FlatTreeItemID id = flatTree->findByKey(key);
        if (id == 0 || !flatTree->item(id).row)
            continue;
        QTreeWidgetItem* row = flatTree->item(id).row;
        const QString toolTip = tr("Error accessing camera!") + QStringLiteral(" (") + tr("Connection lost") + QLatin1Char(')');
        row->setIcon(0, errorIcon);
        row->setToolTip(0, toolTip);
        emit errorOccurred(key, toolTip, QDateTime::currentDateTime());
    }
}

void BandwidthTreeWidget::resumeReturnedCameras(const QStringList& lost)
{
    if (cameras->running) {
        for (const QString& key : lost)
            m_resumeKeys.insert(key);
    }
    QSet<QString> shown;
    for (FlatTreeItemID id = 1; id < flatTree->size(); ++id) {
        const FlatTreeItem& item = flatTree->item(id);
        if (item.isCamera && item.cameraInfo)
            shown.insert(item.cameraInfo->key());
    }
    // A row that stayed through the loss is the dead camera itself; only one
    // that went and came back is a camera to open again. One attempt: a failure
    // shows on the row.
    const QSet<QString> returned = m_resumeKeys & (shown - m_keysShown);
    m_keysShown = shown;
    for (const QString& key : returned) {
        m_resumeKeys.remove(key);
        startCameraByKey(key);
    }
}

void BandwidthTreeWidget::onAddGigEButtonTimer()
{
    for (FlatTreeItemID id = 0; id < flatTree->size(); ++id) {
        const FlatTreeItem& item = flatTree->item(id);
        if (!item.isAdapter || !item.isGigE || !item.row)
            continue;
        auto* button = new QPushButton(tr("Optimize"));
        button->setToolTip(tr("Optimizes transport layer settings of cameras connected to this network adapter."));
        button->setFixedWidth(70);
        button->setEnabled(false);
        button->setStyleSheet(QStringLiteral("padding-bottom: 2px;"));
        setItemWidget(item.row, 1, button);
        connect(button, SIGNAL(clicked()), &optimizeMapper, SLOT(map()));
        optimizeMapper.setMapping(button, static_cast<int>(id));
    }
}

void BandwidthTreeWidget::updateButtonStates()
{
    for (FlatTreeItemID id = 0; id < flatTree->size(); ++id) {
        const FlatTreeItem& item = flatTree->item(id);
        if (item.isAdapter && item.isGigE)
            updateButtonState(id);
    }
}

void BandwidthTreeWidget::updateButtonState(FlatTreeItemID adapterId)
{
    if (adapterId >= flatTree->size())
        return;
    const FlatTreeItem& adapter = flatTree->item(adapterId);
    if (!adapter.isAdapter || !adapter.isGigE || !adapter.row)
        return;
    int checked = 0;
    for (int index = 0; index < adapter.row->childCount(); ++index) {
        if (adapter.row->child(index)->checkState(0) == Qt::Checked)
            ++checked;
    }
    if (auto* button = qobject_cast<QPushButton*>(itemWidget(adapter.row, 1)))
        button->setEnabled(checked > 0);
}

void BandwidthTreeWidget::onItemChanged(QTreeWidgetItem* pItem, int column)
{
    if (column == 2) {
        pItem->setText(2, QStringLiteral(" "));
        return;
    }
    if (column != 0)
        return;
    const FlatTreeItem* item = itemOfRow(pItem);
    if (!item || !item->isCamera)
        return;
    const Qt::CheckState state = pItem->checkState(0);
    const Qt::CheckState expected = item->measuringCamera ? Qt::Checked : Qt::Unchecked;
    if (state == expected)
        return;
    updateButtonState(item->parentId);
    const FlatTreeItemID id = flatTree->findByKey(item->key);
    const Core::CameraPoolComponents::CameraInfoPtr cameraInfo = item->cameraInfo;
    emit cameraChecked(id, cameraInfo, state);
}

bool BandwidthTreeWidget::startCamera(FlatTreeItemID id)
{
    bool started = false;
    try {
        started = flatTree->startMeasuring(id, *cameras);
    } catch (const GenICam_3_1_Dorvik_zenta::GenericException&) {
        started = false;
    } catch (const std::exception&) {
        started = false;
    }
    FlatTreeItem* item = id < flatTree->size() ? &flatTree->item(id) : nullptr;
    if (item && item->row) {
        QTreeWidgetItem* row = item->row;
        if (started) {
            row->setCheckState(0, Qt::Checked);
            row->setIcon(0, QIcon());
            row->setToolTip(0, okToolTip);
            if (item->measuringCamera) {
                if (row->flags() & Qt::ItemIsEditable)
                    openPersistentEditor(row, 1);
                openPersistentEditor(row, 2);
                row->setFont(0, boldFont);
            }
        } else {
            row->setCheckState(0, Qt::Unchecked);
            row->setIcon(0, errorIcon);
            QString toolTip = tr("Error accessing camera!");
            if (!flatTree->lastErrorText().empty())
                toolTip += QStringLiteral(" (") + QString::fromStdString(flatTree->lastErrorText()) + QLatin1Char(')');
            row->setToolTip(0, toolTip);
            emit errorOccurred(item->cameraInfo ? item->cameraInfo->key() : QString(), toolTip,
                               QDateTime::currentDateTime());
        }
    }
    if (started && cameras->running)
        refreshRow(id);
    QTimer::singleShot(0, this, SLOT(updateButtonStates()));
    return started;
}

bool BandwidthTreeWidget::stopCamera(FlatTreeItemID id)
{
    if (id < flatTree->size()) {
        FlatTreeItem& item = flatTree->item(id);
        if (item.measuringCamera && item.row) {
            if (item.row->flags() & Qt::ItemIsEditable)
                closeCellEditor(this, item.row, 1, indexFromItem(item.row, 1));
            closeCellEditor(this, item.row, 2, indexFromItem(item.row, 2));
            item.editor = nullptr;
        }
    }
    bool stopped = false;
    try {
        stopped = flatTree->stopMeasuring(id, *cameras);
    } catch (...) {
        stopped = false;
    }
    FlatTreeItem* item = id < flatTree->size() ? &flatTree->item(id) : nullptr;
    if (item && item->row) {
        item->row->setCheckState(0, Qt::Unchecked);
        item->row->setFont(0, font());
    }
    if (stopped && cameras->running)
        refreshRow(id);
    QTimer::singleShot(0, this, SLOT(updateButtonStates()));
    return stopped;
}

bool BandwidthTreeWidget::startCameraByKey(const QString& key)
{
    const FlatTreeItemID id = flatTree->findByKey(key);
    return id != 0 && startCamera(id);
}

bool BandwidthTreeWidget::stopCameraByKey(const QString& key)
{
    const FlatTreeItemID id = flatTree->findByKey(key);
    return id != 0 && stopCamera(id);
}

void BandwidthTreeWidget::removeCameraByKey(const QString& key)
{
    if (deferredWhileOptimizing([this, key] { removeCameraByKey(key); }))
        return;
    const FlatTreeItemID id = flatTree->findByKey(key);
    if (id == 0)
        return;
    const Core::CameraPoolComponents::CameraInfoPtr open = flatTree->item(id).openCamera;
    if (open)
        dropOpenCamera(open);
}

void BandwidthTreeWidget::dropOpenCamera(const Core::CameraPoolComponents::CameraInfoPtr& camera)
{
    const Core::CameraPoolComponents::CameraInfoPtr held = camera;
    for (int index = 0; index < openCameras.size(); ++index) {
        if (openCameras.at(index) == held) {
            openCameras.removeAt(index);
            break;
        }
    }
    for (FlatTreeItemID id = 1; id < flatTree->size(); ++id) {
        if (flatTree->item(id).openCamera == held) {
            stopCamera(id);
            flatTree->item(id).openCamera.reset();
            return;
        }
    }
}

void BandwidthTreeWidget::refreshRow(FlatTreeItemID id)
{
    const FlatTreeItem& item = flatTree->item(id);
    QTreeWidgetItem* row = item.row;
    if (!row)
        return;
    const QLocale locale = this->locale();
    if (item.isCamera) {
        if (!item.measuringCamera) {
            for (int column = 1; column < ColumnCount; ++column)
                row->setText(column, QString());
            row->setIcon(5, QIcon());
            row->setIcon(7, QIcon());
            return;
        }
        row->setText(1, QString());
        const int decimals = item.payloadReceived < 1000000 ? 2 : 0;
        row->setText(3, formatUnsignedIntegerValueAndUnits(item.payloadReceived, decimals, FormatMultiplierMega,
                                                           QString(), FormatNoSpaceBeforeEmptyUnit, locale));
        row->setText(4, formatDoubleValue(item.fpsSent, 2, FormatNoFlags, locale));
        row->setText(5, item.fpsReceived >= Epsilon ? formatDoubleValue(item.fpsReceived, 2, FormatNoFlags, locale)
                                                    : QStringLiteral("-.--"));
        row->setText(7, formatIntegerValue(static_cast<qint64>(item.errors), FormatGroupDigits, locale));
        row->setText(6, formatIntegerValue(static_cast<qint64>(item.images), FormatGroupDigits, locale));
        row->setText(2, QString());
        const double stallLimit = item.fpsSent == 0.0 ? 2.0 : (1.0 / item.fpsSent) * 3.0;
        const bool stalled = item.fpsReceived == 0.0 && item.timestamp.isValid()
                             && item.timestamp.secsTo(QDateTime::currentDateTime()) > stallLimit;
        row->setIcon(5, stalled ? warningIcon : QIcon());
        row->setIcon(7, item.errors >= 1 ? errorIcon : QIcon());
        return;
    }
    // A network adapter's cell 1 carries its Optimize button.
    if (!item.isAdapter || item.isGigE)
        return;
    row->setText(1, item.bandwidth > 0 ? QStringLiteral("~")
                                             + formatUnsignedIntegerValueAndUnits(item.bandwidth, 0, FormatMultiplierMega,
                                                                                  QString(), FormatNoFlags, locale)
                                       : QString());
}

void BandwidthTreeWidget::refreshAllRows()
{
    for (FlatTreeItemID id = 0; id < flatTree->size(); ++id)
        refreshRow(id);
}

void BandwidthTreeWidget::updateSamples()
{
    // The next tick after the run samples again; the rows are the run's meanwhile.
    if (m_optimizing)
        return;
    flatTree->sampleAll();
    refreshAllRows();
    emit samplesUpdated();
}

void BandwidthTreeWidget::resetStatistics()
{
    for (Plugin::BandwidthManager::CBandwidthMeasuringCamera* camera : cameras->cameras) {
        try {
            camera->resetStatistics();
        } catch (...) {
            // One camera that does not answer leaves the others' statistics to be reset.
        }
    }
    flatTree->sampleAll();
    refreshAllRows();
}

void BandwidthTreeWidget::startAcquisition()
{
    if (deferredWhileOptimizing([this] { startAcquisition(); }))
        return;
    flatTree->resetSamples();
    refreshAllRows();
    cameras->running = true;
    for (Plugin::BandwidthManager::CBandwidthMeasuringCamera* camera : cameras->cameras) {
        try {
            if (!camera->isMeasuring() && camera->hasStreamGrabber())
                camera->startMeasuring();
        } catch (...) {
            // The other cameras start all the same.
        }
    }
}

void BandwidthTreeWidget::stopAcquisition()
{
    if (deferredWhileOptimizing([this] { stopAcquisition(); }))
        return;
    cameras->running = false;
    m_resumeKeys.clear();
    // Every camera is stopped, whichever of them fails.
    for (Plugin::BandwidthManager::CBandwidthMeasuringCamera* camera : cameras->cameras) {
        try {
            if (camera->isMeasuring())
                camera->stopMeasuring();
        } catch (...) {
            Core::Logging::createLogEntry(Core::Logging::LogLevelFailure, logCategory(),
                                          Plugin::BandwidthManager::describeCurrentException(QStringLiteral("stopping a camera")));
        }
    }
}

size_t BandwidthTreeWidget::cameraRowCount() const
{
    size_t count = 0;
    for (FlatTreeItemID id = 0; id < flatTree->size(); ++id)
        count += flatTree->item(id).isCamera ? 1 : 0;
    return count;
}

size_t BandwidthTreeWidget::measuredCameraCount() const
{
    return measuredCameraIds().size();
}

size_t BandwidthTreeWidget::gigEAdapterCount() const
{
    size_t count = 0;
    for (FlatTreeItemID id = 0; id < flatTree->size(); ++id) {
        const FlatTreeItem& item = flatTree->item(id);
        count += (item.isAdapter && item.isGigE) ? 1 : 0;
    }
    return count;
}

bool BandwidthTreeWidget::isGigECamera(const FlatTreeItem& item) const
{
    if (!item.measuringCamera)
        return false;
    const Core::CameraPoolComponents::CameraInfoPtr info = item.measuringCamera->getCameraInfo();
    return info && info->deviceClass() == QLatin1String("GEV");
}

size_t BandwidthTreeWidget::gigECameraCount() const
{
    size_t count = 0;
    for (FlatTreeItemID id = 0; id < flatTree->size(); ++id)
        count += isGigECamera(flatTree->item(id)) ? 1 : 0;
    return count;
}

std::vector<FlatTreeItemID> BandwidthTreeWidget::measuredCameraIds() const
{
    std::vector<FlatTreeItemID> ids;
    for (FlatTreeItemID id = 0; id < flatTree->size(); ++id) {
        if (flatTree->item(id).measuringCamera)
            ids.push_back(id);
    }
    return ids;
}

QString BandwidthTreeWidget::currentItemText() const
{
    const QTreeWidgetItem* item = currentItem();
    return item ? item->text(0) : QString();
}

bool BandwidthTreeWidget::currentItemThroughputLimit(qint64& value) const
{
    const FlatTreeItem* item = itemOfRow(currentItem());
    if (!item || !item->isCamera)
        return false;
    value = item->deviceLinkThroughputLimit;
    return true;
}

int BandwidthTreeWidget::currentItemKind() const
{
    const FlatTreeItem* item = itemOfRow(currentItem());
    if (!item)
        return 0;
    if (item->isCamera)
        return 2;
    return item->isAdapter ? 3 : 0;
}

bool BandwidthTreeWidget::collectTriggeredCameras(QStringList* softwareList, QStringList* hardwareList)
{
    bool any = false;
    for (Plugin::BandwidthManager::CBandwidthMeasuringCamera* camera : cameras->cameras) {
        try {
            if (!camera->isTriggerEnabled())
                continue;
            any = true;
            const Core::CameraPoolComponents::CameraInfoPtr info = camera->getCameraInfo();
            const QString name = info ? info->displayName() : QString();
            if (camera->isSoftwareTriggered()) {
                if (softwareList)
                    softwareList->append(name);
            } else if (hardwareList) {
                hardwareList->append(name);
            }
        } catch (...) {
            // A camera that fails the walk counts as untriggered.
        }
    }
    return any;
}
