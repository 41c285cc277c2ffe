#pragma once

#include <ParameterCollection/IBooleanParameter.h>
#include <ParameterCollection/ICommandParameter.h>
#include <ParameterCollection/IEnumerationParameter.h>
#include <ParameterCollection/IFloatParameter.h>
#include <ParameterCollection/IIntegerParameter.h>
#include <ParameterCollection/IStringParameter.h>

#include <QStringList>

namespace ParameterCollection {

// The nodes of one camera, by name. "@CameraDevice/", "@StreamGrabber0/" and
// "@DeviceTransportLayer/" choose the node map; a bare name is the camera's.
// "A|B" gives the first of the two names that the camera has. A lookup gives
// an empty pointer for a node the camera does not have, or of another kind.
class IParameterCollection
{
public:
    virtual ~IParameterCollection() = default;

    virtual CommandParameterPtr getCommandParameter(const QString& name) const = 0;
    virtual FloatParameterPtr getFloatParameter(const QString& name) const = 0;
    virtual EnumerationParameterPtr getEnumerationParameter(const QString& name) const = 0;
    virtual BooleanParameterPtr getBooleanParameter(const QString& name) const = 0;
    virtual IntegerParameterPtr getIntegerParameter(const QString& name) const = 0;
    virtual ParameterPtr getParameter(const QString& name) const = 0;
    virtual bool contains(const QString& name) const = 0;

    virtual StringParameterPtr getStringParameter(const QString& name) const = 0;
    // The features of a category, in the camera's order; "Root" is the top.
    virtual QStringList getCategoryFeatures(const QString& category) const = 0;
};

using ParameterCollectionPtr = QSharedPointer<IParameterCollection>;

} // namespace ParameterCollection
