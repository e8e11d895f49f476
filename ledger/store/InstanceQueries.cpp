#include "ledger/store/InstanceQueries.h"

#include "ledger/store/JsonText.h"
#include "ledger/store/NewRows.h"
#include "ledger/values/ExchangeTime.h"

#include <QHash>

#include <tuple>

namespace ledger {

namespace {

Instance instanceOf(const QSqlQuery& row)
{
    Instance instance;
    instance.id = {row.value(0).toLongLong(), row.value(1).toInt()};
    instance.account = row.value(2).toString();
    instance.strategy = row.value(3).toString();
    instance.state = instanceStateNamed(row.value(4).toString());
    instance.changedAt = column::timeOf(row.value(5));
    const QString parameters = row.value(6).toString();
    instance.parameters = parameters.isEmpty() ? QMap<QString, QVariant>() : objectIn(parameters);
    instance.startsNow = row.value(7).toInt() != 0;
    instance.isTakenBack = row.value(8).toInt() != 0;
    instance.clOrdId = row.value(9).toString();
    instance.cancels = row.value(10).toInt();
    instance.isCancelDue = row.value(11).toInt() != 0;
    instance.filledQuantity = column::decimalOf(row.value(12));
    instance.averagePrice = column::decimalOf(row.value(13));
    instance.reason = row.value(14).toString();
    return instance;
}

Leg legOf(const QSqlQuery& row)
{
    Leg leg;
    leg.symbol = row.value(0).toString();
    leg.exchange = row.value(1).toString();
    leg.direction = row.value(2).toString();
    leg.quantity = column::decimalOf(row.value(3));
    leg.limitPrice = column::decimalOf(row.value(4));
    leg.amount = column::decimalOf(row.value(5));
    leg.filledQuantity = column::decimalOf(row.value(6));
    leg.averagePrice = column::decimalOf(row.value(7));
    return leg;
}

/// The legs of instances of one batch, which stand one behind the other from `first` to before `end`.
void addLegsOfBatch(Statements& statements, QList<Instance>& instances, int first, int end)
{
    const int firstRow = qMin(instances.at(first).id.row, instances.at(end - 1).id.row);
    const int lastRow = qMax(instances.at(first).id.row, instances.at(end - 1).id.row);
    QSqlQuery query = statements.select(
        QStringLiteral(
            "SELECT symbol, exchange, direction, quantity, limit_price, amount, filled, average, row_no "
            "FROM instance_leg WHERE batch_number = ? AND row_no BETWEEN ? AND ? AND account = ? "
            "ORDER BY row_no, leg_no"),
        {instances.at(first).id.batch, firstRow, lastRow, column::text(instances.at(first).account)});
    QHash<int, int> places;
    for (int i = first; i < end; ++i) {
        places[instances.at(i).id.row] = i;
    }
    while (statements.next(query)) {
        const int place = places.value(query.value(8).toInt(), -1);
        if (place >= 0) {
            instances[place].legs.append(legOf(query));
        }
    }
}

void addLegs(Statements& statements, QList<Instance>& instances)
{
    int first = 0;
    for (int end = 1; end <= instances.size(); ++end) {
        if (end == instances.size() || instances.at(end).id.batch != instances.at(first).id.batch) {
            addLegsOfBatch(statements, instances, first, end);
            first = end;
        }
    }
}

void updateLegs(Statements& statements, const Instance& instance)
{
    int number = 0;
    for (const Leg& leg : instance.legs) {
        statements.run(QStringLiteral("UPDATE instance_leg SET filled = ?, average = ? "
                                      "WHERE batch_number = ? AND row_no = ? AND leg_no = ? AND account = ?"),
                       {column::decimal(leg.filledQuantity), column::decimal(leg.averagePrice),
                        instance.id.batch, instance.id.row, ++number, column::text(instance.account)});
    }
}

QStringList columnsOf(const char* names)
{
    return QString::fromLatin1(names).split(QLatin1Char(' '));
}

} // namespace

QList<Instance> selectInstances(Statements& statements, const InstanceChoice& choice)
{
    QString text =
        QStringLiteral("SELECT batch_number, row_no, account, strategy, state, changed_at, %1, starts_now, "
                       "taken_back, cl_ord_id, cancels, cancel_due, filled, average, reason FROM instance ")
            .arg(choice.isBrief ? QStringLiteral("''") : QStringLiteral("parameters"));
    text += choice.condition.isEmpty() ? QString() : QLatin1String("WHERE ") + choice.condition;
    text += choice.isNewestFirst ? QStringLiteral(" ORDER BY batch_number DESC, row_no")
                                 : QStringLiteral(" ORDER BY batch_number, row_no");
    text += choice.most > 0 ? QStringLiteral(" LIMIT %1").arg(choice.most) : QString();
    QList<Instance> instances;
    {
        QSqlQuery query = statements.select(text, choice.values);
        while (statements.next(query)) {
            instances.append(instanceOf(query));
        }
    }
    addLegs(statements, instances);
    return instances;
}

InstanceChoice choiceOf(const Batch& batch, const QString& condition, const QVariantList& values)
{
    const QString ofBatch = QStringLiteral("batch_number = ? AND account = ?");
    return {condition.isEmpty() ? ofBatch : ofBatch + QLatin1String(" AND ") + condition,
            QVariantList{batch.number, column::text(batch.account)} + values};
}

std::optional<Instance> selectInstance(Statements& statements, const InstanceId& id, const QString& account)
{
    const QList<Instance> found =
        selectInstances(statements, {QStringLiteral("batch_number = ? AND row_no = ? AND account = ?"),
                                     {id.batch, id.row, column::text(account)}});
    return found.isEmpty() ? std::nullopt : std::make_optional(found.first());
}

QMap<InstanceState, qint64> countStates(Statements& statements, const std::optional<Batch>& batch)
{
    const InstanceChoice choice = batch ? choiceOf(*batch) : InstanceChoice();
    QSqlQuery query = statements.select(QStringLiteral("SELECT state, COUNT(*) FROM instance ") +
                                            (batch ? QLatin1String("WHERE ") + choice.condition : QString()) +
                                            QLatin1String(" GROUP BY state"),
                                        choice.values);
    QMap<InstanceState, qint64> counts;
    while (statements.next(query)) {
        counts[instanceStateNamed(query.value(0).toString())] += query.value(1).toLongLong();
    }
    return counts;
}

QMap<qint64, QMap<InstanceState, qint64>> countStatesOf(Statements& statements, const QList<qint64>& batches)
{
    QStringList numbers;
    for (const qint64 batch : batches) {
        numbers.append(QString::number(batch));
    }
    QSqlQuery query =
        statements.select(QStringLiteral("SELECT batch_number, state, COUNT(*) FROM instance "
                                         "WHERE batch_number IN (%1) GROUP BY batch_number, state")
                              .arg(numbers.join(QLatin1Char(','))));
    QMap<qint64, QMap<InstanceState, qint64>> counts;
    while (statements.next(query)) {
        counts[query.value(0).toLongLong()][instanceStateNamed(query.value(1).toString())] +=
            query.value(2).toLongLong();
    }
    return counts;
}

void insertInstances(Statements& statements, Store& store, const Batch& batch,
                     const QList<InstanceDraft>& instances, InstanceState ofStarted)
{
    NewRows rows(
        QStringLiteral("instance"),
        columnsOf("batch_number row_no account strategy state changed_at parameters row_key starts_now "
                  "taken_back cl_ord_id cancels cancel_due filled average reason day"));
    NewRows legs(QStringLiteral("instance_leg"),
                 columnsOf("batch_number row_no leg_no account symbol exchange direction quantity "
                           "limit_price amount filled average"));
    const QString day = exchangeDay(batch.createdAt).toString(Qt::ISODate);
    int row = 0;
    for (const InstanceDraft& instance : instances) {
        const InstanceState state = instance.startsNow ? ofStarted : InstanceState::Created;
        rows << batch.number << ++row << batch.account << batch.strategy << nameOf(state)
             << batch.createdAt.toMSecsSinceEpoch() << jsonText(instance.parameters)
             << rowKey(batch.strategy, instance) << instance.startsNow << 0 << QString() << 0 << 0 << 0 << 0
             << QString() << day;
        int number = 0;
        for (const Leg& leg : instance.legs) {
            legs << batch.number << row << ++number << batch.account << leg.symbol << leg.exchange
                 << leg.direction << leg.quantity << leg.limitPrice << leg.amount << 0 << 0;
        }
    }
    insertRows(statements, store, rows);
    insertRows(statements, store, legs);
}

void updateInstances(Statements& statements, const QList<Instance>& changed, const QDateTime& now)
{
    QSqlQuery update = statements.prepare(QStringLiteral(
        "UPDATE instance SET state = ?, changed_at = ?, taken_back = ?, cl_ord_id = ?, cancels = ?, "
        "cancel_due = ?, filled = ?, average = ?, reason = ? "
        "WHERE batch_number = ? AND row_no = ? AND account = ?"));
    for (const Instance& instance : changed) {
        statements.runAgain(update, {nameOf(instance.state), column::time(now), instance.isTakenBack ? 1 : 0,
                                     column::text(instance.clOrdId), instance.cancels,
                                     instance.isCancelDue ? 1 : 0, column::decimal(instance.filledQuantity),
                                     column::decimal(instance.averagePrice), column::text(instance.reason),
                                     instance.id.batch, instance.id.row, column::text(instance.account)});
        if (instance.legs.size() > 1) {
            updateLegs(statements, instance);
        }
    }
}

void moveInstances(Statements& statements, const QList<Instance>& moved, const QDateTime& now)
{
    const auto isLike = [](const Instance& one, const Instance& other) {
        return std::tie(one.id.batch, one.account, one.state, one.isTakenBack, one.isCancelDue) ==
               std::tie(other.id.batch, other.account, other.state, other.isTakenBack, other.isCancelDue);
    };
    int first = 0;
    for (int end = 1; end <= moved.size(); ++end) {
        const Instance& last = moved.at(end - 1);
        if (end < moved.size() && isLike(last, moved.at(end)) && moved.at(end).id.row == last.id.row + 1) {
            continue;
        }
        statements.run(QStringLiteral("UPDATE instance SET state = ?, changed_at = ?, taken_back = ?, "
                                      "cancel_due = ? "
                                      "WHERE batch_number = ? AND row_no BETWEEN ? AND ? AND account = ?"),
                       {nameOf(last.state), column::time(now), last.isTakenBack ? 1 : 0,
                        last.isCancelDue ? 1 : 0, last.id.batch, moved.at(first).id.row, last.id.row,
                        column::text(last.account)});
        first = end;
    }
}

} // namespace ledger
