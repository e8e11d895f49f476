#include "desk/window/DiffPanel.h"

#include "desk/models/DiffModel.h"
#include "desk/window/FilteredTable.h"
#include "desk/working_copy/EditWords.h"
#include "embedded_host/widgets/PlainToolTip.h"
#include "words/Words.h"

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QVBoxLayout>

DiffPanel::DiffPanel(EmbeddedHost& host, UserPrompts& prompts, QWidget* parent)
    : QWidget(parent), mModel(new DiffModel(this)),
      mTable(new FilteredTable(mModel, {Words::tr("变更"), QString()}, prompts, this)),
      mEdits(new QLabel(this))
{
    mTable->setColoursOf(host);
    mTable->view()->horizontalHeader()->setStretchLastSection(true);
    auto* column = new QVBoxLayout(this);
    column->addWidget(mTable);
    column->addWidget(mEdits);
    mEdits->setObjectName(QStringLiteral("label_editsCompared"));
    mEdits->setTextFormat(Qt::PlainText);
    mEdits->setProperty("role", QStringLiteral("caption"));
    mEdits->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    connect(mTable->view(), &QTableView::activated, this, [this] {
        const int line = mTable->currentRow();
        const int row = line < 0 ? 0 : mModel->records().at(line).newRow;
        if (row > 0) {
            emit rowWanted(row);
        }
    });
    clear();
}

void DiffPanel::show(const ledger::BatchDiff& diff)
{
    mModel->setRecords(diffLines(diff));
    mTable->filter()->clear();
    mTable->setEmptyText(Words::tr("没有变更"));
    mTable->fitColumns();
}

void DiffPanel::clear()
{
    mModel->setRecords({});
    mTable->setEmptyText(Words::tr("没有可比较的批次"));
    mEdits->hide();
}

void DiffPanel::showEdits(const ledger::Batch& batch, const QList<working_copy::Edit>& now)
{
    QStringList lines;
    const QStringList before = working_copy::sentences(batch.fileEdits);
    if (!before.isEmpty()) {
        lines.append(Words::tr("批次 %1 的文件在桌面上的修改：%2")
                         .arg(QString::number(batch.number), before.join(Words::tr("；"))));
    }
    if (!now.isEmpty()) {
        lines.append(
            Words::tr("当前文件在桌面上的修改：%1").arg(working_copy::sentences(now).join(Words::tr("；"))));
    }
    const QString text = lines.join(QLatin1Char('\n'));
    mEdits->setText(text);
    mEdits->setToolTip(plainToolTip(text));
    mEdits->setVisible(!text.isEmpty());
}
