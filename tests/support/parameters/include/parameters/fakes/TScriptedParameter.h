#pragma once

#include <parameters/fakes/SScriptedNode.h>

#include <GenICam/GenericException.h>

#include <QSharedPointer>

namespace ParameterFakes {

// The part every scripted parameter shares: access modes, scripted failures,
// counting and the change signal, over the node state it was given.
template <class TInterface>
class TScriptedParameter : public TInterface
{
public:
    explicit TScriptedParameter(QSharedPointer<SScriptedNode> node) : m_node(std::move(node)) {}

    bool isNull() const override
    {
        hit(EScriptedAccess::Query);
        return mode() == QLatin1String("NI");
    }
    bool isReadable() const override
    {
        hit(EScriptedAccess::Query);
        return readable();
    }
    bool isWritable() const override
    {
        hit(EScriptedAccess::Query);
        return writable();
    }
    ParameterCollection::CParameterMetaData metaData() const override
    {
        return ParameterCollection::CParameterMetaData({{QStringLiteral("AccessMode"), mode()}});
    }
    ParameterCollection::ParameterDataConstPtr parameterData() const override
    {
        return ParameterCollection::ParameterDataConstPtr(new ParameterCollection::ParameterData(m_node->name, current()));
    }
    QString name() const override { return m_node->name; }
    ParameterCollection::EParameterKind kind() const override { return m_node->kind; }
    QString valueAsString() const override { return current().toString(); }

    SScriptedNode& node() const { return *m_node; }

protected:
    QString mode() const { return m_node->accessLaw ? m_node->accessLaw() : m_node->accessMode; }
    bool readable() const { return mode() == QLatin1String("RO") || mode() == QLatin1String("RW"); }
    bool writable() const { return mode() == QLatin1String("RW") || mode() == QLatin1String("WO"); }
    QVariant current() const { return m_node->valueLaw ? m_node->valueLaw() : m_node->value; }

    [[noreturn]] void fail(const char* what) const
    {
        throw GenICam_3_1_Dorvik_zenta::GenericException(
            (m_node->name + QLatin1String(": ") + QLatin1String(what)).toStdString(), __FILE__, __LINE__);
    }

    // Consumes one scripted failure of this kind, if one is due, by raising.
    void hit(EScriptedAccess access) const
    {
        for (int i = 0; i < m_node->failures.size(); ++i) {
            SScriptedFailure& failure = m_node->failures[i];
            if (failure.access != access)
                continue;
            if (failure.skip > 0) {
                --failure.skip;
                return;
            }
            const std::string message = failure.message.empty() ? "scripted failure" : failure.message;
            if (--failure.count <= 0)
                m_node->failures.removeAt(i);
            throw GenICam_3_1_Dorvik_zenta::GenericException(m_node->name.toStdString() + ": " + message, __FILE__, __LINE__);
        }
    }

    // Reads of ranges and entries: they fail like reads but are not counted.
    void readMeta() const
    {
        hit(EScriptedAccess::Read);
        if (mode() == QLatin1String("NI"))
            fail("not implemented");
    }

    QVariant readValue() const
    {
        hit(EScriptedAccess::Read);
        if (!readable())
            fail("not readable");
        ++m_node->readCount;
        return current();
    }

    // Checks access and failures only; the caller validates, then store()s.
    void beginWrite() const
    {
        hit(EScriptedAccess::Write);
        if (!writable())
            fail("not writable");
    }

    void store(const QVariant& requested)
    {
        const QVariant kept = m_node->writeLaw ? m_node->writeLaw(requested) : requested;
        m_node->value = kept;
        ++m_node->writeCount;
        m_node->writtenValues.append(kept);
        if (m_node->afterWrite)
            m_node->afterWrite(kept);
        if (m_node->notifyOnWrite)
            emit this->parameterDataChangedDecoupled(this->parameterData());
    }

private:
    QSharedPointer<SScriptedNode> m_node;
};

} // namespace ParameterFakes
