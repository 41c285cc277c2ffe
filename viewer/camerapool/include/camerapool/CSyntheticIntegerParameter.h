#pragma once

#include <camerapool/TParameterBase.h>

#include <ParameterCollection/IIntegerParameter.h>

#include <functional>

namespace CameraPool {

// A node that the host makes itself, for the stream grabber or the transport layer.
class CSyntheticIntegerParameter : public TParameterBase<ParameterCollection::IIntegerParameter>
{
public:
    struct SSource
    {
        std::function<qint64()> get;
        std::function<void(qint64)> set;  // empty for a read-only node
        qint64 minimum = 0;
        qint64 maximum = std::numeric_limits<qint64>::max();
        qint64 increment = 1;
        // A figure the host keeps: read without waiting behind a register access.
        bool hostOnly = false;
    };

    CSyntheticIntegerParameter(const CAravisCameraPtr& camera, const QString& name, SSource source);

    bool isNull() const override { return false; }
    bool isReadable() const override;
    bool isWritable() const override;
    ParameterCollection::CParameterMetaData metaData() const override;
    ParameterCollection::ParameterDataConstPtr parameterData() const override;
    ParameterCollection::EParameterKind kind() const override { return ParameterCollection::EParameterKind::Integer; }
    QString valueAsString() const override { return QString::number(getValue()); }

    void setValue(qint64 value, int correction) override;
    void setValueVerified(qint64 value, bool verify) override;
    qint64 getValue() const override;
    qint64 getMin() const override;
    qint64 getMax() const override;
    qint64 getInc() const override;
    bool trySetValue(qint64 value) override;
    qint64 getValueOrDefault(qint64 defaultValue) const override;
    void setToMinimum() override;
    bool trySetToMaximum() override;
    bool trySetToMinimum() override;

private:
    void checkCamera() const;

    SSource m_source;
};

} // namespace CameraPool
