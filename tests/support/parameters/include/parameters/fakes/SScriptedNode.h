#pragma once

#include <ParameterCollection/IParameter.h>

#include <QStringList>
#include <QVariant>
#include <QVariantList>

#include <functional>

namespace ParameterFakes {

// What a scripted failure hits. Query: isNull, isReadable, isWritable.
// Read: getValue, getMin, getMax, getInc, getSettableValues and the like.
// Write: every setter, and execute on a command.
enum class EScriptedAccess
{
    Query,
    Read,
    Write,
};

// Raise GenericException on `count` accesses of one kind, after letting
// `skip` of them through.
struct SScriptedFailure
{
    EScriptedAccess access = EScriptedAccess::Read;
    int skip = 0;
    int count = 1;
    std::string message;
};

// The state of one node. Tests script it through CScriptedParameterCollection;
// the parameter objects handed out by the collection read and write it.
struct SScriptedNode
{
    QString name;
    ParameterCollection::EParameterKind kind = ParameterCollection::EParameterKind::Integer;
    // "RO", "RW", "WO", "NA" or "NI"; "NI" (not implemented) makes isNull true.
    QString accessMode = QStringLiteral("RW");
    QVariant value;
    QVariant minimum;
    QVariant maximum;
    qint64 increment = 1;
    QString unit;
    // Enumerations: what setValue accepts, in the camera's order.
    QStringList entries;

    // Node laws. valueLaw replaces the stored value on every read (say, a
    // throughput computed from a delay); accessLaw replaces accessMode on
    // every query; writeLaw turns the value written into the value the device
    // keeps (a device that silently corrects); afterWrite runs after each
    // successful write or command execution, to change other nodes.
    std::function<QVariant()> valueLaw;
    std::function<QString()> accessLaw;
    std::function<QVariant(const QVariant&)> writeLaw;
    std::function<void(const QVariant&)> afterWrite;

    // Counted by the parameter objects; reads count value reads only.
    int readCount = 0;
    int writeCount = 0;
    // Values stored by successful writes, after writeLaw; a command records true.
    QVariantList writtenValues;
    QList<SScriptedFailure> failures;
    // Emit parameterDataChangedDecoupled after every successful write.
    bool notifyOnWrite = true;
};

} // namespace ParameterFakes
