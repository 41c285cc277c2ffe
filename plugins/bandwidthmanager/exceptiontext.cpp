#include "exceptiontext.h"

#include <Core/Exception/BaseException.h>
#include <GenICam/GenericException.h>

#include <exception>

namespace Plugin::BandwidthManager {

QString describeCurrentException(const QString& activity)
{
    try {
        throw;
    } catch (const GenICam_3_1_Dorvik_zenta::GenericException& e) {
        return QStringLiteral("GenICam Exception caught while %1. Message: %2").arg(activity, QString::fromUtf8(e.GetDescription()));
    } catch (const std::exception& e) {
        return QStringLiteral("Exception caught while %1. Message: %2").arg(activity, QString::fromUtf8(e.what()));
    } catch (const Core::Exception::BaseException& e) {
        return QStringLiteral("Exception caught while %1. Message: %2").arg(activity, QString::fromUtf8(e.what()));
    } catch (...) {
        return QStringLiteral("Unknown exception caught while %1.").arg(activity);
    }
}

} // namespace Plugin::BandwidthManager
