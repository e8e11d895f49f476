#pragma once

#include "desk/models/RecordModel.h"
#include "ledger/records/Records.h"

#include <algorithm>
#include <functional>
#include <memory>

/// Gives records a page at a time, in an order of its own: at most `count` of those behind `last`; null: from
/// the first one. A page that is not full is the last.
template <typename Record> using Pages = std::function<Outcome<QList<Record>>(const Record* last, int count)>;

/// A list that fetches its records as they are looked at, since a ledger may hold a million of them.
template <typename Record> class PagedModel : public RecordModel<Record> {
public:
    static constexpr int PageSize = 500;

    using RecordModel<Record>::RecordModel;

    /// Why the records could not be read; empty when they could.
    QString error() const { return mError; }

    /// Shows the first records of other pages.
    void setPages(const Pages<Record>& pages)
    {
        mPages = pages;
        this->setRecords({});
        reload();
    }

    /// Reads as many records anew as are shown, at least a page. Where they cannot be read, those that are
    /// shown stay: whoever reloads tells why.
    void reload()
    {
        const QList<Record> records = fetch(nullptr, std::max(PageSize, this->rowCount()));
        if (mError.isEmpty()) {
            this->updateRecords(records);
        }
    }

    bool canFetchMore(const QModelIndex& parent) const override { return !parent.isValid() && mHasMore; }

    void fetchMore(const QModelIndex& parent) override
    {
        if (!canFetchMore(parent)) {
            return;
        }
        const QList<Record>& shown = this->records();
        this->appendRecords(fetch(shown.isEmpty() ? nullptr : &shown.last(), PageSize));
        if (!mError.isEmpty()) {
            emit this->failed(mError);
        }
    }

private:
    QList<Record> fetch(const Record* last, int count)
    {
        Outcome<QList<Record>> page;
        if (mPages) {
            page = mPages(last, count);
        }
        mError = page.error;
        mHasMore = page.ok() && page.value.size() >= count;
        return page.value;
    }

    Pages<Record> mPages;
    QString mError;
    bool mHasMore = false;
};

/// Pages of a list that can only be read whole: it is read with the first page, and forgotten by nobody until
/// then.
template <typename Record> Pages<Record> pagesOf(const std::function<Outcome<QList<Record>>()>& readAll)
{
    struct Rest {
        QList<Record> records;
        int given = 0;
    };
    auto rest = std::make_shared<Rest>();
    return [rest, readAll](const Record* last, int count) -> Outcome<QList<Record>> {
        if (last == nullptr) {
            const Outcome<QList<Record>> all = readAll();
            if (!all.ok()) {
                return all;
            }
            *rest = {all.value, 0};
        }
        const QList<Record> page = rest->records.mid(rest->given, count);
        rest->given += page.size();
        return {page, {}};
    };
}
