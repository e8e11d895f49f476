#pragma once

#include <QList>
#include <QString>
#include <QStringList>

/// What the dialog had to say about an imported file or a batch, one entry a fault.
struct Problem {
    enum class Place {
        Whole,   ///< the file or the batch as a whole; `line` is 0
        FileRow, ///< a row of the file; `line` 1 is the header
        BatchRow ///< a row of the table shown; `line` 1 is the first one
    };

    Place place = Place::Whole;
    int line = 0;
    /// Title in the file, or of the strategy where the file has no such title; empty: unknown.
    QString column;
    QString cell;   ///< what stands in the file at that place, as it stands
    QString reason; ///< as the dialog put it
};

/// Reads problems out of the texts of the dialog's message boxes, the one way in which the dialog tells them:
///
///     导入文件中包含以下错误:
///     第3行：风格参数不支持，目前支持：激进-aggressive,平稳-neutral,
namespace import_problems {

/// One problem for every row named; a text that names none is one problem of the whole.
QList<Problem> fromBoxText(const QString& text);

/// Fills in the column titles and raw cells of the problems of file rows. `rows` are the file's, header
/// first.
void locate(QList<Problem>& problems, const QList<QStringList>& rows);

/// The column of the file that carries a title of the strategy, by its own title or a shorter one (代码 for
/// 证券代码); -1 when there is none.
int columnOf(const QString& title, const QStringList& header);

} // namespace import_problems
