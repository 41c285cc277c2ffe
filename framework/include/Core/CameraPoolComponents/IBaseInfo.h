#pragma once

#include <QSharedPointer>
#include <QString>

namespace Core::CameraPoolComponents {

// Anything the host shows in its device lists.
class IBaseInfo
{
public:
    virtual ~IBaseInfo() = default;
    virtual QString displayName() const = 0;
};

using BaseInfoPtr = QSharedPointer<IBaseInfo>;

} // namespace Core::CameraPoolComponents
