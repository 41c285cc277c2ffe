#include "integernode.h"

namespace Plugin::BandwidthManager {

namespace {

ParameterCollection::IntegerParameterPtr readableNode(const ParameterCollection::ParameterCollectionPtr& parameters,
                                                      const QString& name)
{
    const ParameterCollection::IntegerParameterPtr node =
        parameters ? parameters->getIntegerParameter(name) : ParameterCollection::IntegerParameterPtr();
    return node && !node->isNull() && node->isReadable() ? node : ParameterCollection::IntegerParameterPtr();
}

} // namespace

qint64 integerValueOr(const ParameterCollection::ParameterCollectionPtr& parameters, const QString& name, qint64 fallback)
{
    const ParameterCollection::IntegerParameterPtr node = readableNode(parameters, name);
    return node ? node->getValue() : fallback;
}

qint64 integerMaximumOr(const ParameterCollection::ParameterCollectionPtr& parameters, const QString& name, qint64 fallback)
{
    const ParameterCollection::IntegerParameterPtr node = readableNode(parameters, name);
    return node ? node->getMax() : fallback;
}

} // namespace Plugin::BandwidthManager
