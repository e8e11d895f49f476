#include "tests/ledger/SampleDrafts.h"

using namespace ledger;

InstanceDraft sampleInstance(const SampleRow& row)
{
    Leg leg;
    leg.symbol = row.symbol;
    leg.exchange = row.symbol.right(2);
    leg.direction = row.direction;
    leg.quantity = row.quantity;
    leg.limitPrice = row.limitPrice;
    InstanceDraft instance;
    instance.legs = {leg};
    instance.startsNow = row.startsNow;
    const QMap<QString, QVariant> security{{"证券代码"_s, row.symbol},
                                           {"委托数量"_s, row.quantity.text()},
                                           {"委托限价"_s, row.limitPrice.text()}};
    instance.parameters = {{"证券代码和委托数量"_s, QVariantList{security}},
                           {"交易方向"_s, row.direction},
                           {"交易账号"_s, "1001"_s},
                           {"BatchCreate"_s, ""_s}};
    return instance;
}

BatchDraft sampleDraft(const QList<SampleRow>& rows)
{
    BatchDraft draft;
    draft.id = QUuid::createUuid();
    draft.fileName = "早盘.csv"_s;
    draft.fileSha256 = QString(64, QLatin1Char('a'));
    draft.account = "1001"_s;
    draft.strategy = "AITWAP"_s;
    draft.createdBy = "trader"_s;
    draft.expectedBuy = 10000;
    draft.table.columns = QStringList{"证券代码"_s, "交易方向"_s, "委托数量"_s};
    for (const SampleRow& row : rows) {
        draft.instances.append(sampleInstance(row));
        draft.table.rows.append({row.symbol, row.direction, row.quantity.text()});
    }
    return draft;
}

BatchDraft sampleDraft(int count)
{
    QList<SampleRow> rows;
    for (int i = 0; i < count; ++i) {
        SampleRow row;
        row.symbol = QString::number(600000 + i) + ".SH"_s;
        rows.append(row);
    }
    return sampleDraft(rows);
}

QDateTime sampleMorning()
{
    return QDateTime(QDate(2025, 11, 3), QTime(2, 0), Qt::UTC);
}

QString SampleLedger::reopen(int maxPages)
{
    close();
    Ledger::Options options;
    options.clock = [this] { return now; };
    options.maxPages = maxPages;
    options.user = "trader"_s;
    options.program = "algodesk 9.9"_s;
    const auto opened = openIn(home(), options);
    mLedger = opened.value;
    return opened.error;
}

Outcome<std::shared_ptr<Ledger>> openToRead(const QString& home)
{
    Ledger::Options options;
    options.access = Ledger::Access::Read;
    return openIn(home, options);
}

Outcome<std::shared_ptr<Ledger>> openIn(const QString& home, const Ledger::Options& options)
{
    return Ledger::open(Address::ofFile(Ledger::pathIn(home)), options);
}

Outcome<QList<Batch>> allBatches(const Ledger& ledger)
{
    Outcome<QList<Batch>> all;
    all.error = ledger
                    .eachBatch([&](const Batch& batch) {
                        all.value.append(batch);
                        return true;
                    })
                    .error;
    return all;
}

Outcome<QList<Instance>> allInstances(const Ledger& ledger)
{
    Outcome<QList<Instance>> all;
    all.error = ledger
                    .eachInstance([&](const Instance& instance) {
                        all.value.append(instance);
                        return true;
                    })
                    .error;
    return all;
}
