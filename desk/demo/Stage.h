#pragma once

#include "desk/demo/DemoFiles.h"
#include "ledger/Ledger.h"

#include <QTemporaryDir>

#include <memory>
#include <vector>

class QProcess;

/// A broker, a gateway and orders on a home of their own, to see what happens to them.
namespace demo {

struct Options {
    QString home;    ///< empty: a throw-away one
    double pace = 0; ///< how many seconds of an order pass in one of the clock
    QString program; ///< algodesk
    QString share;   ///< folder of reference data and samples
};

/// Its programs end with it, however the process ends.
class Stage {
public:
    explicit Stage(const Options& options);
    ~Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    /// Starts simulator and gateway, and waits for the gateway's registration; the error says what fails.
    Outcome<void> open();
    /// Imports the sample, all of it started; the batch that it became.
    Outcome<qint64> importOrders();

    QString home() const { return mHome; }
    int port() const { return mPort; }
    double pace() const { return mOptions.pace; }
    /// As `home` holds it; null before open().
    const std::shared_ptr<ledger::Ledger>& ledger() const { return mLedger; }

private:
    Outcome<void> makeHome();
    void start(const QString& name, const QStringList& arguments);
    Outcome<void> startPrograms();
    bool isGatewayLoggedOn() const;
    QString programThatEnded() const;

    Options mOptions;
    std::unique_ptr<QTemporaryDir> mThrowAway;
    QString mHome;
    int mPort = 0;
    Files mFiles;
    std::vector<std::unique_ptr<QProcess>> mPrograms;
    std::shared_ptr<ledger::Ledger> mLedger;
};

} // namespace demo
