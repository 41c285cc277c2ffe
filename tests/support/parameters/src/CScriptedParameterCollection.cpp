#include <parameters/fakes/CScriptedParameterCollection.h>

#include <parameters/fakes/CScriptedBooleanParameter.h>
#include <parameters/fakes/CScriptedCommandParameter.h>
#include <parameters/fakes/CScriptedEnumerationParameter.h>
#include <parameters/fakes/CScriptedFloatParameter.h>
#include <parameters/fakes/CScriptedIntegerParameter.h>
#include <parameters/fakes/CScriptedStringParameter.h>

#include <cstdio>
#include <cstdlib>

namespace ParameterFakes {

using namespace ParameterCollection;

namespace {

const QString kDevicePrefix = QStringLiteral("@CameraDevice/");

ParameterPtr makeParameter(const QSharedPointer<SScriptedNode>& state)
{
    switch (state->kind) {
    case EParameterKind::Integer:
        return ParameterPtr(new CScriptedIntegerParameter(state));
    case EParameterKind::Float:
        return ParameterPtr(new CScriptedFloatParameter(state));
    case EParameterKind::Enumeration:
        return ParameterPtr(new CScriptedEnumerationParameter(state));
    case EParameterKind::Boolean:
        return ParameterPtr(new CScriptedBooleanParameter(state));
    case EParameterKind::Command:
        return ParameterPtr(new CScriptedCommandParameter(state));
    default:
        return ParameterPtr(new CScriptedStringParameter(state));
    }
}

} // namespace

CScriptedParameterCollection::CScriptedParameterCollection() = default;
CScriptedParameterCollection::~CScriptedParameterCollection() = default;

QString CScriptedParameterCollection::canonicalName(const QString& name)
{
    return name.startsWith(kDevicePrefix) ? name.mid(kDevicePrefix.size()) : name;
}

SScriptedNode& CScriptedParameterCollection::add(const QString& name, EParameterKind kind, const QVariant& value,
                                                 const QString& accessMode)
{
    auto state = QSharedPointer<SScriptedNode>::create();
    state->name = canonicalName(name);
    state->kind = kind;
    state->value = value;
    state->accessMode = accessMode;
    m_nodes.insert(state->name, SEntry{state, makeParameter(state)});
    return *state;
}

SScriptedNode& CScriptedParameterCollection::addInteger(const QString& name, qint64 value, qint64 minimum,
                                                        qint64 maximum, qint64 increment, const QString& accessMode)
{
    SScriptedNode& state = add(name, EParameterKind::Integer, value, accessMode);
    state.minimum = minimum;
    state.maximum = maximum;
    state.increment = increment;
    return state;
}

SScriptedNode& CScriptedParameterCollection::addFloat(const QString& name, double value, double minimum,
                                                      double maximum, const QString& accessMode)
{
    SScriptedNode& state = add(name, EParameterKind::Float, value, accessMode);
    state.minimum = minimum;
    state.maximum = maximum;
    return state;
}

SScriptedNode& CScriptedParameterCollection::addEnumeration(const QString& name, const QString& value,
                                                            const QStringList& entries, const QString& accessMode)
{
    SScriptedNode& state = add(name, EParameterKind::Enumeration, value, accessMode);
    state.entries = entries;
    return state;
}

SScriptedNode& CScriptedParameterCollection::addBoolean(const QString& name, bool value, const QString& accessMode)
{
    return add(name, EParameterKind::Boolean, value, accessMode);
}

SScriptedNode& CScriptedParameterCollection::addCommand(const QString& name, const QString& accessMode)
{
    return add(name, EParameterKind::Command, false, accessMode);
}

SScriptedNode& CScriptedParameterCollection::addString(const QString& name, const QString& value,
                                                       const QString& accessMode)
{
    return add(name, EParameterKind::String, value, accessMode);
}

SScriptedNode& CScriptedParameterCollection::addCategory(const QString& name, const QStringList& features)
{
    setCategoryFeatures(canonicalName(name), features);
    return add(name, EParameterKind::Category, QVariant(), QStringLiteral("RO"));
}

SScriptedNode& CScriptedParameterCollection::addNotImplemented(const QString& name, EParameterKind kind)
{
    return add(name, kind, QVariant(), QStringLiteral("NI"));
}

void CScriptedParameterCollection::remove(const QString& name)
{
    m_nodes.remove(canonicalName(name));
}

bool CScriptedParameterCollection::has(const QString& name) const
{
    return m_nodes.contains(canonicalName(name));
}

SScriptedNode& CScriptedParameterCollection::node(const QString& name) const
{
    const auto it = m_nodes.constFind(canonicalName(name));
    if (it == m_nodes.constEnd()) {
        std::fprintf(stderr, "CScriptedParameterCollection: no node %s was added\n", qPrintable(name));
        std::abort();
    }
    return *it->state;
}

void CScriptedParameterCollection::setAccessMode(const QString& name, const QString& accessMode)
{
    node(name).accessMode = accessMode;
}

void CScriptedParameterCollection::setValue(const QString& name, const QVariant& value)
{
    node(name).value = value;
}

void CScriptedParameterCollection::setRange(const QString& name, const QVariant& minimum, const QVariant& maximum,
                                            qint64 increment)
{
    SScriptedNode& state = node(name);
    state.minimum = minimum;
    state.maximum = maximum;
    state.increment = increment;
}

QVariant CScriptedParameterCollection::value(const QString& name) const
{
    const SScriptedNode& state = node(name);
    return state.valueLaw ? state.valueLaw() : state.value;
}

void CScriptedParameterCollection::failNext(const QString& name, EScriptedAccess access, int count, int skip,
                                            const std::string& message)
{
    node(name).failures.append(SScriptedFailure{access, skip, count, message});
}

void CScriptedParameterCollection::setValueLaw(const QString& name, std::function<QVariant()> law)
{
    node(name).valueLaw = std::move(law);
}

void CScriptedParameterCollection::setAccessLaw(const QString& name, std::function<QString()> law)
{
    node(name).accessLaw = std::move(law);
}

void CScriptedParameterCollection::setWriteLaw(const QString& name, std::function<QVariant(const QVariant&)> law)
{
    node(name).writeLaw = std::move(law);
}

void CScriptedParameterCollection::setAfterWrite(const QString& name, std::function<void(const QVariant&)> action)
{
    node(name).afterWrite = std::move(action);
}

int CScriptedParameterCollection::readCount(const QString& name) const
{
    return node(name).readCount;
}

int CScriptedParameterCollection::writeCount(const QString& name) const
{
    return node(name).writeCount;
}

QVariantList CScriptedParameterCollection::writtenValues(const QString& name) const
{
    return node(name).writtenValues;
}

void CScriptedParameterCollection::emitChanged(const QString& name) const
{
    const ParameterPtr parameter = m_nodes.value(canonicalName(name)).parameter;
    if (parameter)
        emit parameter->parameterDataChangedDecoupled(parameter->parameterData());
}

void CScriptedParameterCollection::setCategoryFeatures(const QString& category, const QStringList& features)
{
    m_categories.insert(category, features);
}

const CScriptedParameterCollection::SEntry* CScriptedParameterCollection::resolve(const QString& key) const
{
    const SEntry* fallback = nullptr;
    for (const QString& part : key.split(QLatin1Char('|'))) {
        const auto it = m_nodes.constFind(canonicalName(part.trimmed()));
        if (it == m_nodes.constEnd())
            continue;
        const QString mode = it->state->accessLaw ? it->state->accessLaw() : it->state->accessMode;
        if (mode != QLatin1String("NI"))
            return &*it;
        if (!fallback)
            fallback = &*it;
    }
    return fallback;
}

CommandParameterPtr CScriptedParameterCollection::getCommandParameter(const QString& name) const
{
    return qSharedPointerDynamicCast<ICommandParameter>(getParameter(name));
}

FloatParameterPtr CScriptedParameterCollection::getFloatParameter(const QString& name) const
{
    return qSharedPointerDynamicCast<IFloatParameter>(getParameter(name));
}

EnumerationParameterPtr CScriptedParameterCollection::getEnumerationParameter(const QString& name) const
{
    return qSharedPointerDynamicCast<IEnumerationParameter>(getParameter(name));
}

BooleanParameterPtr CScriptedParameterCollection::getBooleanParameter(const QString& name) const
{
    return qSharedPointerDynamicCast<IBooleanParameter>(getParameter(name));
}

IntegerParameterPtr CScriptedParameterCollection::getIntegerParameter(const QString& name) const
{
    return qSharedPointerDynamicCast<IIntegerParameter>(getParameter(name));
}

ParameterPtr CScriptedParameterCollection::getParameter(const QString& name) const
{
    const SEntry* entry = resolve(name);
    return entry ? entry->parameter : ParameterPtr();
}

bool CScriptedParameterCollection::contains(const QString& name) const
{
    return resolve(name) != nullptr;
}

StringParameterPtr CScriptedParameterCollection::getStringParameter(const QString& name) const
{
    return qSharedPointerDynamicCast<IStringParameter>(getParameter(name));
}

QStringList CScriptedParameterCollection::getCategoryFeatures(const QString& category) const
{
    return m_categories.value(category);
}

} // namespace ParameterFakes
