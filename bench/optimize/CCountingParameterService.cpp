#include "CCountingParameterService.h"

using namespace ParameterCollection;

namespace {

class CCountingInteger : public IIntegerParameter
{
public:
    CCountingInteger(IntegerParameterPtr inner, std::shared_ptr<int> pWrites) : m_inner(std::move(inner)), m_pWrites(std::move(pWrites))
    {
        connect(m_inner.data(), &IParameter::parameterDataChangedDecoupled, this,
                &IParameter::parameterDataChangedDecoupled);
    }

    bool isNull() const override { return m_inner->isNull(); }
    bool isReadable() const override { return m_inner->isReadable(); }
    bool isWritable() const override { return m_inner->isWritable(); }
    CParameterMetaData metaData() const override { return m_inner->metaData(); }
    ParameterDataConstPtr parameterData() const override { return m_inner->parameterData(); }
    QString name() const override { return m_inner->name(); }
    EParameterKind kind() const override { return m_inner->kind(); }
    QString valueAsString() const override { return m_inner->valueAsString(); }

    void setValue(qint64 value, int correction) override { ++*m_pWrites; m_inner->setValue(value, correction); }
    void setValueVerified(qint64 value, bool verify) override { ++*m_pWrites; m_inner->setValueVerified(value, verify); }
    qint64 getValue() const override { return m_inner->getValue(); }
    qint64 getMin() const override { return m_inner->getMin(); }
    qint64 getMax() const override { return m_inner->getMax(); }
    qint64 getInc() const override { return m_inner->getInc(); }
    bool trySetValue(qint64 value) override { ++*m_pWrites; return m_inner->trySetValue(value); }
    qint64 getValueOrDefault(qint64 defaultValue) const override { return m_inner->getValueOrDefault(defaultValue); }
    void setToMinimum() override { ++*m_pWrites; m_inner->setToMinimum(); }
    bool trySetToMaximum() override { ++*m_pWrites; return m_inner->trySetToMaximum(); }
    bool trySetToMinimum() override { ++*m_pWrites; return m_inner->trySetToMinimum(); }

private:
    IntegerParameterPtr m_inner;
    std::shared_ptr<int> m_pWrites;
};

class CCountingCollection : public IParameterCollection
{
public:
    CCountingCollection(ParameterCollectionPtr inner, std::shared_ptr<int> pWrites) : m_inner(std::move(inner)), m_pWrites(std::move(pWrites)) {}

    CommandParameterPtr getCommandParameter(const QString& name) const override { return m_inner->getCommandParameter(name); }
    FloatParameterPtr getFloatParameter(const QString& name) const override { return m_inner->getFloatParameter(name); }
    EnumerationParameterPtr getEnumerationParameter(const QString& name) const override
    {
        return m_inner->getEnumerationParameter(name);
    }
    BooleanParameterPtr getBooleanParameter(const QString& name) const override { return m_inner->getBooleanParameter(name); }
    IntegerParameterPtr getIntegerParameter(const QString& name) const override
    {
        IntegerParameterPtr node = m_inner->getIntegerParameter(name);
        if (!node || !(name == QLatin1String("GevSCPD") || name.endsWith(QLatin1String("/GevSCPD"))))
            return node;
        return IntegerParameterPtr(new CCountingInteger(node, m_pWrites));
    }
    ParameterPtr getParameter(const QString& name) const override { return m_inner->getParameter(name); }
    bool contains(const QString& name) const override { return m_inner->contains(name); }
    StringParameterPtr getStringParameter(const QString& name) const override { return m_inner->getStringParameter(name); }
    QStringList getCategoryFeatures(const QString& category) const override
    {
        return m_inner->getCategoryFeatures(category);
    }

private:
    ParameterCollectionPtr m_inner;
    std::shared_ptr<int> m_pWrites;
};

} // namespace

ParameterCollectionPtr CCountingParameterService::parameterCollection(const Core::CameraPoolComponents::CameraInfoPtr& camera)
{
    ParameterCollectionPtr inner = m_inner && camera ? m_inner->parameterCollection(camera) : ParameterCollectionPtr();
    if (!inner)
        return inner;
    std::shared_ptr<int>& writes = m_writes[camera->key()];
    if (!writes)
        writes = std::make_shared<int>(0);
    return ParameterCollectionPtr(new CCountingCollection(inner, writes));
}

int CCountingParameterService::delayWrites(const QString& cameraKey) const
{
    const std::shared_ptr<int> writes = m_writes.value(cameraKey);
    return writes ? *writes : 0;
}

void CCountingParameterService::resetCounts()
{
    for (const std::shared_ptr<int>& writes : qAsConst(m_writes))
        *writes = 0;
}
