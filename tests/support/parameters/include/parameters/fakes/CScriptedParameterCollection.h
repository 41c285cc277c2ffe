#pragma once

#include <parameters/fakes/SScriptedNode.h>

#include <ParameterCollection/IParameterCollection.h>

#include <QMap>

#include <string>

namespace ParameterFakes {

// A camera's nodes in memory, scripted by a test.
//
// Names: "@CameraDevice/X" and "X" are the same node; "@StreamGrabber0/X"
// and "@DeviceTransportLayer/X" live in node maps of their own. A lookup
// "A|B" gives A if the camera implements it, else B; if neither is
// implemented, the first one that exists as a not-implemented node.
// A lookup of a name that was never added, or of another kind, gives an
// empty pointer; every lookup of one name gives the same object, so
// connections to its signal see later writes.
//
// Access: "RO", "RW", "WO", "NA" and "NI" (isNull true). Reading a node
// that is not readable, or writing one that is not writable, raises
// GenericException, as does a scripted failure (failNext). Integer writes
// check range and increment unless a correction is asked for.
//
// Not thread-safe: script it and use it from one thread.
class CScriptedParameterCollection : public ParameterCollection::IParameterCollection
{
public:
    CScriptedParameterCollection();
    ~CScriptedParameterCollection() override;

    SScriptedNode& addInteger(const QString& name, qint64 value, qint64 minimum, qint64 maximum, qint64 increment = 1,
                              const QString& accessMode = QStringLiteral("RW"));
    SScriptedNode& addFloat(const QString& name, double value, double minimum, double maximum,
                            const QString& accessMode = QStringLiteral("RW"));
    SScriptedNode& addEnumeration(const QString& name, const QString& value, const QStringList& entries,
                                  const QString& accessMode = QStringLiteral("RW"));
    SScriptedNode& addBoolean(const QString& name, bool value, const QString& accessMode = QStringLiteral("RW"));
    SScriptedNode& addCommand(const QString& name, const QString& accessMode = QStringLiteral("WO"));
    SScriptedNode& addString(const QString& name, const QString& value, const QString& accessMode = QStringLiteral("RW"));
    // A category node holding the given features, as the feature tree walks them.
    SScriptedNode& addCategory(const QString& name, const QStringList& features);
    // A node the camera's description lists but the camera does not implement.
    SScriptedNode& addNotImplemented(const QString& name, ParameterCollection::EParameterKind kind);
    void remove(const QString& name);

    bool has(const QString& name) const;
    // The state of a node that was added; aborts the test run otherwise.
    SScriptedNode& node(const QString& name) const;

    // Script changes; they bypass counting, failures and laws.
    void setAccessMode(const QString& name, const QString& accessMode);
    void setValue(const QString& name, const QVariant& value);
    void setRange(const QString& name, const QVariant& minimum, const QVariant& maximum, qint64 increment = 1);
    // The stored value, or what valueLaw gives.
    QVariant value(const QString& name) const;

    // The next `count` accesses of this kind raise, after `skip` that pass.
    void failNext(const QString& name, EScriptedAccess access, int count = 1, int skip = 0,
                  const std::string& message = {});
    void setValueLaw(const QString& name, std::function<QVariant()> law);
    void setAccessLaw(const QString& name, std::function<QString()> law);
    void setWriteLaw(const QString& name, std::function<QVariant(const QVariant&)> law);
    void setAfterWrite(const QString& name, std::function<void(const QVariant&)> action);

    int readCount(const QString& name) const;
    int writeCount(const QString& name) const;
    QVariantList writtenValues(const QString& name) const;

    // As if the host saw the node change: emits parameterDataChangedDecoupled.
    void emitChanged(const QString& name) const;

    void setCategoryFeatures(const QString& category, const QStringList& features);

    // "@CameraDevice/X" -> "X"; other names as they are.
    static QString canonicalName(const QString& name);

    ParameterCollection::CommandParameterPtr getCommandParameter(const QString& name) const override;
    ParameterCollection::FloatParameterPtr getFloatParameter(const QString& name) const override;
    ParameterCollection::EnumerationParameterPtr getEnumerationParameter(const QString& name) const override;
    ParameterCollection::BooleanParameterPtr getBooleanParameter(const QString& name) const override;
    ParameterCollection::IntegerParameterPtr getIntegerParameter(const QString& name) const override;
    ParameterCollection::ParameterPtr getParameter(const QString& name) const override;
    bool contains(const QString& name) const override;
    ParameterCollection::StringParameterPtr getStringParameter(const QString& name) const override;
    QStringList getCategoryFeatures(const QString& category) const override;

private:
    struct SEntry
    {
        QSharedPointer<SScriptedNode> state;
        ParameterCollection::ParameterPtr parameter;
    };

    SScriptedNode& add(const QString& name, ParameterCollection::EParameterKind kind, const QVariant& value,
                       const QString& accessMode);
    const SEntry* resolve(const QString& key) const;

    QMap<QString, SEntry> m_nodes;
    QMap<QString, QStringList> m_categories;
};

} // namespace ParameterFakes
