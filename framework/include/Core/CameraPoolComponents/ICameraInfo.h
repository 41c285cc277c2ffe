#pragma once

#include <Core/CameraPoolComponents/IDeviceBaseInfo.h>

#include <QMap>

namespace Core::CameraPoolComponents {

class ICameraInfo : public IDeviceBaseInfo
{
public:
    // "GEV", "U3V", "CamEmu", ...
    virtual QString deviceClass() const = 0;

    // Further facts, such as "Interface": the address of the host adapter of a GigE camera.
    virtual QMap<QString, QString> properties() const = 0;
    bool hasProperty(const QString& name) const { return properties().contains(name); }
    QString property(const QString& name) const { return properties().value(name); }
};

using CameraInfoPtr = QSharedPointer<ICameraInfo>;

} // namespace Core::CameraPoolComponents

Q_DECLARE_METATYPE(Core::CameraPoolComponents::CameraInfoPtr)
