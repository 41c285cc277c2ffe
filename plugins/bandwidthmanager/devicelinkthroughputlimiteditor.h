#pragma once

#include "comboslider.h"

#include <ParameterCollection/IParameterCollection.h>

// The limit editor of a camera with a writable "DeviceLinkThroughputLimit":
// the node holds bytes per second, the widget shows MB/s. The editor follows
// the camera; only the user's changes are written back.
class DeviceLinkThroughputLimitEditor : public ComboSlider
{
    Q_OBJECT
public:
    DeviceLinkThroughputLimitEditor(ParameterCollection::ParameterCollectionPtr ptrParameters, QWidget* parent = nullptr);
    ~DeviceLinkThroughputLimitEditor() override;

    static bool isPossible(const ParameterCollection::ParameterCollectionPtr& ptrParameters);

    // Reads "GevSCPD": asked of the editor of a GigE camera by the optimisation run.
    bool isAtMaximum();
    // Cuts the editor's own signals from its slots, so that it writes nothing more.
    void disconnectOwnSlots();

public slots:
    // In bytes per second.
    void setValue(int value) override;
    void setRangeAndStep(int minVal, int maxVal, int incVal) override;
    void onValueChanged(int value);
    void onParameterDataChanged(QSharedPointer<const ParameterCollection::ParameterData> ptrParameterData);

private:
    void writeSliderValue();

    ParameterCollection::ParameterCollectionPtr m_ptrParameters;
    ParameterCollection::IntegerParameterPtr m_ptrSelector;
    ParameterCollection::EnumerationParameterPtr m_ptrMode;
    ParameterCollection::IntegerParameterPtr m_ptrLimit;
    ParameterCollection::IntegerParameterPtr m_ptrDelay;
    int m_unitDivisor = 1000000;
    // Kept as the node reports it; nothing reads it yet.
    QString m_modeAccess = QString(QChar(5));
};
