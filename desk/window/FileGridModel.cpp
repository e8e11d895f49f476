#include "desk/window/FileGridModel.h"

#include "desk/models/ProblemsModel.h"
#include "embedded_host/widgets/PlainToolTip.h"
#include "table/CellAddress.h"
#include "table/FaultCatalogue.h"
#include "words/Language.h"
#include "words/Words.h"

#include <QFont>

namespace {

constexpr int WholeRow = -1;
constexpr int SpareColumns = 1; // to paste or type a column that the file lacks

QString letters(int column)
{
    return table::cellAddress(0, column).chopped(1); // without the 1
}

} // namespace

FileGridModel::FileGridModel(const Colours& colours, QObject* parent)
    : QAbstractTableModel(parent), mColours(colours)
{
}

void FileGridModel::setCopy(const working_copy::WorkingCopy& copy)
{
    beginResetModel();
    mCopy = copy;
    mMarks.clear();
    endResetModel();
}

void FileGridModel::setEditable(bool editable)
{
    mIsEditable = editable;
}

void FileGridModel::setProblems(const Problems& problems)
{
    mMarks.clear();
    for (const Problem& problem : problems) {
        const int row = problem.fault.line > 0 ? mCopy.rowOfLine(problem.fault.line) : -1;
        if (row < 0) {
            continue;
        }
        Mark& mark = mMarks[{row, problem.column < 0 ? WholeRow : problem.column}];
        mark.severity = qMax(mark.severity, problem.fault.severity);
        mark.reasons.append(words::sentence(problem.fault).simplified());
    }
    tellChanged();
}

QString FileGridModel::reasonsAt(const QModelIndex& index) const
{
    QStringList reasons;
    for (const int column : {index.column(), WholeRow}) {
        if (const Mark* mark = markAt(index.row(), column)) {
            reasons += mark->reasons;
        }
    }
    return reasons.join(QLatin1Char('\n'));
}

bool FileGridModel::edit(const std::function<bool(working_copy::WorkingCopy&)>& change)
{
    working_copy::WorkingCopy changed = mCopy;
    if (!mIsEditable || !change(changed)) {
        return false;
    }
    const bool sameShape =
        changed.rows().size() == mCopy.rows().size() && changed.columnCount() == mCopy.columnCount();
    if (sameShape) {
        mCopy = changed;
        tellChanged();
    } else {
        emit layoutAboutToBeChanged(); // the cells that stay keep selection and place
        mCopy = changed;
        emit layoutChanged();
    }
    emit edited();
    return true;
}

int FileGridModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : mCopy.rows().size();
}

int FileGridModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() || mCopy.rows().isEmpty() ? 0 : mCopy.columnCount() + SpareColumns;
}

const FileGridModel::Mark* FileGridModel::markAt(int row, int column) const
{
    const auto found = mMarks.constFind({row, column});
    return found == mMarks.constEnd() ? nullptr : &*found;
}

QVariant FileGridModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    const working_copy::Row& row = mCopy.rows().at(index.row());
    const Mark* mark = markAt(index.row(), index.column());
    const QString text = row.cells.value(index.column());
    switch (role) {
    case Qt::EditRole:
        return text;
    case Qt::DisplayRole:
        return mark ? ProblemsModel::signOf(mark->severity) + QLatin1Char(' ') + text : text;
    case Qt::ToolTipRole:
        return plainToolTip(reasonsAt(index));
    case Qt::AccessibleTextRole:
        return spoken(index);
    case Qt::BackgroundRole:
        return background(index);
    case Qt::ForegroundRole:
        return row.isLeftOut ? QVariant(mColours(QStringLiteral("disabled"))) : QVariant();
    case Qt::FontRole: {
        QFont font;
        font.setStrikeOut(row.isLeftOut);
        font.setBold(index.row() == 0);
        return row.isLeftOut || index.row() == 0 ? QVariant(font) : QVariant();
    }
    default:
        return {};
    }
}

QVariant FileGridModel::background(const QModelIndex& index) const
{
    if (const Mark* mark = markAt(index.row(), index.column())) {
        const bool isError = mark->severity == table::Severity::Error;
        return mColours(isError ? QStringLiteral("errorSurface") : QStringLiteral("warningSurface"));
    }
    return index.row() == 0 ? QVariant(mColours(QStringLiteral("header"))) : QVariant();
}

/// A screen reader tells neither a colour nor a line through the text.
QString FileGridModel::spoken(const QModelIndex& index) const
{
    const working_copy::Row& row = mCopy.rows().at(index.row());
    QStringList said{row.cells.value(index.column())};
    if (row.isLeftOut) {
        said.append(Words::tr("此行不导入"));
    }
    if (const Mark* mark = markAt(index.row(), index.column())) {
        said.append(ProblemsModel::nameOf(mark->severity));
    }
    const QString reasons = reasonsAt(index);
    if (!reasons.isEmpty()) {
        said.append(reasons);
    }
    return said.join(Words::tr("，"));
}

QString FileGridModel::lineText(const working_copy::Row& row) const
{
    const Mark* mark = markAt(mCopy.rowOfLine(row.line), WholeRow);
    QString text = QString::number(row.line);
    if (row.isAdded) {
        text += QStringLiteral(" +");
    }
    if (row.isLeftOut) {
        text += QStringLiteral(" –");
    }
    return mark ? ProblemsModel::signOf(mark->severity) + QLatin1Char(' ') + text : text;
}

QVariant FileGridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal) {
        return role == Qt::DisplayRole ? QVariant(letters(section)) : QVariant();
    }
    if (section >= mCopy.rows().size()) {
        return {};
    }
    const working_copy::Row& row = mCopy.rows().at(section);
    if (role == Qt::DisplayRole) {
        return lineText(row);
    }
    if (role == Qt::ToolTipRole) {
        const Mark* mark = markAt(section, WholeRow);
        const QString said = row.isLeftOut ? Words::tr("此行不导入（Ctrl+- 恢复）") : QString();
        return plainToolTip(mark ? mark->reasons.join(QLatin1Char('\n')) : said);
    }
    return {};
}

Qt::ItemFlags FileGridModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return mIsEditable ? flags | Qt::ItemIsEditable : flags;
}

bool FileGridModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    const int line = mCopy.rows().value(index.row()).line;
    return role == Qt::EditRole && edit([&](working_copy::WorkingCopy& copy) {
               return copy.setCell(line, index.column(), value.toString());
           });
}

void FileGridModel::tellChanged()
{
    if (rowCount() > 0) {
        emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
        emit headerDataChanged(Qt::Vertical, 0, rowCount() - 1);
    }
}
