#include "desk/window/BatchesPage.h"

#include "desk/window/FilteredTable.h"
#include "desk/working_copy/EditWords.h"
#include "host/ZelMessageBox.h"
#include "words/Words.h"

#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int MostFollowed = 100; // batches whose progress is told

QString undoneLines(const QList<ledger::ChangedInstance>& instances)
{
    QString text;
    for (const ledger::ChangedInstance& instance : instances) {
        text += QStringLiteral("  %1  %2\n")
                    .arg(instance.id.text(), instance.symbols.join(QStringLiteral(" / ")));
    }
    return text;
}

} // namespace

BatchesPage::BatchesPage(EmbeddedHost& host, const DeskBooks& books, UserPrompts& prompts, QWidget* parent)
    : QWidget(parent), mBooks(books), mModel(new BatchesModel(this)),
      mTable(new FilteredTable(mModel, {Words::tr("批次"), QString()}, prompts, this)),
      mLook(mTable->addButton(Words::tr("查看实例"), QStringLiteral("button_instances"))),
      mCompare(mTable->addButton(Words::tr("与当前导入比较"), QStringLiteral("button_compare"))),
      mUndo(mTable->addButton(Words::tr("撤销批次"), QStringLiteral("button_undo"))),
      mShowEdits(mTable->addButton(Words::tr("查看文件修改"), QStringLiteral("button_edits")))
{
    mTable->setSingleSelection();
    mTable->setColoursOf(host);
    mTable->setProgressColumn(host, BatchesModel::Progress);
    auto* column = new QVBoxLayout(this);
    column->addWidget(mTable);

    const auto lookInto = [this] {
        if (const auto batch = selectedBatch()) {
            emit instancesWanted(*batch);
        }
    };
    connect(mLook, &QPushButton::clicked, this, lookInto);
    connect(mTable->view(), &QTableView::activated, this, lookInto);
    connect(mCompare, &QPushButton::clicked, this, [this] {
        if (const auto batch = selectedBatch()) {
            emit comparisonWanted(*batch);
        }
    });
    connect(mShowEdits, &QPushButton::clicked, this, &BatchesPage::showEdits);
    connect(mUndo, &QPushButton::clicked, this, &BatchesPage::undo);
    connect(mTable, &FilteredTable::selectionChanged, this, &BatchesPage::enableButtons);
    connect(mTable, &FilteredTable::said, this, &BatchesPage::said);
    connect(mModel, &ListModel::failed, this, &BatchesPage::said);
    mModel->setPages([this](const ledger::Batch* last, int count) { return batches(last, count); });
    tellState();
}

void BatchesPage::reload()
{
    mModel->reload();
    tellState();
    countInstances();
}

void BatchesPage::countInstances()
{
    const Outcome<QList<ledger::Batch>> newest = batches(nullptr, MostFollowed);
    QList<qint64> numbers;
    for (const ledger::Batch& batch : newest.value) {
        numbers.append(batch.number);
    }
    const auto counts =
        newest.ok() && mBooks.ledger ? mBooks.ledger->countsOf(numbers) : Outcome<BatchesModel::Counts>();
    if (counts.ok()) {
        mCounts = counts.value;
        mModel->setCounts(mCounts);
        enableButtons();
    }
}

QString BatchesPage::error() const
{
    return mModel->error();
}

void BatchesPage::tellState()
{
    mTable->setEmptyText(error().isEmpty() ? Words::tr("还没有批次") : error());
    mTable->fitColumnsOnce();
    enableButtons();
    if (!error().isEmpty()) {
        emit said(error());
    }
}

Outcome<QList<ledger::Batch>> BatchesPage::batches(const ledger::Batch* last, int count) const
{
    if (!mBooks.ledger) {
        return {{}, mBooks.ledgerError};
    }
    return mBooks.ledger->batchesBefore(last ? std::make_optional(last->number) : std::nullopt, count);
}

std::optional<qint64> BatchesPage::selectedBatch() const
{
    const int row = mTable->selectedRow();
    return row < 0 ? std::nullopt : std::optional<qint64>(mModel->records().at(row).number);
}

void BatchesPage::setComparable(bool isComparable)
{
    mIsComparable = isComparable;
    enableButtons();
}

