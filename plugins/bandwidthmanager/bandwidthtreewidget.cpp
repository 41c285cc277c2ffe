#include "bandwidthtreewidget.h"

#include <Utilities/LayoutPersistence.h>

#include <QHeaderView>
#include <QSettings>

namespace {

constexpr int ColumnCount = 8;
constexpr int HeaderLayoutVersion = 7;
constexpr int DefaultSectionSize = 80;
constexpr int DefaultWidths[ColumnCount] = {280, 250, 20, 160, 70, 100, 55, 55};

} // namespace

BandwidthTreeWidget::BandwidthTreeWidget(QWidget* parent)
    : QTreeWidget(parent)
{
    qRegisterMetaType<BandwidthTreeWidget::SOptimizationResult>("BandwidthTreeWidget::SOptimizationResult");
}

BandwidthTreeWidget::~BandwidthTreeWidget() = default;

void BandwidthTreeWidget::setCameraServices(const Core::Plugin::PluginManagerWeakPtr& services)
{
    this->services = services;
}

void BandwidthTreeWidget::setOpenCameras(const QList<Core::CameraPoolComponents::CameraInfoPtr>& list)
{
    openCameras = list;
}

bool BandwidthTreeWidget::setDeviceClasses(const QStringList& /*deviceClasses*/)
{
    // The filter belongs to the device model, which this tree does not have yet.
    return false;
}

void BandwidthTreeWidget::setupColumns(QSettings* settings)
{
    QHeaderView* headerView = header();
    headerView->setDefaultAlignment(Qt::AlignLeft);
    headerView->setDefaultSectionSize(DefaultSectionSize);
    setColumnCount(ColumnCount);

    const QString texts[ColumnCount] = {tr("Camera"),
                                        tr("Bandwidth (MB/s)"),
                                        QString(),
                                        tr("Payload Received (MB/s)"),
                                        tr("fps Sent"),
                                        tr("fps Received"),
                                        tr("Images"),
                                        tr("Errors")};
    QTreeWidgetItem* headerRow = headerItem();
    for (int column = 0; column < ColumnCount; ++column) {
        headerRow->setText(column, texts[column]);
        headerRow->setTextAlignment(column, Qt::AlignLeft | Qt::AlignVCenter);
    }
    headerView->setSectionResizeMode(2, QHeaderView::Fixed);

    if (restoreHeaderLayout(settings, HeaderLayoutVersion, headerView))
        return;
    for (int column = 0; column < ColumnCount; ++column)
        headerView->resizeSection(column, DefaultWidths[column]);
    headerView->setStretchLastSection(true);
}

bool BandwidthTreeWidget::saveColumns(QSettings* settings)
{
    return saveHeaderLayout(settings, HeaderLayoutVersion, header());
}

bool BandwidthTreeWidget::startCamera(FlatTreeItemID /*id*/)
{
    return false;
}

bool BandwidthTreeWidget::stopCamera(FlatTreeItemID /*id*/)
{
    return false;
}

bool BandwidthTreeWidget::startCameraByKey(const QString& /*key*/)
{
    return false;
}

bool BandwidthTreeWidget::stopCameraByKey(const QString& /*key*/)
{
    return false;
}

void BandwidthTreeWidget::removeCameraByKey(const QString& /*key*/)
{
}

void BandwidthTreeWidget::updateSamples()
{
}

void BandwidthTreeWidget::resetStatistics()
{
}

void BandwidthTreeWidget::startAcquisition()
{
}

void BandwidthTreeWidget::stopAcquisition()
{
}

size_t BandwidthTreeWidget::cameraRowCount() const
{
    return 0;
}

size_t BandwidthTreeWidget::measuredCameraCount() const
{
    return 0;
}

QString BandwidthTreeWidget::currentItemText() const
{
    const QTreeWidgetItem* item = currentItem();
    return item ? item->text(0) : QString();
}

bool BandwidthTreeWidget::currentItemThroughputLimit(qint64& /*value*/) const
{
    return false;
}

int BandwidthTreeWidget::currentItemKind() const
{
    return 0;
}

bool BandwidthTreeWidget::collectTriggeredCameras(QStringList* /*softwareList*/, QStringList* /*hardwareList*/)
{
    return false;
}

void BandwidthTreeWidget::clear()
{
    QTreeWidget::clear();
}

void BandwidthTreeWidget::OptimizeAllGigE()
{
    emit optimizeAllGigEStarted();
}

void BandwidthTreeWidget::refreshTree()
{
    clear();
}
