#include "desk/working_copy/EditWords.h"

#include "words/Words.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace working_copy {

namespace {

constexpr int MostNamed = 8; // lines and cells in a sentence

QString numbersText(const QList<int>& lines)
{
    QStringList numbers;
    for (const int line : lines.mid(0, MostNamed)) {
        numbers.append(QString::number(line));
    }
    const QString named = numbers.join(Words::tr("、"));
    return lines.size() > MostNamed ? Words::tr("%1 等 %2 行").arg(named).arg(lines.size()) : named;
}

QList<int> linesOf(const QList<CellChange>& cells)
{
    QList<int> lines;
    for (const CellChange& change : cells) {
        lines.append(change.line);
    }
    return lines;
}

QString cellText(const CellChange& change)
{
    const QString column =
        change.title.isEmpty() ? Words::tr("第 %1 列").arg(change.column + 1) : change.title;
    return Words::tr("文件第 %1 行“%2”：“%3” → “%4”")
        .arg(QString::number(change.line), column, change.before, change.after);
}

QString pasteText(const Edit& edit)
{
    if (edit.rows.isEmpty()) {
        return Words::tr("粘贴 %1 格，从文件第 %2 行起").arg(edit.cells.size()).arg(edit.cells.first().line);
    }
    if (edit.cells.isEmpty()) {
        return Words::tr("粘贴 %1 行，编为第 %2 行起").arg(edit.rows.size()).arg(edit.rows.first().line);
    }
    return Words::tr("粘贴 %1 格和 %2 行，从文件第 %3 行起")
        .arg(edit.cells.size())
        .arg(edit.rows.size())
        .arg(edit.cells.first().line);
}

QString replaceText(const Edit& edit)
{
    const CellChange& first = edit.cells.first();
    return Words::tr("“%1”列中的“%2”全部改为“%3”：文件第 %4 行")
        .arg(first.title, first.before, first.after, numbersText(linesOf(edit.cells)));
}

} // namespace

QString sentence(const Edit& edit)
{
    switch (edit.kind) {
    case Edit::Kind::Type:
        return edit.cells.isEmpty() ? QString() : cellText(edit.cells.first());
    case Edit::Kind::Paste:
        return edit.cells.isEmpty() && edit.rows.isEmpty() ? QString() : pasteText(edit);
    case Edit::Kind::Replace:
        return edit.cells.isEmpty() ? QString() : replaceText(edit);
    case Edit::Kind::LeaveOut:
        return Words::tr("不导入文件第 %1 行").arg(numbersText(edit.lines));
    case Edit::Kind::TakeIn:
        return Words::tr("恢复导入文件第 %1 行").arg(numbersText(edit.lines));
    }
    return QString();
}

QStringList sentences(const QList<Edit>& edits)
{
    QStringList texts;
    for (const Edit& edit : edits) {
        texts.append(sentence(edit));
    }
    return texts;
}

QStringList sentences(const QJsonArray& edits)
{
    QStringList texts;
    for (const QJsonValue& edit : edits) {
        const Outcome<QList<Edit>> known = editsOf({edit});
        texts += known.ok() ? sentences(known.value)
                            : QStringList{QString::fromUtf8(
                                  QJsonDocument(edit.toObject()).toJson(QJsonDocument::Compact))};
    }
    return texts;
}

} // namespace working_copy
