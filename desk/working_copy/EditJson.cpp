// What the ledger keeps of edits, and what was kept.

#include "desk/working_copy/WorkingCopy.h"

#include <QJsonObject>

namespace working_copy {

namespace {

struct KindName {
    Edit::Kind kind;
    const char* name;
};

const KindName KindNames[] = {{Edit::Kind::Type, "type"},
                              {Edit::Kind::Paste, "paste"},
                              {Edit::Kind::Replace, "replace"},
                              {Edit::Kind::LeaveOut, "leaveOut"},
                              {Edit::Kind::TakeIn, "takeIn"}};

QString key(const char* name)
{
    return QString::fromLatin1(name);
}

QString nameOf(Edit::Kind kind)
{
    for (const KindName& known : KindNames) {
        if (known.kind == kind) {
            return QString::fromLatin1(known.name);
        }
    }
    return QString();
}

const KindName* kindNamed(const QString& name)
{
    for (const KindName& known : KindNames) {
        if (name == QLatin1String(known.name)) {
            return &known;
        }
    }
    return nullptr;
}

QJsonObject cellToJson(const CellChange& change)
{
    return {{key("line"), change.line},
            {key("column"), change.column + 1},
            {key("title"), change.title},
            {key("from"), change.before},
            {key("to"), change.after}};
}

CellChange cellOf(const QJsonObject& json)
{
    return {json[key("line")].toInt(), json[key("column")].toInt() - 1, json[key("title")].toString(),
            json[key("from")].toString(), json[key("to")].toString()};
}

QJsonObject toJson(const Edit& edit)
{
    QJsonObject json{{key("edit"), nameOf(edit.kind)}};
    QJsonArray cells;
    for (const CellChange& change : edit.cells) {
        cells.append(cellToJson(change));
    }
    QJsonArray rows;
    for (const AddedRow& row : edit.rows) {
        rows.append(
            QJsonObject{{key("line"), row.line}, {key("cells"), QJsonArray::fromStringList(row.cells)}});
    }
    QJsonArray lines;
    for (const int line : edit.lines) {
        lines.append(line);
    }
    for (const auto& part :
         {qMakePair(key("cells"), cells), qMakePair(key("rows"), rows), qMakePair(key("lines"), lines)}) {
        if (!part.second.isEmpty()) {
            json[part.first] = part.second;
        }
    }
    return json;
}

QStringList textsOf(const QJsonArray& json)
{
    QStringList texts;
    for (const QJsonValue& text : json) {
        texts.append(text.toString());
    }
    return texts;
}

Edit editOf(const QJsonObject& json, Edit::Kind kind)
{
    Edit edit;
    edit.kind = kind;
    for (const QJsonValue& cell : json[key("cells")].toArray()) {
        edit.cells.append(cellOf(cell.toObject()));
    }
    for (const QJsonValue& row : json[key("rows")].toArray()) {
        edit.rows.append({row[key("line")].toInt(), textsOf(row[key("cells")].toArray())});
    }
    for (const QJsonValue& line : json[key("lines")].toArray()) {
        edit.lines.append(line.toInt());
    }
    return edit;
}

} // namespace

QJsonArray toJson(const QList<Edit>& edits)
{
    QJsonArray json;
    for (const Edit& edit : edits) {
        json.append(toJson(edit));
    }
    return json;
}

Outcome<QList<Edit>> editsOf(const QJsonArray& json)
{
    QList<Edit> edits;
    for (const QJsonValue& edit : json) {
        const KindName* known = kindNamed(edit[key("edit")].toString());
        if (known == nullptr) {
            return {edits, QStringLiteral("edit %1 is of no known kind").arg(edits.size() + 1)};
        }
        edits.append(editOf(edit.toObject(), known->kind));
    }
    return {edits, QString()};
}

} // namespace working_copy
