#include "desk/batch/DraftBuilder.h"

#include "host/AlgoConstants.h"
#include "strategy/CellRoles.h"
#include "strategy/ColumnNames.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QtNumeric>

namespace batch {

using namespace ledger;

namespace {

namespace Info = Algo_Fields::AlgoInstContentInfo;
namespace Id = Algo_Values::AlgoParamId;

/// Size of a number, 0 for a text that is none: no sign and no "nan" slips past a ceiling. One that is too
/// long is Decimal::none(), which no ceiling lets pass.
Decimal sizeOf(const QString& text)
{
    bool isNumber = false;
    const bool isFinite = qIsFinite(text.toDouble(&isNumber));
    return isNumber && isFinite ? Decimal::fromText(text).abs() : Decimal();
}

bool isNegative(const QString& text)
{
    return Decimal::fromText(text) < 0;
}

/// One row of the dialog: its record by column name, and its parameter map.
class Row {
public:
    Row(const QStringList& columns, const RecordData& record, const QMap<QString, QVariant>& parameters)
        : mColumns(columns), mRecord(record), mParameters(parameters)
    {
    }

    /// The value of a cell; empty where the table has no such column.
    QString cell(const QString& column) const
    {
        return mRecord.value(mColumns.indexOf(column)).value(cell_roles::Value).toString();
    }

    /// A leg's own parameter, else the instance's, else the cell of that name.
    QString text(const QMap<QString, QVariant>& leg, const QString& name) const
    {
        for (const QString& text :
             {leg.value(name).toString(), mParameters.value(name).toString(), cell(name)}) {
            if (!text.isEmpty()) {
                return text;
            }
        }
        return QString();
    }

    InstanceDraft instance() const
    {
        InstanceDraft instance;
        instance.parameters = mParameters;
        instance.startsNow = text({}, columns::CreateAndStart) == Algo_Values::AlgoInstruction::StartOnCreate;
        instance.start = time(Info::AlgoStartTime);
        instance.end = time(Info::AlgoEndTime);
        instance.participation = sizeOf(text({}, Info::participationrate));
        const QVariantList legs = mParameters.value(Id::AlgoSecurityList).toList();
        for (const QVariant& leg : legs) {
            instance.legs.append(legOf(leg.toMap()));
        }
        return instance;
    }

private:
    QDateTime time(const QString& name) const
    {
        return QDateTime::fromString(mParameters.value(name).toString(),
                                     QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    }

    Leg legOf(const QMap<QString, QVariant>& parameters) const
    {
        Leg leg;
        leg.symbol = text(parameters, Info::Symbol);
        leg.exchange = text(parameters, Info::Exchange);
        leg.direction = text(parameters, Id::traderOrder);
        if (leg.direction.isEmpty()) {
            leg.direction = text(parameters, columns::OrderDirection);
        }
        const QString limit = text(parameters, Info::PriceLimits);
        leg.limitPrice = sizeOf(limit);
        leg.hasZeroLimit = !limit.isEmpty() && leg.limitPrice == 0;
        const QString amount = cell(Info::Quantity_Amount);
        leg.typedAmount = sizeOf(amount);
        // The cell counts in units, while a leg counts in the security's display factor.
        QString quantity = cell(Info::Quantity);
        if (quantity.isEmpty()) {
            quantity = parameters.value(Info::Quantity).toString();
        }
        leg.quantity = sizeOf(quantity);
        leg.isNegative = isNegative(quantity) || isNegative(limit) || isNegative(amount);
        return leg;
    }

    const QStringList& mColumns;
    const RecordData mRecord;
    const QMap<QString, QVariant>& mParameters;
};

} // namespace

BatchDraft makeDraft(const DialogContent& content)
{
    BatchDraft draft;
    draft.id = QUuid::createUuid();
    draft.fileName = QFileInfo(content.filePath).fileName();
    draft.fileSha256 = content.fileSha256.isEmpty() ? sha256OfFile(content.filePath) : content.fileSha256;
    draft.fileEdits = content.fileEdits;
    draft.account = content.account;
    draft.strategy = content.strategy;
    draft.createdBy = content.createdBy;
    draft.expectedBuy = Decimal::fromDouble(content.expectedBuy);
    draft.expectedSell = Decimal::fromDouble(content.expectedSell);
    for (int i = 0; i < content.parameterMaps.size(); ++i) {
        draft.instances.append(
            Row(content.columns, content.records.value(i), content.parameterMaps.at(i)).instance());
    }
    draft.table = shownTable(content.columns, content.records);
    draft.asksQuantity =
        content.columns.contains(Info::Quantity) || content.columns.contains(Info::Quantity_Amount);
    return draft;
}

BatchTable shownTable(const QStringList& columns, const RecordDataList& records)
{
    BatchTable table;
    table.columns = columns;
    for (const RecordData& record : records) {
        QStringList row;
        for (int column = 0; column < columns.size(); ++column) {
            row.append(record.value(column).value(cell_roles::Shown).toString());
        }
        table.rows.append(row);
    }
    return table;
}

const QStringList& orderColumns()
{
    static const QStringList names{Info::Symbol, Info::Exchange, Id::traderOrder, columns::OrderDirection};
    return names;
}

QString sha256OfFile(const QString& path)
{
    QFile file(path);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    if (!file.open(QIODevice::ReadOnly) || !hash.addData(&file)) {
        return QString();
    }
    return QString::fromLatin1(hash.result().toHex());
}

} // namespace batch
