#include "tests/ledger_server/Workload.h"

#include "tests/ledger/SampleDrafts.h"

#include <QCryptographicHash>

using namespace ledger;

namespace {

constexpr int RowsOfFile = 3;

} // namespace

/// 100.07 to 2,998.xx, in no order.
Decimal amountOfFile(int file)
{
    return Decimal::fromText(
        "%1.%2"_s.arg(100 + file * 7919 % 2900).arg(file * 37 % 100, 2, 10, QLatin1Char('0')));
}

bool isFileOf(int file, int desk, int desks)
{
    return file % desks == desk || (file + 3) % desks == desk;
}

BatchDraft workloadDraft(int file, int desk)
{
    const QUuid family("{6f2c2f0e-2a55-4a1c-9a5e-0d5f1f0c7b12}"_s);
    BatchDraft draft = sampleDraft(RowsOfFile);
    draft.id = QUuid::createUuidV5(family, "%1 %2"_s.arg(file).arg(desk));
    draft.fileName = QString::number(file);
    draft.fileSha256 = QString::fromLatin1(
        QCryptographicHash::hash(QByteArray::number(file), QCryptographicHash::Sha256).toHex());
    for (int row = 0; row < RowsOfFile; ++row) {
        Leg& leg = draft.instances[row].legs[0];
        leg.quantity = 100 + RowsOfFile * file + row; // no two files hold the same orders
        leg.amount = row == 0 ? amountOfFile(file) : Decimal();
    }
    return draft;
}
