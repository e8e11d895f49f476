#include "desk/verdict/Judge.h"

#include "desk/batch/HostPrices.h"
#include "desk/check/FileReport.h"
#include "desk/verdict/OrderRules.h"
#include "embedded_host/reference_data/ReferenceData.h"
#include "import/TableReading.h"
#include "strategy/Strategy.h"
#include "table/CheckRules.h"
#include "table/FaultCatalogue.h"
#include "table/GuardRules.h"

#include <QHash>

namespace verdict {

namespace rule = table::rule;

namespace {

strategy::Strategy schemaOf(const AesStrategy& offered)
{
    const Outcome<strategy::Strategy> parsed =
        strategy::Strategy::parse(offered.name(), offered.alias(), offered.paramFormats());
    return parsed.ok() ? parsed.value
                       : strategy::Strategy::withoutParameters(offered.name(), offered.alias());
}

/// One batch on its way to a judgement.
class Case {
public:
    Case(const Confirmed& confirmed, const Desk& desk, const ReferenceData& data)
        : mContent(confirmed.content), mTable(confirmed.table), mDesk(desk), mData(data)
    {
        if (const AesStrategy* offered = data.strategy(mContent.strategy)) {
            mSchema = schemaOf(*offered);
        }
        for (int row = 0; row < mTable.rows.size(); ++row) {
            mRowOfLine.insert(mTable.lineOf(row), row);
        }
        readAgain();
        mReport = fileReport(mTable, mContent.strategy, mContent.columns, data);
    }

    Judgement judgement(const ledger::Review& review, const QDateTime& now) const
    {
        Judgement made;
        made.review = review;
        made.summary = summary(review);
        table::Faults faults = missingRows() + orderFaults(review, now);
        for (table::Fault& fault : faults) {
            place(fault);
        }
        for (const table_lint::Finding& finding : mReport.findings) {
            faults.append(finding.fault);
        }
        made.lines = inOrder(withReasons(linesOf(faults, mDesk.actions)) +
                             linesOf(review.verdict, mDesk.actions, mLines));
        return made;
    }

private:
    /// The rows as the dialog read them: what it refused, and on which line each order stands. After a change
    /// of account the refusals may be others; then nobody knows the lines.
    void readAgain()
    {
        const tagUserAccountInfo* account = mData.account(mContent.account);
        const import::Account of = {mContent.account, account == nullptr ? QString() : account->assetProp};
        const import::Reading reading =
            import::readRows(mSchema, mTable, of, import::dateTimeFormatOf(mContent.filePath));
        if (reading.records.size() == mContent.parameterMaps.size()) {
            mLines = reading.lines;
            mRefused = reading.faults;
            if (reading.end) {
                mRefused.append(*reading.end);
            }
        }
    }

    int refusedRows() const { return qMax(0, mReport.orderCount - mContent.parameterMaps.size()); }

    table::Faults missingRows() const
    {
        table::Faults faults;
        if (refusedRows() > 0) {
            faults.append(table::fault(
                rule::MissingRows, {QString::number(mReport.orderCount), QString::number(refusedRows())}));
        }
        if (mTable.rows.size() > 1 + table::MostOrders) {
            faults.append(table::fault(rule::RowsBeyondLimit, {QString::number(table::MostOrders)}));
        }
        return faults;
    }

    /// Each missing row with its own reason, behind the count of them.
    QList<Line> withReasons(QList<Line> lines) const
    {
        for (Line& line : lines) {
            if (line.rule == rule::MissingRows) {
                line.count = refusedRows();
                line.faults = mRefused.isEmpty() ? line.faults : mRefused;
            }
        }
        return lines;
    }

    table::Faults orderFaults(const ledger::Review& review, const QDateTime& now) const
    {
        Orders orders{
            review.draft, review.limits, mDesk.calendar, now, mSchema.traits.has(strategy::Futures), {}, {}};
        orders.isBondRepo = [this](const QString& symbol) {
            const Security* security = mData.security(symbol);
            return security != nullptr && security->bondRepo;
        };
        orders.typed = [this](int row, const QStringList& titles) { return cellOf(row, titles); };
        return faultsOfOrders(orders) + brokerFaults(review.draft);
    }

    table::Faults brokerFaults(const ledger::BatchDraft& draft) const
    {
        table::Faults faults;
        for (int i = 0; i < draft.instances.size(); ++i) {
            const auto own = mDesk.brokerRules.faultsOf(draft.strategy, draft.instances.at(i).parameters);
            for (table::Fault fault : own) {
                fault.row = i + 1;
                faults.append(fault);
            }
        }
        return faults;
    }

    /// Row of the table in the file, of a row of the batch; -1 where nobody knows.
    int fileRowOf(int row) const
    {
        const int line = mLines.value(row - 1);
        return line > 0 ? mRowOfLine.value(line, -1) : -1;
    }

    int fileColumnOf(const QStringList& titles) const
    {
        for (const QString& title : titles) {
            const int column = mTable.rows.value(0).indexOf(title);
            if (column >= 0) {
                return column;
            }
        }
        return -1;
    }

    /// Where nobody knows the row, a column that the file has counts as typed.
    QString cellOf(int row, const QStringList& titles) const
    {
        const int column = fileColumnOf(titles);
        const int fileRow = fileRowOf(row);
        if (column < 0) {
            return QString();
        }
        return fileRow < 0 ? titles.first() : mTable.rows.at(fileRow).value(column);
    }

    void place(table::Fault& fault) const
    {
        const int fileRow = fault.row > 0 ? fileRowOf(fault.row) : -1;
        if (fileRow < 0) {
            return;
        }
        fault.line = mTable.lineOf(fileRow);
        const QStringList titles = startTitles().contains(fault.column) ? startTitles()
                                   : endTitles().contains(fault.column) ? endTitles()
                                                                        : QStringList{fault.column};
        const int column = fileColumnOf(titles);
        if (column >= 0) {
            fault.column = mTable.rows.first().at(column);
            fault.cell = mTable.rows.at(fileRow).value(column);
        }
    }

    Summary summary(const ledger::Review& review) const
    {
        Summary made = summaryOf(review.draft);
        const tagUserAccountInfo* account = mData.account(review.draft.account);
        made.accountName = account == nullptr ? QString() : account->name;
        made.strategyName = mSchema.alias;
        made.refused = refusedRows();
        for (const table_lint::Finding& finding : mReport.findings) {
            made.skipped += finding.fault.rule == rule::OrderWithoutCode ? 1 : 0;
        }
        made.optedOut = ledger::optedOut(mDesk.limits, review.draft.account, review.draft.strategy);
        addStanding(made, review.standing);
        return made;
    }

    const batch::DialogContent& mContent;
    const table::Table& mTable;
    const Desk& mDesk;
    const ReferenceData& mData;
    strategy::Strategy mSchema;
    FileReport mReport;
    QHash<int, int> mRowOfLine;
    QList<int> mLines; ///< of each row of the batch; empty: nobody knows
    table::Faults mRefused;
};

} // namespace

Outcome<Judgement> judge(const ledger::Ledger& ledger, const ledger::BatchDraft& draft,
                         const Confirmed& confirmed, const Desk& desk, const ReferenceData& data,
                         const QDateTime& now)
{
    const Outcome<ledger::Review> review =
        ledger::reviewBatch(ledger, draft, desk.limits, batch::hostPrices(draft));
    if (!review.ok()) {
        return {{}, review.error};
    }
    return {Case(confirmed, desk, data).judgement(review.value, now), {}};
}

} // namespace verdict
