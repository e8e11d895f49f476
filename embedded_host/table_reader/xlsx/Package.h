#pragma once

#include <QString>
#include <QVector>

namespace table_reader {

class ZipArchive;

struct PartReference {
    QString id;
    QString kind;   ///< last word of the relationship's type, such as worksheet or styles
    QString target; ///< name of the part, from the archive's root
};

/// The parts that a part refers to. A part without a list of its own refers to none. `error` takes what is
/// wrong.
QVector<PartReference> readReferences(ZipArchive& archive, const QString& part, QString& error);

/// Name of the workbook's part; empty where the archive holds no Office workbook. `error` takes what is
/// wrong.
QString findWorkbook(ZipArchive& archive, QString& error);

} // namespace table_reader
