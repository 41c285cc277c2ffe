#pragma once

#include <Core/CameraPoolComponents/ICameraInfo.h>
#include <ParameterCollection/IParameterCollection.h>

#include <QDialog>

class FeatureTreeWidget;

// The camera's features, opened from the tree while an analysis runs.
class BandwidthCameraConfigureDialog : public QDialog
{
    Q_OBJECT
public:
    BandwidthCameraConfigureDialog(QWidget* parent, ParameterCollection::ParameterCollectionPtr ptrParameters,
                                   Core::CameraPoolComponents::CameraInfoPtr ptrCameraInfo, int visibility);
    ~BandwidthCameraConfigureDialog() override;

    FeatureTreeWidget* featureTree() const { return m_pFeatureTree; }

private:
    ParameterCollection::ParameterCollectionPtr m_ptrParameters;
    Core::CameraPoolComponents::CameraInfoPtr m_ptrCameraInfo;
    FeatureTreeWidget* m_pFeatureTree = nullptr;
};
