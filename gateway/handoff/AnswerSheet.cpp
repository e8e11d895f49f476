#include "gateway/handoff/AnswerSheet.h"

#include "files/CsvTokenizer.h"
#include "gateway/handoff/FieldNames.h"
#include "words/Words.h"

#include <QTextCodec>

#include <algorithm>
#include <optional>

namespace gateway {

namespace {

constexpr int MostRows = 20000;
constexpr int MostColumns = 64;
constexpr int MostCharacters = 1024;

const int MsgType = 35;
const int ClOrdId = 11;
const int OrdStatus = 39;
const int ExecType = 150;
const int StatusRequestId = 790;

std::optional<QString> decoded(const QByteArray& bytes)
{
    QTextCodec::ConverterState state;
    const QString text =
        QTextCodec::codecForName("UTF-8")->toUnicode(bytes.constData(), bytes.size(), &state);
    return state.invalidChars > 0 || state.remainingChars > 0 ? std::nullopt : std::make_optional(text);
}

/// The fields of the columns; empty with a sentence where one is not known or stands twice.
QList<int> fieldsOf(const QStringList& header, QString& fault)
{
    QList<int> tags;
    for (const QString& cell : header.mid(0, MostColumns + 1)) {
        const QString column = cell.trimmed();
        const int tag = tagOfColumn(column);
        if (tag == 0 || tags.contains(tag)) {
            fault = (tag == 0 ? Words::tr("不认识的列“%1”") : Words::tr("列“%1”重复"))
                        .arg(column.left(MostCharacters));
            return {};
        }
        tags.append(tag);
    }
    for (const int tag : {ClOrdId, OrdStatus}) {
        if (!tags.contains(tag)) {
            fault = Words::tr("缺少列“%1”").arg(columnOf(tag));
            return {};
        }
    }
    return tags;
}

/// What of the row nobody can read; empty: nothing.
QString faultOf(const QStringList& row, const QList<int>& tags)
{
    if (row.size() > tags.size()) {
        return Words::tr("有 %1 个单元格，表头只有 %2 列").arg(row.size()).arg(tags.size());
    }
    const bool isLong =
        std::any_of(row.begin(), row.end(), [](const QString& cell) { return cell.size() > MostCharacters; });
    return isLong ? Words::tr("单元格超过 %1 个字符").arg(MostCharacters) : QString();
}

/// An answer to a question names it: what was true of an earlier one may no longer be.
QString faultOf(const Message& answer)
{
    if (answer.type != "8" && answer.type != "9") {
        return Words::tr("MsgType 应为 8 或 9：%1").arg(QString::fromStdString(answer.type));
    }
    return answer.text(ExecType) == "I" && !answer.has(StatusRequestId)
               ? Words::tr("状态答复缺少 OrdStatusReqID")
               : QString();
}

Message answerOf(const QStringList& row, const QList<int>& tags, int line)
{
    Message answer;
    answer.type = "8";
    QString fault = faultOf(row, tags);
    for (int i = 0; i < row.size() && fault.isEmpty(); ++i) {
        const std::string value = row.at(i).trimmed().toStdString();
        if (tags.at(i) == MsgType && !value.empty()) {
            answer.type = value;
        } else if (!value.empty()) {
            answer.put(tags.at(i), value);
        }
    }
    fault = fault.isEmpty() ? faultOf(answer) : fault;
    return fault.isEmpty() ? answer : unreadable(Words::tr("第 %1 行：%2").arg(line).arg(fault));
}

bool isBlank(const QStringList& row)
{
    return std::all_of(row.begin(), row.end(), [](const QString& cell) { return cell.trimmed().isEmpty(); });
}

/// Records that are ended, with their lines; whether the last one was.
struct Records {
    QList<QStringList> rows;
    QList<int> lines;
    bool isWhole = false;
};

Records split(const QString& text)
{
    files::CsvTokenizer csv(QLatin1Char(','));
    csv.feed(text);
    csv.finish();
    Records records;
    QStringList row;
    while (records.rows.size() <= MostRows && csv.next(row)) {
        records.rows.append(row);
        records.lines.append(csv.recordLine());
    }
    records.isWhole = !csv.hasOpenQuote();
    if (csv.hasOpenQuote() && !records.rows.isEmpty()) {
        records.rows.removeLast();
    }
    return records;
}

/// The file as far as it is written: behind the last line end a number may be half there.
QByteArray endedPart(const QByteArray& bytes)
{
    return bytes.left(bytes.lastIndexOf('\n') + 1);
}

AnswerSheet faulty(const QString& fault)
{
    AnswerSheet sheet;
    sheet.fault = fault;
    return sheet;
}

} // namespace

AnswerSheet AnswerSheet::read(const QByteArray& bytes)
{
    if (bytes.size() > MostAnswerBytes) {
        return faulty(Words::tr("文件超过 %1 MiB").arg(MostAnswerBytes / (1024 * 1024)));
    }
    const QByteArray ended = endedPart(bytes);
    const std::optional<QString> text = decoded(ended);
    if (!text || text->contains(QChar(0))) {
        return faulty(Words::tr("不是有效的 UTF-8 文本"));
    }
    const Records records = split(*text);
    if (records.rows.size() > MostRows) {
        return faulty(Words::tr("超过 %1 行").arg(MostRows));
    }
    AnswerSheet sheet;
    sheet.isWhole = records.isWhole && ended.size() == bytes.size() && !records.rows.isEmpty();
    const QList<int> tags =
        records.rows.isEmpty() ? QList<int>() : fieldsOf(records.rows.first(), sheet.fault);
    for (int i = 1; i < records.rows.size() && sheet.fault.isEmpty(); ++i) {
        if (!isBlank(records.rows.at(i))) {
            sheet.rows.append(records.rows.at(i));
            sheet.answers.push_back(answerOf(records.rows.at(i), tags, records.lines.at(i)));
        }
    }
    return sheet;
}

Message unreadable(const QString& why)
{
    Message message;
    message.put(58, why.toStdString());
    return message;
}

} // namespace gateway
