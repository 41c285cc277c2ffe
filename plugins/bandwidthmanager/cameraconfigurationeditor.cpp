#include "cameraconfigurationeditor.h"

#include "bandwidthcameraconfiguredialog.h"

#include <Utilities/LayoutPersistence.h>

#include <QDialog>
#include <QSettings>

namespace {

const QString kSettingsGroup = QStringLiteral("BandwidthCameraConfigureDialog");
constexpr int kVisibilityGuru = 2;

} // namespace

CameraConfigurationEditor::CameraConfigurationEditor(ParameterCollection::ParameterCollectionPtr ptrParameters,
                                                     Core::CameraPoolComponents::CameraInfoPtr ptrCameraInfo,
                                                     QWidget* parent)
    : QPushButton(parent), m_ptrParameters(std::move(ptrParameters)), m_ptrCameraInfo(std::move(ptrCameraInfo))
{
    setText(!m_ptrParameters || !m_ptrCameraInfo ? tr("Invalid!") : tr("..."));
    setToolTip(tr("Configure Camera"));
    connect(this, SIGNAL(clicked(bool)), this, SLOT(onClicked()));
}

CameraConfigurationEditor::~CameraConfigurationEditor()
{
    disconnect(this, SIGNAL(clicked(bool)), this, nullptr);
    if (m_pDialog) {
        m_pDialog->reject();
        delete m_pDialog;
        m_pDialog = nullptr;
    }
}

void CameraConfigurationEditor::onClicked()
{
    if (!m_ptrParameters || m_pDialog)
        return;
    QWidget* pParentWidget = qobject_cast<QWidget*>(parent());
    QDialog* pOwner = nullptr;
    for (QWidget* pWidget = pParentWidget; pWidget && !pOwner; pWidget = pWidget->parentWidget())
        pOwner = qobject_cast<QDialog*>(pWidget);

    m_pDialog = new BandwidthCameraConfigureDialog(pParentWidget, m_ptrParameters, m_ptrCameraInfo, kVisibilityGuru);
    QSettings settings;
    settings.beginGroup(kSettingsGroup);
    restoreWidgetPositionAndSize(&settings, m_pDialog, pOwner);
    settings.endGroup();

    // The tree closes this editor once as the dialog takes the focus.
    m_closesToIgnore = 1;
    const QPointer<CameraConfigurationEditor> self(this);
    m_pDialog->exec();
    if (!self || !m_pDialog)
        return; // the button went while the dialog ran, and took the dialog with it

    emit configureDialogClosed();
    if (pOwner)
        QMetaObject::invokeMethod(pOwner, "onConfigureDialogClosed", Qt::QueuedConnection);

    settings.beginGroup(kSettingsGroup);
    saveWidgetPositionAndSize(&settings, m_pDialog, pOwner);
    settings.endGroup();
    delete m_pDialog;
    m_pDialog = nullptr;
}

void CameraConfigurationEditor::onEditorClosed()
{
    if (m_closesToIgnore > 0) {
        --m_closesToIgnore;
        return;
    }
    if (m_pDialog)
        m_pDialog->reject();
}

BandwidthCameraConfigureDialog* CameraConfigurationEditor::dialog() const
{
    return m_pDialog;
}
