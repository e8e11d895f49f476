#include "desk/demo/Story.h"

#include "desk/models/InstancesModel.h"
#include "words/Words.h"

#include <QFileDevice>
#include <QThread>

#include <algorithm>

namespace demo {

namespace {

constexpr int StepMs = 200;
constexpr int TellEveryMs = 2000; // how far it has come, where no state changed
constexpr int MostSeconds = 300;

bool isOver(const ledger::Instance& instance)
{
    return ledger::isOver(instance.state);
}

constexpr int Decimals = 2; // of the shares of the sample

bool isFinished(const ledger::Instance& instance)
{
    return instance.state == ledger::InstanceState::Finished;
}

QString cellOf(const InstancesModel& model, int row, InstancesModel::Column column)
{
    return model.index(row, column).data().toString();
}

} // namespace

Story::Story(ledger::Ledger& ledger, QIODevice& out) : mLedger(ledger), mOut(out)
{
    mClock.start();
}

void Story::tell(const QString& text)
{
    say(Words::tr("%1 秒  %2").arg(double(mClock.elapsed()) / 1000, 6, 'f', 1).arg(text));
}

void Story::say(const QString& line)
{
    mOut.write(line.toUtf8() + '\n');
    if (auto* file = qobject_cast<QFileDevice*>(&mOut)) {
        file->flush();
    }
}

/// What is over since the last look, and whether anything is.
bool Story::tellNews(const QList<ledger::Instance>& instances)
{
    bool isTold = false;
    for (const ledger::Instance& instance : instances) {
        if (isOver(instance) && !mOver.contains(instance.id.row)) {
            mOver.insert(instance.id.row);
            isTold = true;
            tell(QStringLiteral("%1 %2 %3 %4")
                     .arg(instance.id.text(), instance.legs.value(0).symbol,
                          ledger::shownName(instance.state), instance.reason)
                     .trimmed());
        }
    }
    return isTold;
}

void Story::tellProgress(const QList<ledger::Instance>& instances)
{
    QMap<ledger::InstanceState, int> states;
    ledger::Decimal filled;
    ledger::Decimal ordered;
    for (const ledger::Instance& instance : instances) {
        ++states[instance.state];
        filled += instance.filledQuantity;
        ordered += instance.legs.value(0).quantity;
    }
    QString text;
    for (auto state = states.cbegin(); state != states.cend(); ++state) {
        text += QStringLiteral("%1 %2  ").arg(ledger::shownName(state.key())).arg(state.value());
    }
    tell(Words::tr("%1成交 %2 / %3").arg(text, filled.shown(0), ordered.shown(0)));
    mToldAt = mClock.elapsed();
}

void Story::tellInstances(const QList<ledger::Instance>& instances)
{
    InstancesModel model([](const QString&) { return QString(); }, [](const QString&) { return Decimals; });
    model.setRecords(instances);
    for (int row = 0; row < model.rowCount(); ++row) {
        const QString reason = cellOf(model, row, InstancesModel::Reason);
        say(Words::tr("  %1  %2  %3  成交 %4  均价 %5  %6%7")
                .arg(cellOf(model, row, InstancesModel::Id), cellOf(model, row, InstancesModel::Symbol),
                     cellOf(model, row, InstancesModel::Direction),
                     cellOf(model, row, InstancesModel::Filled), cellOf(model, row, InstancesModel::Average),
                     cellOf(model, row, InstancesModel::State),
                     reason.isEmpty() ? reason : QStringLiteral("  ") + reason));
    }
}

bool Story::follow(qint64 batch, const std::function<bool()>& isAskedToEnd)
{
    QList<ledger::Instance> instances;
    bool isDone = false;
    while (!isDone && !isAskedToEnd() && mClock.elapsed() < MostSeconds * 1000) {
        const Outcome<QList<ledger::Instance>> read = mLedger.instancesOf(batch);
        if (!read.ok()) {
            say(read.error);
            return false;
        }
        instances = read.value;
        if (tellNews(instances) || !mToldAt || mClock.elapsed() - *mToldAt >= TellEveryMs) {
            tellProgress(instances);
        }
        isDone = std::all_of(instances.begin(), instances.end(), isOver);
        if (!isDone) {
            QThread::msleep(StepMs);
        }
    }
    tellInstances(instances);
    const bool isFilled = isDone && std::all_of(instances.begin(), instances.end(), isFinished);
    say(isFilled ? Words::tr("全部成交，用时 %1 秒").arg(double(mClock.elapsed()) / 1000, 0, 'f', 1)
                 : Words::tr("没有全部成交"));
    return isFilled;
}

} // namespace demo
