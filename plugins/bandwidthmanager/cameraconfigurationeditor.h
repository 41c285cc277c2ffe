#pragma once

#include <Core/CameraPoolComponents/ICameraInfo.h>
#include <ParameterCollection/IParameterCollection.h>

#include <QPointer>
#include <QPushButton>

class BandwidthCameraConfigureDialog;

// The button of the tree's configure column. It opens the camera's features
// in a modal dialog, one at a time, and ends that dialog when the tree closes
// its editor or deletes the button.
class CameraConfigurationEditor : public QPushButton
{
    Q_OBJECT
public:
    CameraConfigurationEditor(ParameterCollection::ParameterCollectionPtr ptrParameters,
                              Core::CameraPoolComponents::CameraInfoPtr ptrCameraInfo, QWidget* parent = nullptr);
    ~CameraConfigurationEditor() override;

    BandwidthCameraConfigureDialog* dialog() const;

signals:
    void configureDialogClosed();

public slots:
    void onEditorClosed();
    void onClicked();

private:
    ParameterCollection::ParameterCollectionPtr m_ptrParameters;
    Core::CameraPoolComponents::CameraInfoPtr m_ptrCameraInfo;
    // Owned here; guarded, since it shares its parent with this button.
    QPointer<BandwidthCameraConfigureDialog> m_pDialog;
    int m_closesToIgnore = 0;
};
