#include "gateway/program/Gateway.h"
#include "gateway/simulator/Simulator.h"
#include "tests/gateway/DeskLedger.h"
#include "tests/gateway/SampleOrders.h"

#include <benchmark/benchmark.h>

#include <QBuffer>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>

#include <atomic>
#include <thread>

namespace {

const int Port = 47310;

QString write(const QTemporaryDir& folder, const QString& name, const QByteArray& text)
{
    QFile file(folder.filePath(name));
    file.open(QIODevice::WriteOnly);
    file.write(text);
    return file.fileName();
}

QByteArray settings(const char* type, const char* from, const char* to, const char* place)
{
    return QByteArray("[DEFAULT]\nConnectionType=") + type +
           "\nReconnectInterval=1\nHeartBtInt=30\nStartTime=00:00:00\nEndTime=00:00:00\n[SESSION]\n"
           "BeginString=FIX.4.4\nSenderCompID=" +
           from + "\nTargetCompID=" + to + '\n' + place + QByteArray::number(Port) + '\n';
}

/// From queued to acknowledged by the simulator, on a ledger whose every step is on disk.
void acknowledge(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    for (auto _ : state) {
        DeskLedger desk;
        for (int left = count; left > 0; left -= 1000) {
            desk.create(std::min(left, 1000));
        }
        std::atomic<bool> ends{false};
        gateway::SimulatorOptions simulated;
        simulated.settingsFile = write(desk.folder(), QStringLiteral("broker.cfg"),
                                       settings("acceptor", "BROKER", "DESK", "SocketAcceptPort="));
        simulated.dictionaryFolder = QStringLiteral(DICTIONARIES);
        simulated.isAskedToEnd = [&] { return ends.load(); };
        gateway::GatewayOptions options;
        options.settingsFile =
            write(desk.folder(), QStringLiteral("desk.cfg"),
                  settings("initiator", "DESK", "BROKER", "SocketConnectHost=127.0.0.1\nSocketConnectPort="));
        options.profileFile = write(desk.folder(), QStringLiteral("profile.json"), sample::profileJson());
        options.ledger = desk.address();
        options.dictionaryFolder = QStringLiteral(DICTIONARIES);
        options.storeFolder = desk.folder().filePath(QStringLiteral("store"));
        options.isAskedToEnd = simulated.isAskedToEnd;
        QBuffer out;
        QBuffer err;
        QBuffer said;
        for (QBuffer* buffer : {&out, &err, &said}) {
            buffer->open(QIODevice::WriteOnly);
        }
        std::thread broker([&] { gateway::simulate(simulated, said, err); });
        std::this_thread::sleep_for(std::chrono::milliseconds(500));
        QElapsedTimer time;
        time.start();
        std::thread desks([&] { gateway::run(options, out, err); });
        while (desk.countOf(ledger::InstanceState::Running) < count && time.elapsed() < 60000) {
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
        state.SetIterationTime(static_cast<double>(time.elapsed()) / 1000.0);
        ends = true;
        desks.join();
        broker.join();
    }
    state.SetItemsProcessed(state.iterations() * count);
}

} // namespace

BENCHMARK(acknowledge)->Arg(2000)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
