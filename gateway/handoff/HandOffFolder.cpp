#include "gateway/handoff/HandOffFolder.h"

#include "files/Save.h"
#include "words/Words.h"

#include <QDir>
#include <QFile>

namespace gateway {

namespace {

const QString Out = QStringLiteral("out");
const QString In = QStringLiteral("in");
const QString Ready = QStringLiteral("ready");
const QString Read = QStringLiteral("read");
const QString Refused = QStringLiteral("refused");
const QString Lock = QStringLiteral(".lock");

const int MostOfOneName = 10000;

/// The name itself, or the first of name-2.csv, name-3.csv, … that is free.
QString freePath(const QString& folder, const QString& name)
{
    const QFileInfo file(name);
    QString path = folder + name;
    for (int i = 2; i < MostOfOneName && QFileInfo::exists(path); ++i) {
        path = folder + QStringLiteral("%1-%2.%3").arg(file.completeBaseName()).arg(i).arg(file.suffix());
    }
    return path;
}

} // namespace

HandOffFolder::HandOffFolder(const QString& path, std::function<void(const char*)> onStep)
    : mPath(QDir(path).absolutePath()), mOnStep(std::move(onStep))
{
}

QString HandOffFolder::pathOf(const QString& folder, const QString& name) const
{
    return mPath + QLatin1Char('/') + folder + QLatin1Char('/') + name;
}

void HandOffFolder::step(const char* name) const
{
    if (mOnStep) {
        mOnStep(name);
    }
}

Outcome<void> HandOffFolder::open()
{
    if (!QFileInfo(mPath).isDir()) {
        return {Words::tr("“%1”不是文件夹").arg(mPath)};
    }
    for (const QString& folder : {Out, In, Ready, Read, Refused}) {
        if (!QDir(mPath).mkpath(folder)) {
            return {Words::tr("无法建立文件夹“%1”").arg(pathOf(folder))};
        }
    }
    mLock = std::make_unique<ledger::FileLock>(mPath + QLatin1Char('/') + Lock);
    switch (mLock->take(ledger::FileLock::Kind::Exclusive, 0)) {
    case ledger::FileLock::Answer::Taken:
        dropLeftovers();
        return {};
    case ledger::FileLock::Answer::HeldByAnother:
        return {Words::tr("“%1”正由另一个网关使用").arg(mPath)};
    case ledger::FileLock::Answer::NotPermitted:
    case ledger::FileLock::Answer::Failed:
        break;
    }
    return {Words::tr("无法锁定文件夹“%1”").arg(mPath)};
}

/// Cancels and questions of a program that was killed: they are asked for anew. Orders stay, as evidence.
void HandOffFolder::dropLeftovers() const
{
    QDir ready(pathOf(Ready));
    const QStringList names =
        ready.entryList({QStringLiteral("*-C*.csv"), QStringLiteral("*-S*.csv"), QStringLiteral(".saving-*")},
                        QDir::Files | QDir::Hidden);
    for (const QString& name : names) {
        ready.remove(name);
    }
}

bool HandOffFolder::isReachable() const
{
    return QFileInfo(pathOf(Out)).isDir() && QFileInfo(pathOf(In)).isDir() &&
           QFileInfo(pathOf(Ready)).isDir();
}

Outcome<void> HandOffFolder::placeOrder(const QString& name, const QByteArray& bytes) const
{
    return QFileInfo::exists(pathOf(Out, name)) ? Outcome<void>() : place(name, bytes);
}

Outcome<void> HandOffFolder::place(const QString& name, const QByteArray& bytes) const
{
    step("before ready");
    const Outcome<void> saved = files::save(pathOf(Ready, name), bytes);
    if (!saved.ok()) {
        return saved;
    }
    step("ready");
    const Outcome<void> moved = files::move(pathOf(Ready, name), pathOf(Out, name));
    step("out");
    return moved;
}

bool HandOffFolder::isHeldBack(const QString& orderName) const
{
    return QFileInfo::exists(pathOf(Ready, orderName));
}

QFileInfoList HandOffFolder::answers(int most) const
{
    return QDir(pathOf(In))
        .entryInfoList({QStringLiteral("*.csv")}, QDir::Files | QDir::NoSymLinks, QDir::Name)
        .mid(0, most);
}

Outcome<QByteArray> HandOffFolder::read(const QString& name, qint64 most) const
{
    QFile file(pathOf(In, name));
    if (!file.open(QIODevice::ReadOnly)) {
        return {{}, Words::tr("无法读取：%1").arg(file.errorString())};
    }
    return {file.read(most), QString()};
}

Outcome<void> HandOffFolder::putAway(const QString& name, const QString& folder) const
{
    step("before put away");
    const Outcome<void> moved = files::move(pathOf(In, name), freePath(pathOf(folder), name));
    step("put away");
    return moved;
}

Outcome<void> HandOffFolder::putIntoRead(const QString& name) const
{
    return putAway(name, Read);
}

Outcome<void> HandOffFolder::putIntoRefused(const QString& name) const
{
    return putAway(name, Refused);
}

} // namespace gateway
