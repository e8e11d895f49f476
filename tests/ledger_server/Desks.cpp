#include "tests/ledger_server/Desks.h"

#include "tests/ledger/SampleDrafts.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>

using namespace ledger;

Desks::Desks(const QString& address, int count, int files, const Decimal& ceiling)
    : mAddress(address), mFiles(files), mCeiling(ceiling)
{
    for (int desk = 0; desk < count; ++desk) {
        mProcesses.push_back(std::make_unique<QProcess>());
    }
}

Desks::~Desks()
{
    for (const auto& process : mProcesses) {
        process->kill();
        process->waitForFinished();
    }
}

void Desks::start(int desk)
{
    mProcesses[static_cast<size_t>(desk)]->start(
        QStringLiteral(SERVER_VICTIM), {mAddress, QString::number(desk), QString::number(mProcesses.size()),
                                        "1"_s, QString::number(mFiles), mCeiling.text()});
}

void Desks::startAll()
{
    for (size_t desk = 0; desk < mProcesses.size(); ++desk) {
        start(static_cast<int>(desk));
    }
}

void Desks::kill(int desk)
{
    QProcess& process = *mProcesses[static_cast<size_t>(desk)];
    process.kill();
    process.waitForFinished();
    read(desk);
    start(desk);
}

bool Desks::work(int milliseconds)
{
    QElapsedTimer watch;
    watch.start();
    bool isThrough = false;
    while (!isThrough && watch.elapsed() < milliseconds) {
        isThrough = true;
        for (size_t desk = 0; desk < mProcesses.size(); ++desk) {
            QProcess& process = *mProcesses[desk];
            process.waitForReadyRead(5);
            isThrough = isThrough && process.state() == QProcess::NotRunning;
            read(static_cast<int>(desk));
        }
    }
    return isThrough;
}

void Desks::read(int desk)
{
    QProcess& process = *mProcesses[static_cast<size_t>(desk)];
    while (process.canReadLine()) {
        take(QString::fromUtf8(process.readLine()).trimmed());
    }
    process.readAllStandardError(); // that the server could not be reached
}

void Desks::take(const QString& line)
{
    const QString what = line.section(QLatin1Char(' '), 0, 0);
    const int file = line.section(QLatin1Char(' '), 1, 1).toInt();
    const QString rest = line.section(QLatin1Char(' '), 2);
    if (what == "created"_s) {
        if (created.contains(file) && created.value(file) != rest.toLongLong()) {
            faults.append("twice: "_s + line);
        }
        created[file] = rest.toLongLong();
    } else if (what == "refused"_s) {
        duplicates += rest == "createdMeanwhile"_s ? 1 : 0;
        if (rest == "dayBuy"_s) {
            refused.insert(file);
        }
    } else if (what == "failed"_s && rest.contains("未能确认"_s)) {
        faults.append("perhaps: "_s + line);
    }
}

void expectSoundAfter(const Address& address, const Desks& desks)
{
    EXPECT_EQ(desks.faults, QStringList());
    const auto opened = Ledger::open(address);
    ASSERT_EQ(opened.error, QString());
    const QList<Batch> batches = allBatches(*opened.value).value;
    QHash<int, qint64> found;
    for (int i = 0; i < batches.size(); ++i) {
        EXPECT_EQ(batches.at(i).number, i + 1);
        const int file = batches.at(i).fileName.toInt();
        EXPECT_FALSE(found.contains(file)) << "file " << file << " was created twice";
        found[file] = batches.at(i).number;
    }
    for (auto reported = desks.created.cbegin(); reported != desks.created.cend(); ++reported) {
        EXPECT_EQ(found.value(reported.key()), *reported) << "file " << reported.key();
    }
    EXPECT_EQ(opened.value->verify(), QString());
    const AuditVerdict audit = opened.value->verifyAudit().value;
    EXPECT_FALSE(audit.broken.has_value());
    EXPECT_GE(audit.entries, batches.size());
}
