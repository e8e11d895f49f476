#pragma once

#include <QList>
#include <QString>

/// A FIX message made readable: its fields by their names, as the gateway's own dictionaries have them.
namespace wire_text {

struct Field {
    int tag = 0;
    QString name; ///< "ClOrdID"; empty where no dictionary has the tag
    QString value;
};

/// In the order of the wire; what is no field is left out.
QList<Field> fieldsOf(const QString& message);
/// The first value of a tag; empty where there is none.
QString valueOf(const QList<Field>& fields, int tag);
/// What a message of a type (35) is: "执行回报 ExecutionReport"; of a type that nobody knows, the type.
QString messageName(const QString& type);
/// "ClOrdID=A-1 Symbol=600000 …": what is not of the session itself.
QString summaryOf(const QList<Field>& fields);

} // namespace wire_text
