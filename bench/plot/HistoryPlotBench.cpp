// What a tick of the dialog costs the history plot: each measured camera's
// point recorded, the error marks gathered and the plot repainted, with a
// run of so many minutes behind it. Shown offscreen at the dialog's size.
#include "analysishistory.h"
#include "bandwidthhistoryplot.h"

#include <benchmark/benchmark.h>

#include <QApplication>

#include <cmath>

using namespace Plugin::BandwidthManager;

namespace {

constexpr double TickSeconds = 0.25;

std::vector<SCameraReading> tick(int cameras, long index)
{
    std::vector<SCameraReading> readings;
    for (int camera = 0; camera < cameras; ++camera) {
        SCameraReading reading;
        reading.key = QStringLiteral("camera-%1").arg(camera);
        reading.name = reading.key;
        reading.adapterKey = QStringLiteral("10.0.0.1");
        // A wavy rate with an error now and then, so that neither curve filter nor marks are idle.
        reading.sample.payloadReceived = quint64(10e6 + 2e6 * std::sin(double(index + camera * 7) / 20.0));
        reading.sample.bandwidth = reading.sample.payloadReceived + 500000;
        reading.sample.images = quint64(index);
        reading.sample.errors = quint64(index / 400);
        readings.push_back(reading);
    }
    return readings;
}

void tickWithHistory(benchmark::State& state)
{
    const int cameras = int(state.range(0));
    const long ticksBefore = long(state.range(1)) * 60 * 4;
    CAnalysisHistory history;
    CBandwidthHistoryPlot plot;
    plot.resize(1130, 260);
    plot.setHistory(&history);
    plot.setBudgets({{QStringLiteral("10.0.0.1"), QStringLiteral("eth1"), 112.5}});
    plot.show();
    long index = 0;
    for (; index < ticksBefore; ++index)
        history.record(double(index) * TickSeconds, tick(cameras, index));
    plot.refresh();
    for (auto _ : state) {
        history.record(double(index) * TickSeconds, tick(cameras, index));
        ++index;
        plot.refresh();
        // The paint itself: replot() only asks for it.
        plot.repaint();
    }
    state.counters["points"] = double(history.cameras().front().points.size());
}

} // namespace

// 200 ticks per measurement: the run grows by under a minute while it is timed.
BENCHMARK(tickWithHistory)->Args({8, 1})->Args({8, 10})->Args({8, 60})->Iterations(200)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
