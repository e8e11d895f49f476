#include "atdl/Translation.h"
#include "desk/runner/Commands.h"
#include "desk/runner/Runner.h"
#include "files/Save.h"
#include "words/Words.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace runner {

namespace {

constexpr qint64 MostBytes = 16 << 20;

struct Written {
    QString name;
    QJsonDocument content;
};

QList<Written> filesOf(const atdl::Translation& made)
{
    return {{QStringLiteral("strategy_rules.json"), QJsonDocument(made.rules)},
            {QStringLiteral("profile.json"), QJsonDocument(made.profile)},
            {QStringLiteral("strategies.json"), QJsonDocument(made.strategies)}};
}

/// Nothing that stands there is written over.
QString objectionTo(const QString& folder, const QList<Written>& files)
{
    if (QFileInfo::exists(folder) && !QFileInfo(folder).isDir()) {
        return Words::tr("“%1”不是文件夹").arg(folder);
    }
    for (const Written& file : files) {
        if (QFileInfo::exists(QDir(folder).filePath(file.name))) {
            return Words::tr("“%1”已有 %2，不会覆盖").arg(folder, file.name);
        }
    }
    return QString();
}

QString write(const QString& folder, const QList<Written>& files, QStringList& paths)
{
    if (!QDir().mkpath(folder)) {
        return Words::tr("无法建立文件夹“%1”").arg(folder);
    }
    for (const Written& file : files) {
        const QString path = QDir(folder).filePath(file.name);
        const Outcome<void> saved = files::save(path, file.content.toJson());
        if (!saved.ok()) {
            return files::cannotWrite(path, saved.error);
        }
        paths.append(path);
    }
    return QString();
}

QJsonArray toJson(const atdl::Losses& losses)
{
    QJsonArray array;
    for (const atdl::Loss& loss : losses) {
        array.append(QJsonObject{{QStringLiteral("strategy"), loss.strategy},
                                 {QStringLiteral("element"), loss.element},
                                 {QStringLiteral("name"), loss.name},
                                 {QStringLiteral("reason"), loss.reason}});
    }
    return array;
}

Outcome<QByteArray> bytesOf(const QString& path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
        return {{}, Words::tr("无法读取“%1”").arg(path)};
    }
    return {file.read(MostBytes), QString()};
}

} // namespace

/// A broker's FIXatdl document into the folder OUT; what could not be carried over is told by name.
Result readBrokersFile(const CommandLine& line)
{
    const QString& path = line.files.first();
    const QString folder = line.files.value(1);
    const Outcome<QByteArray> bytes = bytesOf(path);
    if (!bytes.ok()) {
        return refuse(bytes.error);
    }
    const Outcome<atdl::Translation> made = atdl::translate(bytes.value);
    if (!made.ok()) {
        return refuse(Words::tr("“%1”：%2").arg(path, made.error));
    }
    const QList<Written> files = filesOf(made.value);
    QString error = objectionTo(folder, files);
    QStringList paths;
    if (error.isEmpty() && !made.value.strategies.isEmpty()) {
        error = write(folder, files, paths);
    }
    if (!error.isEmpty()) {
        return refuse(error);
    }
    const QJsonObject json = {{QStringLiteral("strategies"), made.value.summaries},
                              {QStringLiteral("notCarried"), toJson(made.value.losses)},
                              {QStringLiteral("files"), QJsonArray::fromStringList(paths)}};
    return print(made.value.losses.isEmpty() ? Done : Complained, QJsonDocument(json));
}

} // namespace runner
