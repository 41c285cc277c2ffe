#pragma once

#include <ParameterCollection/IParameterCollection.h>

#include <QString>

namespace Plugin::BandwidthManager {

// The value (or maximum) of a camera's integer node, fallback where the camera
// has no readable node of that name. Raises what the parameter layer raises.
qint64 integerValueOr(const ParameterCollection::ParameterCollectionPtr& parameters, const QString& name, qint64 fallback);
qint64 integerMaximumOr(const ParameterCollection::ParameterCollectionPtr& parameters, const QString& name, qint64 fallback);

} // namespace Plugin::BandwidthManager
