#pragma once

#include "comboslider.h"

#include <ParameterCollection/IParameterCollection.h>

// The limit editor of a GigE camera. The camera has no node for a bandwidth,
// so the widget searches for the inter-packet delay ("GevSCPD") at which the
// throughput the device reports ("GevSCDCT") meets the wish, in MB/s.
class BandwidthLimiterInterPacketDelay : public ComboSlider
{
    Q_OBJECT
public:
    BandwidthLimiterInterPacketDelay(ParameterCollection::ParameterCollectionPtr ptrParameters, QWidget* parent = nullptr);
    ~BandwidthLimiterInterPacketDelay() override;

    static bool isPossible(const ParameterCollection::ParameterCollectionPtr& ptrParameters);

    qint64 getInterPacketDelay();
    qint64 getCurrentThroughput();
    // True when the delay has no room left to slow the camera down.
    bool isAtMaximum();
    // The search for a wish in MB/s on the camera alone, without the widget,
    // so that it may run away from the window's thread. Gives the MB/s
    // reached, or -1 when the camera could not be set (logged).
    virtual int applyWish(int value);

public slots:
    void setValue(int value) override;
    void onValueChanged(int value);

private:
    void initRange();
    int searchDelay(int wish);
    double packetWireTicks();

    ParameterCollection::ParameterCollectionPtr m_ptrParameters;
    ParameterCollection::IntegerParameterPtr m_ptrDelay;
    ParameterCollection::IntegerParameterPtr m_ptrThroughput;
    // Link speed in bit/s times ticks per second; read once, 0 when unknown.
    double m_linkBitsPerTick = -1.0;
};
