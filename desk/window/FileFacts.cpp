#include "desk/window/FileFacts.h"

#include "embedded_host/widgets/PlainToolTip.h"
#include "words/Words.h"

#include <QMap>

namespace {

QString separatorName(const QString& separator)
{
    const QMap<QString, QString> names = {{QStringLiteral(","), Words::tr("逗号")},
                                          {QStringLiteral(";"), Words::tr("分号")},
                                          {QStringLiteral("\t"), Words::tr("制表符")}};
    return names.value(separator, separator);
}

QString rowCountText(int rows)
{
    return rows < table::RowsToRead ? Words::tr("%1（含表头）").arg(rows)
                                    : Words::tr("至少 %1（含表头）").arg(rows);
}

QString skippedText(int rows)
{
    return rows == 0 ? QString() : Words::tr("%1 行").arg(rows);
}

/// What is known of the file; empty for none.
QString factsOf(const FileReport& report)
{
    const QList<QPair<QString, QString>> all = {
        {Words::tr("格式"), report.format},
        {Words::tr("编码"), report.encoding},
        {Words::tr("分隔符"), separatorName(report.separator)},
        {Words::tr("工作表"), report.sheet},
        {Words::tr("行数"), report.format.isEmpty() ? QString() : rowCountText(report.rowCount)},
        {Words::tr("前两格为空而跳过"), skippedText(report.lostOrders().size())},
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

FileFacts::FileFacts(QWidget* parent) : QLabel(parent)
{
    setObjectName(QStringLiteral("label_fileFacts"));
    setTextFormat(Qt::PlainText);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setProperty("role", QStringLiteral("caption"));
    setAccessibleName(Words::tr("文件信息"));
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void FileFacts::showReport(const FileReport& report)
{
    mReport = report;
    const QString facts = factsOf(mReport);
    setText(facts);
    setToolTip(plainToolTip(facts));
    setAccessibleDescription(facts); // its name hides the text from a screen reader
}

void FileFacts::showDigest(const QString& sha256)
{
    if (mReport.format.isEmpty() && mReport.error.isEmpty()) {
        return; // cleared meanwhile
    }
    mReport.sha256 = sha256;
    showReport(mReport);
}
