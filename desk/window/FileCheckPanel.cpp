#include "desk/window/FileCheckPanel.h"

#include "desk/models/FindingsModel.h"
#include "desk/window/FilteredTable.h"
#include "embedded_host/widgets/PlainToolTip.h"

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMap>
#include <QTableView>
#include <QVBoxLayout>

namespace {

QString separatorName(const QString& separator)
{
    static const QMap<QString, QString> names = {{QStringLiteral(","), QStringLiteral("逗号")},
                                                 {QStringLiteral(";"), QStringLiteral("分号")},
                                                 {QStringLiteral("\t"), QStringLiteral("制表符")}};
    return names.value(separator, separator);
}

QString rowCountText(int rows)
{
    return rows < table::RowsToRead ? QStringLiteral("%1（含表头）").arg(rows)
                                    : QStringLiteral("至少 %1（含表头）").arg(rows);
}

QString skippedText(int rows)
{
    return rows == 0 ? QString() : QStringLiteral("%1 行").arg(rows);
}

/// What is known of the file; empty for none.
QString factsOf(const FileReport& report)
{
    const QList<QPair<QString, QString>> all = {
        {QStringLiteral("格式"), report.format},
        {QStringLiteral("编码"), report.encoding},
        {QStringLiteral("分隔符"), separatorName(report.separator)},
        {QStringLiteral("工作表"), report.sheet},
        {QStringLiteral("行数"), report.format.isEmpty() ? QString() : rowCountText(report.rowCount)},
        {QStringLiteral("前两格为空而跳过"), skippedText(report.lostOrders().size())},
        {QStringLiteral("SHA-256"), report.sha256}};
    QStringList known;
    for (const auto& fact : all) {
        if (!fact.second.isEmpty()) {
            known.append(fact.first + QLatin1Char(' ') + fact.second);
        }
    }
    return known.join(QStringLiteral("  ·  "));
}

} // namespace

FileCheckPanel::FileCheckPanel(EmbeddedHost& host, UserPrompts& prompts, QWidget* parent)
    : QWidget(parent), mModel(new FindingsModel(this)),
      mTable(new FilteredTable(mModel, {QStringLiteral("文件检查"), QString()}, prompts, this)),
      mFacts(new QLabel(this))
{
    mTable->setColoursOf(host);
    mTable->view()->horizontalHeader()->setSectionResizeMode(FindingsModel::Sentence, QHeaderView::Stretch);
    mFacts->setObjectName(QStringLiteral("label_fileFacts"));
    mFacts->setTextFormat(Qt::PlainText);
    mFacts->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    mFacts->setProperty("role", QStringLiteral("caption"));
    mFacts->setAccessibleName(QStringLiteral("文件信息"));
    mFacts->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);

    auto* column = new QVBoxLayout(this);
    column->setSpacing(4);
    column->addWidget(mFacts);
    column->addWidget(mTable, 1);
    clear();
}

void FileCheckPanel::show(const FileReport& report)
{
    mReport = report;
    mModel->show(report);
    mTable->filter()->clear();
    mTable->setEmptyText(QStringLiteral("没有发现"));
    mTable->fitColumns();
    showFacts();
    emit countChanged(mModel->rowCount());
}

void FileCheckPanel::clear()
{
    show(FileReport());
    mTable->setEmptyText(QStringLiteral("导入文件后，检查结果显示在这里"));
}

void FileCheckPanel::showDigest(const QString& sha256)
{
    if (mReport.format.isEmpty() && mReport.error.isEmpty()) {
        return; // cleared meanwhile
    }
    mReport.sha256 = sha256;
    showFacts();
}

void FileCheckPanel::showFacts()
{
    const QString facts = factsOf(mReport);
    mFacts->setText(facts);
    mFacts->setToolTip(plainToolTip(facts));
    mFacts->setAccessibleDescription(facts); // its name hides the text from a screen reader
}
