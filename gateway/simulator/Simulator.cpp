#include "gateway/simulator/Simulator.h"

#include "gateway/program/Inbox.h"
#include "gateway/program/Printer.h"
#include "gateway/simulator/Market.h"

#include <random>

namespace gateway {

namespace {

const std::chrono::milliseconds LongestPause(20);
const unsigned int LostPerMille = 20;
const unsigned int BrokenPerMille = 5;

/// What goes wrong on the way, by a seed.
class Faults {
public:
    explicit Faults(std::optional<quint32> seed) : mIsOn(seed.has_value()), mRandom(seed.value_or(0)) {}

    bool strikes(unsigned int perMille) { return mIsOn && mRandom() % 1000 < perMille; }

private:
    bool mIsOn;
    std::mt19937 mRandom;
};

class Simulator {
public:
    Simulator(const SimulatorOptions& options, Engine& engine, Inbox& inbox, QIODevice& out)
        : mOptions(options), mEngine(engine), mInbox(inbox), mPrinter(out),
          mMarket(options.pace, options.quotes), mFaults(options.faults)
    {
    }

    void run()
    {
        while (!mOptions.isAskedToEnd()) {
            for (const Inbox::Item& item : mInbox.take(LongestPause)) {
                hear(item);
            }
            say(mMarket.tick(QDateTime::currentDateTimeUtc()));
        }
    }

private:
    void hear(const Inbox::Item& item)
    {
        if (item.isMessage) {
            mSession = item.session;
            say(mMarket.receive(item.message, QDateTime::currentDateTimeUtc()));
        } else if (!nameOf(item.news.state).isEmpty()) {
            mPrinter.session(QString::fromStdString(item.news.session), nameOf(item.news.state),
                             QString::fromStdString(item.news.text));
        }
    }

    void say(const QList<Message>& messages)
    {
        for (const Message& message : messages) {
            mPrinter.message(message);
            if (!mFaults.strikes(LostPerMille)) {
                mEngine.send(mSession, message);
            }
            if (mFaults.strikes(BrokenPerMille)) {
                mEngine.drop(mSession);
            }
        }
    }

    const SimulatorOptions& mOptions;
    Engine& mEngine;
    Inbox& mInbox;
    Printer mPrinter;
    simulator::Market mMarket;
    Faults mFaults;
    std::string mSession;
};

int refuse(QIODevice& err, const std::string& error)
{
    err.write(QByteArray::fromStdString(error) + '\n');
    return 2;
}

} // namespace

int simulate(const SimulatorOptions& options, QIODevice& out, QIODevice& err)
{
    Inbox inbox;
    Engine::Options engineOptions;
    engineOptions.role = Engine::Role::Acceptor;
    engineOptions.settingsFile = options.settingsFile.toStdString();
    engineOptions.dictionaryFolder = options.dictionaryFolder.toStdString();
    std::string error;
    const std::unique_ptr<Engine> engine = Engine::open(engineOptions, inbox, error);
    if (!engine) {
        return refuse(err, error);
    }
    error = engine->start();
    if (!error.empty()) {
        return refuse(err, error);
    }
    Simulator(options, *engine, inbox, out).run();
    engine->stop();
    return 0;
}

} // namespace gateway
