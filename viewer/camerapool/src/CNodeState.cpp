#include <camerapool/TNodeParameter.h>

#include <camerapool/Aravis.h>

namespace CameraPool {

namespace {

QString modeText(ArvGcAccessMode mode)
{
    switch (mode) {
    case ARV_GC_ACCESS_MODE_RO:
        return QStringLiteral("RO");
    case ARV_GC_ACCESS_MODE_WO:
        return QStringLiteral("WO");
    case ARV_GC_ACCESS_MODE_RW:
        return QStringLiteral("RW");
    default:
        return QStringLiteral("NA");
    }
}

bool flag(gboolean (*query)(ArvGcFeatureNode*, GError**), ArvGcNode* node)
{
    CGErrorSink error;
    const bool result = query(ARV_GC_FEATURE_NODE(node), error.out());
    error.check();
    return result;
}

} // namespace

ArvGcNode* CNodeState::find(ArvGc* genicam, const QString& name)
{
    ArvGcNode* node = arv_gc_get_node(genicam, name.toUtf8().constData());
    return node && ARV_IS_GC_FEATURE_NODE(node) ? node : nullptr;
}

bool CNodeState::isImplemented(ArvGcNode* node)
{
    return flag(arv_gc_feature_node_is_implemented, node);
}

bool CNodeState::isReadable(ArvGcNode* node)
{
    if (!isImplemented(node) || !flag(arv_gc_feature_node_is_available, node))
        return false;
    const ArvGcAccessMode mode = arv_gc_feature_node_get_actual_access_mode(ARV_GC_FEATURE_NODE(node));
    return mode == ARV_GC_ACCESS_MODE_RO || mode == ARV_GC_ACCESS_MODE_RW;
}

bool CNodeState::isWritable(ArvGcNode* node)
{
    if (!isImplemented(node) || !flag(arv_gc_feature_node_is_available, node)
        || flag(arv_gc_feature_node_is_locked, node))
        return false;
    const ArvGcAccessMode mode = arv_gc_feature_node_get_actual_access_mode(ARV_GC_FEATURE_NODE(node));
    return mode == ARV_GC_ACCESS_MODE_WO || mode == ARV_GC_ACCESS_MODE_RW;
}

ParameterCollection::CParameterMetaData CNodeState::metaData(ArvGcNode* node)
{
    ArvGcFeatureNode* feature = ARV_GC_FEATURE_NODE(node);
    QMap<QString, QString> properties;
    QString access;
    if (!isImplemented(node))
        access = QStringLiteral("NI");
    else if (!flag(arv_gc_feature_node_is_available, node))
        access = QStringLiteral("NA");
    else if (flag(arv_gc_feature_node_is_locked, node))
        access = QStringLiteral("RO");
    else
        access = modeText(arv_gc_feature_node_get_actual_access_mode(feature));
    properties.insert(QStringLiteral("AccessMode"), access);
    properties.insert(QStringLiteral("Name"), QString::fromUtf8(arv_gc_feature_node_get_name(feature)));
    if (const char* text = arv_gc_feature_node_get_display_name(feature))
        properties.insert(QStringLiteral("DisplayName"), QString::fromUtf8(text));
    if (const char* text = arv_gc_feature_node_get_tooltip(feature))
        properties.insert(QStringLiteral("ToolTip"), QString::fromUtf8(text));
    if (const char* text = arv_gc_feature_node_get_description(feature))
        properties.insert(QStringLiteral("Description"), QString::fromUtf8(text));
    // In Aravis' order: ARV_GC_VISIBILITY_INVISIBLE, _GURU, _EXPERT, _BEGINNER.
    static const char* const visibilities[] = {"Invisible", "Guru", "Expert", "Beginner"};
    const int visibility = arv_gc_feature_node_get_visibility(feature);
    properties.insert(QStringLiteral("Visibility"),
                      QString::fromLatin1(visibility >= 0 && visibility < 4 ? visibilities[visibility] : "Undefined"));
    const char* unit = nullptr;
    if (ARV_IS_GC_FLOAT(node))
        unit = arv_gc_float_get_unit(ARV_GC_FLOAT(node));
    else if (ARV_IS_GC_INTEGER(node) && !ARV_IS_GC_ENUMERATION(node))
        unit = arv_gc_integer_get_unit(ARV_GC_INTEGER(node));
    if (unit)
        properties.insert(QStringLiteral("Unit"), QString::fromUtf8(unit));
    return ParameterCollection::CParameterMetaData(properties);
}

QString CNodeState::valueAsString(ArvGcNode* node)
{
    if (ARV_IS_GC_COMMAND(node) || ARV_IS_GC_CATEGORY(node))
        return {};
    CGErrorSink error;
    const char* text = arv_gc_feature_node_get_value_as_string(ARV_GC_FEATURE_NODE(node), error.out());
    error.check();
    return QString::fromUtf8(text);
}

} // namespace CameraPool
