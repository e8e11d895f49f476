#include "ledger/operations/Digest.h"

#include "ledger/operations/Core.h"
#include "ledger/store/InstanceQueries.h"
#include "ledger/store/JsonText.h"

#include <QCryptographicHash>

namespace ledger {

namespace {

void add(QCryptographicHash& hash, const QByteArray& bytes)
{
    hash.addData(QByteArray::number(bytes.size()) + ':');
    hash.addData(bytes);
}

void add(QCryptographicHash& hash, const QString& part)
{
    add(hash, part.toUtf8());
}

} // namespace

QString digestOf(Statements& statements, const Batch& batch, const Limits& limits, const QString& verdict)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (const QString& part : {batch.draftId.toString(QUuid::WithoutBraces), batch.account, batch.strategy,
                                batch.fileSha256, textOf(limits), verdict}) {
        add(hash, part);
    }
    if (!batch.fileEdits.isEmpty()) {
        add(hash, jsonText(batch.fileEdits));
    }
    const QList<Instance> instances = selectInstances(statements, choiceOf(batch));
    for (const Instance& instance : instances) {
        add(hash, instance.id.text());
        add(hash, jsonText(instance.parameters));
        add(hash, QString::number(instance.startsNow));
        for (const Leg& leg : instance.legs) {
            for (const QString& part : {leg.symbol, leg.exchange, leg.direction, leg.quantity.text(),
                                        leg.limitPrice.text(), leg.amount.text()}) {
                add(hash, part);
            }
        }
    }
    return QString::fromLatin1(hash.result().toHex());
}

} // namespace ledger