/// Why nothing of a batch could be taken back; empty where something can. Of older batches nobody counted
/// the states: undo itself tells.
QString BatchesPage::undoObjection(const ledger::Batch& batch) const
{
    const bool isOpen = batch.state == ledger::BatchState::Created ||
                        batch.state == ledger::BatchState::Waiting ||
                        batch.state == ledger::BatchState::PartlyReversed;
    const QMap<ledger::InstanceState, qint64> counts = mCounts.value(batch.number);
    const bool hasAny = std::any_of(counts.keyBegin(), counts.keyEnd(), [](ledger::InstanceState state) {
        return ledger::mayBeStopped(state) || ledger::mayBeWithdrawn(state);
    });
    return isOpen && (hasAny || counts.isEmpty())
               ? QString()
               : Words::tr("批次%1，没有可以撤销的实例").arg(ledger::shownName(batch.state));
}

/// A button that does nothing says why.
void BatchesPage::enableButtons()
{
    const std::optional<qint64> chosen = selectedBatch();
    const QString choose = chosen ? QString() : Words::tr("先选择一个批次");
    const auto allow = [&choose](QPushButton* button, const QString& objection) {
        button->setEnabled(choose.isEmpty() && objection.isEmpty());
        button->setToolTip(choose.isEmpty() ? objection : choose);
    };
    allow(mLook, QString());
    allow(mCompare, mIsComparable ? QString() : Words::tr("先在“批量导入”中导入要比较的文件"));
    const ledger::Batch batch = chosen ? mModel->records().at(mTable->selectedRow()) : ledger::Batch();
    allow(mShowEdits, batch.fileEdits.isEmpty() ? Words::tr("导入后没有修改过文件") : QString());
    allow(mUndo, chosen ? undoObjection(batch) : QString());
}

void BatchesPage::showEdits()
{
    const ledger::Batch& batch = mModel->records().at(mTable->selectedRow());
    const QString text =
        Words::tr("文件 %1（SHA-256 %2）导入后的修改：").arg(batch.fileName, batch.fileSha256) +
        QLatin1Char('\n') + working_copy::sentences(batch.fileEdits).join(QLatin1Char('\n'));
    ZelMessageBox(Words::tr("批次 %1 的文件修改").arg(batch.number), text, ZelMessageBox::Error, this)
        .showModally();
}

void BatchesPage::undo()
{
    const std::optional<qint64> batch = selectedBatch();
    if (!batch || !isUndoWanted()) {
        return;
    }
    const Outcome<ledger::UndoReport> report = mBooks.ledger->undo(*batch);
    reload();
    emit changed();
    if (report.ok()) {
        tellUndone(report.value);
    } else {
        ZelMessageBox(Words::tr("未撤销"), report.error, ZelMessageBox::Error, this).showModally();
    }
}

bool BatchesPage::isUndoWanted()
{
    const ledger::Batch& batch = mModel->records().at(mTable->selectedRow());
    const QString question = Words::tr("撤销批次 %1？\n文件 %2\n账户 %3，算法 %4，%5 行\n"
                                       "未启动的实例将被撤回，运行中的将被停止；已完成的不能撤销。")
                                 .arg(QString::number(batch.number), batch.fileName, batch.account,
                                      batch.strategy, QString::number(batch.rowCount));
    ZelMessageBox box(Words::tr("撤销批次"), question, ZelMessageBox::Question, this);
    return box.showModally() == QDialog::Accepted;
}

void BatchesPage::tellUndone(const ledger::UndoReport& report)
{
    const QString summary = Words::tr("批次 %1：撤回 %2 个，停止 %3 个，未能撤销 %4 个")
                                .arg(report.batch)
                                .arg(report.withdrawn.size())
                                .arg(report.stopped.size())
                                .arg(report.notReversed.size());
    emit said(summary);
    if (!report.notReversed.isEmpty()) {
        const QString text = Words::tr("%1\n\n以下实例已完成，其成交不能撤销：\n%2")
                                 .arg(summary, undoneLines(report.notReversed));
        ZelMessageBox(Words::tr("撤销批次"), text, ZelMessageBox::Error, this).showModally();
    }
}
