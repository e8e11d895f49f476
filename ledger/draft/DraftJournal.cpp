#include "ledger/draft/DraftJournal.h"

#include "files/Save.h"
#include "ledger/LedgerTexts.h"

#include <sys/stat.h>

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>

namespace ledger {

namespace {

constexpr int DaysKept = 7;

/// What makes two attempts the same: where the file is gone and has no digest, its rows tell.
QString nameOf(const BatchDraft& draft, const QDate& day)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    QStringList parts{draft.fileSha256, draft.account, draft.strategy, day.toString(Qt::ISODate)};
    if (!draft.fileEdits.isEmpty()) {
        parts.append(QString::fromUtf8(QJsonDocument(draft.fileEdits).toJson(QJsonDocument::Compact)));
    }
    for (const InstanceDraft& instance :
         draft.fileSha256.isEmpty() ? draft.instances : QList<InstanceDraft>()) {
        parts.append(rowKey(draft.strategy, instance));
    }
    for (const QString& part : qAsConst(parts)) {
        hash.addData(part.toUtf8() + '\0');
    }
    return QString::fromLatin1(hash.result().toHex().left(40));
}

/// Entries of attempts that were given up. Their days are over, so that nobody asks for them.
void removeOld(const QString& folder)
{
    const QFileInfoList entries = QDir(folder).entryInfoList(QDir::Files);
    const QDateTime limit = QDateTime::currentDateTimeUtc().addDays(-DaysKept);
    for (const QFileInfo& entry : entries) {
        if (entry.lastModified() < limit) {
            QFile::remove(entry.filePath());
        }
    }
}

} // namespace

DraftJournal::DraftJournal(const QString& home) : mFolder(QDir(home).filePath(QStringLiteral("drafts"))) {}

Outcome<DraftJournal::Entry> DraftJournal::begin(const BatchDraft& draft, const QDate& day) const
{
    const bool hasFolder = QDir().mkpath(mFolder) && chmod(QFile::encodeName(mFolder).constData(), 0700) == 0;
    Entry entry{draft.id, QDir(mFolder).filePath(nameOf(draft, day)), false};
    removeOld(mFolder);
    QFile known(entry.file);
    if (known.open(QIODevice::ReadOnly)) {
        const QUuid id = QUuid::fromString(QString::fromLatin1(known.read(64)).trimmed());
        entry.isRepeated = !id.isNull();
        entry.id = entry.isRepeated ? id : draft.id;
    }
    const bool isKept =
        entry.isRepeated ||
        (hasFolder && files::save(entry.file, draft.id.toByteArray(QUuid::WithoutBraces)).ok());
    return isKept ? Outcome<Entry>{entry, QString()} : Outcome<Entry>{{}, texts::draftNotKept(mFolder)};
}

void DraftJournal::end(const Entry& entry) const
{
    QFile::remove(entry.file);
}

} // namespace ledger
