#pragma once

#include <QList>
#include <QString>
#include <QStringList>

/// A spreadsheet file of texts.
namespace workbook {

struct Sheet {
    QString name;
    QList<QStringList> rows;
};

/// An xlsx file with these sheets; false where it cannot be written.
bool write(const QString& path, const QList<Sheet>& sheets);

} // namespace workbook
