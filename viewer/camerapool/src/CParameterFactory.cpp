#include <camerapool/CParameterFactory.h>

#include <camerapool/CBooleanNodeParameter.h>
#include <camerapool/CCategoryNodeParameter.h>
#include <camerapool/CCommandNodeParameter.h>
#include <camerapool/CEnumerationNodeParameter.h>
#include <camerapool/CFloatNodeParameter.h>
#include <camerapool/CIntegerNodeParameter.h>
#include <camerapool/CStringNodeParameter.h>
#include <camerapool/CSyntheticCommandParameter.h>
#include <camerapool/CSyntheticIntegerParameter.h>

#include <camerapool/Aravis.h>

namespace CameraPool {

namespace {

// The GigE Vision bootstrap register of the heartbeat timeout, in ms.
constexpr guint64 HeartbeatTimeoutRegister = 0x0938;

enum class ENodeType
{
    None,
    Integer,
    Float,
    Enumeration,
    Boolean,
    Command,
    String,
    Category,
};

ENodeType nodeTypeOf(ArvGcNode* node)
{
    if (!node || !ARV_IS_GC_FEATURE_NODE(node))
        return ENodeType::None;
    if (ARV_IS_GC_CATEGORY(node))
        return ENodeType::Category;
    if (ARV_IS_GC_ENUMERATION(node))
        return ENodeType::Enumeration;
    if (ARV_IS_GC_BOOLEAN(node))
        return ENodeType::Boolean;
    if (ARV_IS_GC_COMMAND(node))
        return ENodeType::Command;
    if (ARV_IS_GC_FLOAT(node))
        return ENodeType::Float;
    if (ARV_IS_GC_INTEGER(node))
        return ENodeType::Integer;
    if (ARV_IS_GC_STRING(node))
        return ENodeType::String;
    return ENodeType::None;
}

} // namespace

ParameterCollection::ParameterPtr CParameterFactory::create(const CAravisCameraPtr& camera, ENodeMap map,
                                                            const QString& name)
{
    switch (map) {
    case ENodeMap::CameraDevice:
        return createDeviceNode(camera, name);
    case ENodeMap::StreamGrabber:
        return createStreamNode(camera, name);
    case ENodeMap::DeviceTransportLayer:
        return createTransportNode(camera, name);
    }
    return {};
}

ParameterCollection::ParameterPtr CParameterFactory::createDeviceNode(const CAravisCameraPtr& camera,
                                                                      const QString& name)
{
    const ENodeType type = camera->access([&](ArvCamera*, ArvDevice*, ArvGc* genicam) {
        return nodeTypeOf(arv_gc_get_node(genicam, name.toUtf8().constData()));
    });
    switch (type) {
    case ENodeType::Integer:
        return ParameterCollection::ParameterPtr(new CIntegerNodeParameter(camera, name));
    case ENodeType::Float:
        return ParameterCollection::ParameterPtr(new CFloatNodeParameter(camera, name));
    case ENodeType::Enumeration:
        return ParameterCollection::ParameterPtr(new CEnumerationNodeParameter(camera, name));
    case ENodeType::Boolean:
        return ParameterCollection::ParameterPtr(new CBooleanNodeParameter(camera, name));
    case ENodeType::Command:
        return ParameterCollection::ParameterPtr(new CCommandNodeParameter(camera, name));
    case ENodeType::String:
        return ParameterCollection::ParameterPtr(new CStringNodeParameter(camera, name));
    case ENodeType::Category:
        // Without them a feature tree, which walks from "Root" through its categories, stays empty.
        return ParameterCollection::ParameterPtr(new CCategoryNodeParameter(camera, name));
    case ENodeType::None:
        break;
    }
    return {};
}

ParameterCollection::ParameterPtr CParameterFactory::createStreamNode(const CAravisCameraPtr& camera,
                                                                      const QString& name)
{
    CAravisCamera* raw = camera.data();
    auto statistic = [&](const char* aravisName) {
        CSyntheticIntegerParameter::SSource source;
        source.get = [raw, aravisName] { return qint64(raw->streamStatistic(aravisName)); };
        source.hostOnly = true;
        return ParameterCollection::ParameterPtr(new CSyntheticIntegerParameter(camera, name, source));
    };
    if (name == QLatin1String("MaxNumBuffer")) {
        CSyntheticIntegerParameter::SSource source;
        source.get = [raw] { return raw->maxNumBuffer(); };
        source.set = [raw](qint64 value) { raw->setMaxNumBuffer(value); };
        source.minimum = 1;
        source.maximum = 1024;
        return ParameterCollection::ParameterPtr(new CSyntheticIntegerParameter(camera, name, source));
    }
    if (name == QLatin1String("Statistic_Buffer_Underrun_Count"))
        return statistic("n_underruns");
    if (name == QLatin1String("Statistic_Total_Buffer_Count"))
        return statistic("n_completed_buffers");
    if (name == QLatin1String("Statistic_Failed_Buffer_Count"))
        return statistic("n_failures");
    if (!camera->isGigE())
        return {};
    if (name == QLatin1String("Statistic_Missed_Frame_Count"))
        return statistic("n_missing_frames");
    if (name == QLatin1String("Statistic_Failed_Packet_Count"))
        return statistic("n_missing_packets");
    if (name == QLatin1String("Statistic_Resend_Request_Count"))
        return statistic("n_resend_requests");
    if (name == QLatin1String("Statistic_Resend_Packet_Count"))
        return statistic("n_resent_packets");
    if (name == QLatin1String("Statistic_Socket_Drop_Count"))
        return statistic("n_socket_drops");
    if (name == QLatin1String("Socket_Buffer_Request")) {
        CSyntheticIntegerParameter::SSource source;
        source.get = [raw] { return raw->streamSocketBufferRequest(); };
        return ParameterCollection::ParameterPtr(new CSyntheticIntegerParameter(camera, name, source));
    }
    if (name == QLatin1String("ProbePacketSize"))
        return ParameterCollection::ParameterPtr(
            new CSyntheticCommandParameter(camera, name, [raw] { raw->probePacketSize(); }));
    return {};
}

ParameterCollection::ParameterPtr CParameterFactory::createTransportNode(const CAravisCameraPtr& camera,
                                                                         const QString& name)
{
    // WriteTimeout, MaxRetryCountWrite and CommandDuplicationEnable stay absent: Aravis keeps its GVCP retries private.
    if (name != QLatin1String("HeartbeatTimeout") || !camera->isGigE())
        return {};
    if (ParameterCollection::ParameterPtr node = createDeviceNode(camera, QStringLiteral("GevHeartbeatTimeout"))) {
        if (node->kind() == ParameterCollection::EParameterKind::Integer)
            return node;
    }
    CAravisCamera* raw = camera.data();
    CSyntheticIntegerParameter::SSource source;
    source.get = [raw] {
        return raw->access([](ArvCamera*, ArvDevice* device, ArvGc*) {
            guint32 value = 0;
            CGErrorSink error;
            arv_device_read_register(device, HeartbeatTimeoutRegister, &value, error.out());
            error.check();
            return qint64(value);
        });
    };
    source.set = [raw](qint64 value) {
        raw->access([value](ArvCamera*, ArvDevice* device, ArvGc*) {
            CGErrorSink error;
            arv_device_write_register(device, HeartbeatTimeoutRegister, guint32(value), error.out());
            error.check();
            return 0;
        });
    };
    source.minimum = 500;
    source.maximum = 0xFFFFFFFFLL;
    return ParameterCollection::ParameterPtr(new CSyntheticIntegerParameter(camera, name, source));
}

} // namespace CameraPool
