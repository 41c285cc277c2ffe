#pragma once

#include <camerapool/CAravisCamera.h>
#include <camerapool/CParameterHub.h>
#include <camerapool/IRefreshable.h>

#include <ParameterCollection/IntegerParameterData.h>

#include <QMetaMethod>

namespace CameraPool {

// What every parameter of the pool shares: its camera, its name, and the
// change notification through the camera's hub.
template <typename TInterface>
class TParameterBase : public TInterface, public IRefreshable
{
public:
    TParameterBase(const CAravisCameraPtr& camera, const QString& name) : m_camera(camera), m_name(name) {}

    QString name() const override { return m_name; }

    bool hasReceivers() const override
    {
        return this->isSignalConnected(QMetaMethod::fromSignal(&ParameterCollection::IParameter::parameterDataChangedDecoupled));
    }

    void refresh(bool force) override
    {
        ParameterCollection::ParameterDataConstPtr data;
        try {
            data = this->parameterData();
        } catch (const std::exception&) {
            return;
        }
        if (!data)
            return;
        if (!force && m_last && sameData(*m_last, *data))
            return;
        m_last = data;
        emit this->parameterDataChangedDecoupled(data);
    }

protected:
    void notifyWritten() { m_camera->parameterHub()->afterWrite(m_name); }

    CAravisCameraPtr m_camera;
    QString m_name;

private:
    static bool sameData(const ParameterCollection::ParameterData& a, const ParameterCollection::ParameterData& b)
    {
        if (a.value != b.value)
            return false;
        const auto* ia = dynamic_cast<const ParameterCollection::IntegerParameterData*>(&a);
        const auto* ib = dynamic_cast<const ParameterCollection::IntegerParameterData*>(&b);
        if (!ia || !ib)
            return ia == ib;
        return ia->minimum == ib->minimum && ia->maximum == ib->maximum && ia->increment == ib->increment;
    }

    ParameterCollection::ParameterDataConstPtr m_last;
};

} // namespace CameraPool
