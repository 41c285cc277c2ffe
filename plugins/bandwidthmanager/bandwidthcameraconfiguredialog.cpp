#include "bandwidthcameraconfiguredialog.h"

#include <Utilities/FeatureTreeWidget.h>

#include <QHBoxLayout>
#include <QPushButton>
#include <QSpacerItem>
#include <QTabWidget>
#include <QVBoxLayout>

BandwidthCameraConfigureDialog::BandwidthCameraConfigureDialog(QWidget* parent,
                                                               ParameterCollection::ParameterCollectionPtr ptrParameters,
                                                               Core::CameraPoolComponents::CameraInfoPtr ptrCameraInfo,
                                                               int visibility)
    : QDialog(parent), m_ptrParameters(std::move(ptrParameters)), m_ptrCameraInfo(std::move(ptrCameraInfo))
{
    setWindowFlags((windowFlags() | Qt::WindowMaximizeButtonHint) & ~Qt::WindowContextHelpButtonHint);
    setObjectName(QStringLiteral("BandwidthConfigurationDialog"));
    const QString displayName = m_ptrCameraInfo ? m_ptrCameraInfo->displayName() : QString();
    setWindowTitle(tr("Features %1").arg(displayName));
    setWindowModality(Qt::WindowModal);
    resize(550, 600);
    setSizeGripEnabled(true);
    setModal(true);

    auto* pContainer = new QVBoxLayout(this);
    pContainer->setObjectName(QStringLiteral("vbExtendedContainer"));
    auto* pTabs = new QTabWidget(this);
    pTabs->setObjectName(QStringLiteral("tabWidget"));
    pContainer->addWidget(pTabs);
    auto* pButtons = new QHBoxLayout;
    pButtons->addItem(new QSpacerItem(40, 20, QSizePolicy::Expanding, QSizePolicy::Minimum));
    auto* pClose = new QPushButton(tr("Close"), this);
    pButtons->addWidget(pClose);
    pContainer->addLayout(pButtons);
    connect(pClose, SIGNAL(clicked(bool)), this, SLOT(close()));

    m_pFeatureTree = new FeatureTreeWidget(QStringLiteral("Favorites"), m_ptrCameraInfo, this, visibility, false);
    pTabs->addTab(m_pFeatureTree, tr("Configuration"));
    m_pFeatureTree->addParameterCollection(m_ptrParameters);
    m_pFeatureTree->setPolling(false);
    m_pFeatureTree->setViewAllFavorites(false);
    m_pFeatureTree->expandRootNodes();
    m_pFeatureTree->setViewAllFavoritesVisible(false);
    m_pFeatureTree->setPollingVisible(false);
}

BandwidthCameraConfigureDialog::~BandwidthCameraConfigureDialog()
{
    delete m_pFeatureTree;
}
