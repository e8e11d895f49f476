#include "desk/verdict/Judge.h"

#include "desk/batch/HostPrices.h"
#include "desk/check/FileReport.h"
#include "desk/check/OrderPlaces.h"
#include "desk/verdict/OrderRules.h"
#include "embedded_host/reference_data/ReferenceData.h"
#include "host/CommonQuotaHandler.h"
#include "table/FaultCatalogue.h"
#include "table/GuardRules.h"

#include <algorithm>

namespace verdict {

namespace rule = table::rule;

namespace {

/// One batch on its way to a judgement.
class Case {
public:
    Case(const Confirmed& confirmed, const Desk& desk, const ReferenceData& data)
        : mContent(confirmed.content), mTable(confirmed.table), mDesk(desk), mData(data),
          mOrders(mContent.parameterMaps.size())
    {
        const tagUserAccountInfo* account = data.account(mContent.account);
        mAccountName = account == nullptr ? QString() : account->name;
        if (const AesStrategy* offered = data.strategy(mContent.strategy)) {
            mPlaces =
                OrderPlaces(*offered, {mContent.account, account == nullptr ? QString() : account->assetProp},
                            mTable, mContent.filePath);
        }
        mReport = fileReport(mTable, mContent.strategy, mContent.columns, data);
    }

    /// What is left of the table's rows in the draft that is judged.
    void leaveOut(const QSet<int>& rows)
    {
        mLeftOut = rows.size();
        for (int row = 1; row <= mOrders; ++row) {
            if (!rows.contains(row)) {
                mRows.append(row);
            }
        }
    }

    QString typed(int row, const QString& column) const { return mPlaces.typed(row, column, mOrders); }

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
        made.lines = inOrder(withReasons(linesOf(faults, mDesk.actions)) + placed(review.verdict));
        return made;
    }

private:
    /// The row of the table that a row of the draft is.
    int rowOfTable(int row) const { return mRows.isEmpty() ? row : mRows.value(row - 1, row); }

    void place(table::Fault& fault) const
    {
        fault.row = rowOfTable(fault.row);
        mPlaces.place(fault, mOrders);
    }

    int refusedRows() const { return qMax(0, mReport.orderCount - mOrders); }

    /// What the ledger's guard found, each row with its line and cell.
    QList<Line> placed(const ledger::Verdict& verdict) const
    {
        QList<Line> lines = linesOf(verdict, mDesk.actions);
        for (Line& line : lines) {
            for (table::Fault& fault : line.faults) {
                place(fault);
            }
        }
        return lines;
    }

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
                const bool isKnown = mPlaces.linesOf(mOrders).size() == mOrders;
                line.faults = isKnown && !mPlaces.refused().isEmpty() ? mPlaces.refused() : line.faults;
            }
        }
        return lines;
    }

    table::Faults orderFaults(const ledger::Review& review, const QDateTime& now) const
    {
        Orders orders{review.draft, review.limits, mDesk.calendar, now};
        orders.isFutures = mPlaces.strategy().traits.has(strategy::Futures);
        orders.accountName = mAccountName;
        orders.isBondRepo = [this](const QString& symbol) {
            const Security* security = mData.security(symbol);
            return security != nullptr && security->bondRepo;
        };
        orders.lastRate = [](const QString& symbol) {
            return ledger::Decimal::fromDouble(CommonQuotaHandler::getLastPriceFromTick(
                CommonQuotaHandler::instance()->GetQuotaSnapshot(symbol, 0)));
        };
        orders.isAccount = [this](const QString& text) { return isAccount(text); };
        orders.typed = [this](int row, const QString& column) { return typed(rowOfTable(row), column); };
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

    bool isAccount(const QString& text) const
    {
        const QList<tagUserAccountInfo>& accounts = mData.tables().accounts;
        return std::any_of(accounts.begin(), accounts.end(), [&](const tagUserAccountInfo& account) {
            return account.tradingAccount == text || account.name == text;
        });
    }

    Summary summary(const ledger::Review& review) const
    {
        Summary made = summaryOf(review.draft);
        made.accountName = mAccountName;
        made.strategyName = mPlaces.strategy().alias;
        made.refused = refusedRows();
        made.skipped = mReport.lostOrders().size();
        made.leftOut = mLeftOut;
        made.replaces = review.settled.replaces.value_or(0);
        for (Summary::Row& row : made.largest) {
            row.row = rowOfTable(row.row);
        }
        made.optedOut = ledger::optedOut(mDesk.limits, review.draft.account, review.draft.strategy);
        addStanding(made, review.standing);
        return made;
    }

    const batch::DialogContent& mContent;
    const table::Table& mTable;
    const Desk& mDesk;
    const ReferenceData& mData;
    const int mOrders; ///< in the batch
    int mLeftOut = 0;
    QList<int> mRows; ///< of the table that are left in the draft, in order; empty: all
    OrderPlaces mPlaces;
    QString mAccountName;
    FileReport mReport;
};

} // namespace

Judgement preview(const ledger::BatchDraft& draft, const Confirmed& confirmed, const Desk& desk,
                  const ReferenceData& data, const QDateTime& now)
{
    const ledger::Review review =
        ledger::reviewAgainst(ledger::Standing(), draft, desk.limits, batch::hostPrices(draft));
    return Case(confirmed, desk, data).judgement(review, now);
}

Outcome<Judgement> judge(const ledger::Ledger& ledger, const ledger::BatchDraft& draft,
                         const Confirmed& confirmed, const Desk& desk, const ReferenceData& data,
                         const QDateTime& now, const DuplicateChoice& choice)
{
    Case one(confirmed, desk, data);
    ledger::BatchDraft valued = draft;
    const ledger::Prices prices = batch::hostPrices(draft);
    ledger::valueLegs(valued, prices);
    const auto typed = [&one](int row, const QString& column) { return one.typed(row, column); };
    const Outcome<Settlement> settled = settle(ledger, valued, choice, typed);
    const Outcome<ledger::Review> review =
        settled.ok() ? ledger::reviewBatch(ledger, without(valued, settled.value.leftOut), desk.limits,
                                           prices, settled.value.terms)
                     : Outcome<ledger::Review>{{}, settled.error};
    if (!review.ok()) {
        return {{}, review.error};
    }
    one.leaveOut(settled.value.leftOut);
    Judgement judgement = one.judgement(review.value, now);
    judgement.choice = choice;
    judgement.leftOut = settled.value.leftOut.values();
    std::sort(judgement.leftOut.begin(), judgement.leftOut.end());
    return {judgement, {}};
}

} // namespace verdict
