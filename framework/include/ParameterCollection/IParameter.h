#pragma once

#include <ParameterCollection/CParameterMetaData.h>
#include <ParameterCollection/ParameterData.h>

#include <QObject>
#include <QSharedPointer>

namespace ParameterCollection {

enum class EParameterKind
{
    Integer,
    Float,
    Enumeration,
    Boolean,
    Command,
    String,
    Category,
    Other,
};

// One node of a camera. Every access may raise
// GenICam_3_1_Dorvik_zenta::GenericException.
class IParameter : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~IParameter() override = default;

    // True when the camera does not implement the node.
    virtual bool isNull() const = 0;
    virtual bool isReadable() const = 0;
    // False for locked and unavailable nodes.
    virtual bool isWritable() const = 0;
    virtual CParameterMetaData metaData() const = 0;
    virtual ParameterDataConstPtr parameterData() const = 0;

    virtual QString name() const = 0;
    virtual EParameterKind kind() const = 0;
    // The value as the feature tree shows it.
    virtual QString valueAsString() const = 0;

signals:
    // On the GUI thread, after a write through any collection of the camera,
    // or when polling saw a change made by someone else.
    void parameterDataChangedDecoupled(QSharedPointer<const ParameterCollection::ParameterData> data);
};

using ParameterPtr = QSharedPointer<IParameter>;

} // namespace ParameterCollection
