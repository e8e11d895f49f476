#include "tests/gateway/FolderBroker.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include <chrono>

namespace {

const char AnswerHeader[] =
    "ClOrdID,ExecID,ExecType,OrdStatus,CumQty,AvgPx,OrigClOrdID,OrdStatusReqID,OrderID\n";

QString line(const QStringList& cells)
{
    return cells.join(QLatin1Char(','));
}

void pause(int milliseconds)
{
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

void put(const QString& path, const QByteArray& content, QIODevice::OpenMode mode = QIODevice::WriteOnly)
{
    QFile file(path);
    EXPECT_TRUE(file.open(mode)) << qPrintable(path);
    EXPECT_EQ(file.write(content), content.size());
}

} // namespace

bool waitUntil(const std::function<bool()>& holds, int milliseconds)
{
    for (int waited = 0; waited < milliseconds && !holds(); waited += 20) {
        pause(20);
    }
    return holds();
}

FolderBroker::FolderBroker(const QString& path, const Options& options)
    : mPath(path), mOptions(options), mRandom(options.seed)
{
    QDir(mPath).mkpath(QStringLiteral("broker"));
    mThread = std::thread([this] { run(); });
}

FolderBroker::~FolderBroker()
{
    mEnds = true;
    mThread.join();
}

std::map<QString, int> FolderBroker::taken() const
{
    const std::lock_guard<std::mutex> lock(mMutex);
    return mTaken;
}

QList<QPair<QString, QByteArray>> FolderBroker::files() const
{
    const std::lock_guard<std::mutex> lock(mMutex);
    return mFiles;
}

int FolderBroker::countOf(const QString& messageType) const
{
    const std::lock_guard<std::mutex> lock(mMutex);
    return mTypes.value(messageType);
}

void FolderBroker::run()
{
    while (!mEnds) {
        const QStringList names =
            QDir(mPath + QStringLiteral("/out"))
                .entryList({QStringLiteral("*.csv")}, QDir::Files, QDir::Time | QDir::Reversed);
        for (const QString& name : names) {
            takeOne(name);
        }
        pause(5);
    }
}

/// Out of the folder first, so that nobody takes it twice.
void FolderBroker::takeOne(const QString& name)
{
    const QString own = mPath + QStringLiteral("/broker/%1-%2").arg(mFiles.size()).arg(name);
    if (!QFile::rename(mPath + QStringLiteral("/out/") + name, own)) {
        return;
    }
    QFile file(own);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray content = file.readAll();
    EXPECT_TRUE(content.endsWith('\n')) << "half a file: " << qPrintable(name);
    const QStringList lines = QString::fromUtf8(content).split(QStringLiteral("\r\n"), Qt::SkipEmptyParts);
    Row row;
    const QStringList header = lines.value(0).split(QLatin1Char(','));
    const QStringList cells = lines.value(1).split(QLatin1Char(','));
    EXPECT_EQ(header.size(), cells.size()) << qPrintable(name);
    for (int i = 0; i < header.size(); ++i) {
        row.insert(header.at(i), cells.value(i));
    }
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        mFiles.append({name, content});
        ++mTypes[row.value(QStringLiteral("MsgType"))];
    }
    answer(row);
}

void FolderBroker::answer(const Row& row)
{
    const QString type = row.value(QStringLiteral("MsgType"));
    if (type == QLatin1String("F")) {
        answerCancel(row);
    } else if (type == QLatin1String("H")) {
        answerQuestion(row);
    } else {
        answerOrder(row);
    }
}

void FolderBroker::answerOrder(const Row& row)
{
    const QString id = row.value(QStringLiteral("ClOrdID"));
    const QString quantity = row.value(QStringLiteral("OrderQty"));
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        ++mTaken[id];
    }
    mQuantities.insert(id, quantity);
    mStates.insert(id, QStringLiteral("0"));
    tell(line({id,
               id + QStringLiteral("-new"),
               QStringLiteral("0"),
               QStringLiteral("0"),
               QStringLiteral("0"),
               QStringLiteral("0"),
               {},
               {},
               {}}));
    if (mOptions.fills) {
        mStates.insert(id, QStringLiteral("2"));
        tell(line({id,
                   id + QStringLiteral("-fill"),
                   QStringLiteral("F"),
                   QStringLiteral("2"),
                   quantity,
                   QStringLiteral("11.50"),
                   {},
                   {},
                   {}}));
    }
}

void FolderBroker::answerCancel(const Row& row)
{
    const QString id = row.value(QStringLiteral("OrigClOrdID"));
    mStates.insert(id, QStringLiteral("4"));
    tell(line({row.value(QStringLiteral("ClOrdID")),
               id + QStringLiteral("-cancelled"),
               QStringLiteral("4"),
               QStringLiteral("4"),
               QStringLiteral("0"),
               QStringLiteral("0"),
               id,
               {},
               {}}));
}

void FolderBroker::answerQuestion(const Row& row)
{
    if (!mOptions.answersQuestions) {
        return;
    }
    const QString id = row.value(QStringLiteral("ClOrdID"));
    const QString request = row.value(QStringLiteral("OrdStatusReqID"));
    const QString state = mStates.value(id, QStringLiteral("8"));
    const bool isKnown = mStates.contains(id);
    const QString filled = state == QLatin1String("2") ? mQuantities.value(id) : QStringLiteral("0");
    tell(line({id,
               {},
               QStringLiteral("I"),
               state,
               filled,
               QStringLiteral("11.50"),
               {},
               request,
               isKnown ? QStringLiteral("B1") : QStringLiteral("NONE")}));
}

void FolderBroker::tell(const QString& line)
{
    const QString name = QStringLiteral("answer-%1.csv").arg(++mAnswers, 6, 10, QLatin1Char('0'));
    const QByteArray content = AnswerHeader + line.toUtf8() + '\n';
    if (mOptions.isClumsy) {
        tellClumsily(name, content);
    } else {
        say(name, content);
    }
}

void FolderBroker::say(const QString& name, const QByteArray& content) const
{
    const QString draft = mPath + QStringLiteral("/broker/") + name;
    put(draft, content);
    EXPECT_TRUE(QFile::rename(draft, mPath + QStringLiteral("/in/") + name)) << qPrintable(name);
}

/// The end of what was begun. Where the pause became a long one, on a busy machine, the gateway has put half
/// a file away: then all of it once more, as whoever is told of the half does.
void FolderBroker::finish(const QString& name, const QByteArray& content) const
{
    QFile file(mPath + QStringLiteral("/in/") + name);
    if (file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::ExistingOnly)) {
        EXPECT_EQ(file.write(content.right(5)), 5);
    } else {
        say(QStringLiteral("whole-") + name, content);
    }
}

void FolderBroker::tellClumsily(const QString& name, const QByteArray& content)
{
    const QString path = mPath + QStringLiteral("/in/") + name;
    switch (mRandom() % 4) {
    case 0: // in place, and half at first
        put(path, content.left(content.size() - 5));
        pause(static_cast<int>(mRandom() % 30));
        finish(name, content);
        break;
    case 1: // twice
        say(name, content);
        say(QStringLiteral("again-") + name, content);
        break;
    case 2: // with rubbish beside it
        put(mPath + QStringLiteral("/in/rubbish-") + name, QByteArray("\x00\xff,\"nonsense\n", 13));
        say(name, content);
        break;
    default:
        say(name, content);
    }
}
