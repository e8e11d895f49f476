#include "desk/window/FileCheckPanel.h"

#include "desk/window/FilteredTable.h"
#include "embedded_host/EmbeddedHost.h"
#include "embedded_host/skin/SkinService.h"
#include "table/FaultCatalogue.h"

#include <QColor>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMap>
#include <QTableView>
#include <QVBoxLayout>

namespace {

enum Column { Severity, Place, Raw, Sentence, Suggestions };

const QString ErrorText = QStringLiteral("错误");
const QString WarningText = QStringLiteral("警告");
const QString WholeFile = QStringLiteral("整个文件");

QString placeText(const table_lint::Finding& finding, const FileReport& report)
{
    if (finding.address.isEmpty()) {
        return WholeFile;
    }
    if (!report.isSpreadsheet()) {
        return QStringLiteral("%1（文件第 %2 行）").arg(finding.address).arg(finding.fault.line);
    }
    const bool wholeRow = finding.address.at(0).isDigit();
    const QString address = wholeRow ? QStringLiteral("第 %1 行").arg(finding.address) : finding.address;
    return report.sheet.isEmpty() ? address : report.sheet + QLatin1Char('!') + address;
}

QList<QStringList> linesOf(const FileReport& report)
{
    QList<QStringList> lines;
    if (!report.error.isEmpty()) {
        lines.append({ErrorText, WholeFile, QString(), report.error, QString()});
    }
    for (const table_lint::Finding& finding : report.findings) {
        const bool error = finding.fault.severity == table::Severity::Error;
        lines.append({error ? ErrorText : WarningText, placeText(finding, report), finding.fault.cell,
                      table::sentence(finding.fault), finding.suggestions.join(QStringLiteral("，"))});
    }
    return lines;
}

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
        {QStringLiteral("前两格为空而跳过"), skippedText(report.skippedRowCount)},
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
    : QWidget(parent), mHost(host),
      mModel(new TextTable({QStringLiteral("严重程度"), QStringLiteral("位置"), QStringLiteral("原文"),
                            QStringLiteral("说明"), QStringLiteral("建议")},
                           this)),
      mTable(new FilteredTable(mModel, {QStringLiteral("文件检查"), QString()}, prompts, this)),
      mFacts(new QLabel(this))
{
    mModel->setTint([this](int row, int column) { return tintOf(row, column); });
    mTable->view()->horizontalHeader()->setSectionResizeMode(Sentence, QHeaderView::Stretch);
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
    mModel->setTable(mModel->columns(), linesOf(report));
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
    mFacts->setToolTip(facts.toHtmlEscaped());
    mFacts->setAccessibleDescription(facts); // its name hides the text from a screen reader
}

QColor FileCheckPanel::tintOf(int row, int column) const
{
    if (column != Severity) {
        return {};
    }
    const bool error = mModel->rows().at(row).at(Severity) == ErrorText;
    return mHost.skins().colours().colour(error ? QStringLiteral("error") : QStringLiteral("warning"));
}
