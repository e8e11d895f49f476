#include "embedded_host/table_writer/XlsxDraft.h"
#include "embedded_host/templates/TemplateFormats.h"
#include "embedded_host/templates/TemplateTexts.h"
#include "table/Table.h"

#include <xlsxwriter.h>

#include <QDateTime>
#include <QSet>

#include <memory>
#include <vector>

namespace template_files {

namespace {

constexpr int LastTypedRow = table::MostOrders; ///< 0-based: the header comes first
constexpr int MaxSheetName = 31;
constexpr int MaxListLength = 255; ///< of a drop-down list, separators included
constexpr double LeastWidth = 10.0;
constexpr double DateWidth = 20.0;
constexpr double WidthPerCharacter = 2.2; ///< of Chinese text, in widths of a digit

const QString CellDateFormat = QStringLiteral("yyyy-MM-dd HH:mm:ss");

struct Formats {
    lxw_format* header;
    lxw_format* requiredHeader;
    lxw_format* note;
    lxw_format* verbatim;
    lxw_format* whole;
    lxw_format* decimal;
    lxw_format* dateTime;
};

lxw_format* numberFormat(lxw_workbook* workbook, const char* pattern)
{
    lxw_format* format = workbook_add_format(workbook);
    format_set_num_format(format, pattern);
    return format;
}

lxw_format* headerFormat(lxw_workbook* workbook, lxw_color_t fill)
{
    lxw_format* format = workbook_add_format(workbook);
    format_set_bold(format);
    format_set_bg_color(format, fill);
    format_set_border(format, LXW_BORDER_THIN);
    format_set_num_format(format, "@"); // a text it stays, however it is edited
    return format;
}

Formats addFormats(lxw_workbook* workbook)
{
    constexpr lxw_color_t optionalFill = 0xE7E6E6;
    constexpr lxw_color_t requiredFill = 0xFFE699;
    constexpr lxw_color_t noteColor = 0x7F7F7F;
    lxw_format* note = workbook_add_format(workbook);
    format_set_font_color(note, noteColor);
    return {headerFormat(workbook, optionalFill),
            headerFormat(workbook, requiredFill),
            note,
            numberFormat(workbook, "@"),
            numberFormat(workbook, "0"),
            numberFormat(workbook, "General"),
            numberFormat(workbook, "yyyy-mm-dd hh:mm:ss")};
}

lxw_format* formatOf(CellKind kind, const Formats& formats)
{
    switch (kind) {
    case CellKind::Verbatim:
        return formats.verbatim;
    case CellKind::Whole:
        return formats.whole;
    case CellKind::Decimal:
        return formats.decimal;
    case CellKind::DateTime:
        return formats.dateTime;
    case CellKind::Text:
        break;
    }
    return nullptr;
}

/// Sheet names have neither these characters nor an apostrophe at an end, and differ in more than letter
/// case.
QString sheetName(const QString& wanted, QSet<QString>& taken)
{
    QString base = wanted;
    for (const QChar forbidden : QStringLiteral("[]:*?/\\'")) {
        base.replace(forbidden, QLatin1Char('_'));
    }
    base = base.isEmpty() ? QStringLiteral("_") : base;
    QString name = base.left(MaxSheetName);
    for (int i = 2; taken.contains(name.toLower()); ++i) {
        const QString suffix = QLatin1Char('_') + QString::number(i);
        name = base.left(MaxSheetName - suffix.size()) + suffix;
    }
    taken.insert(name.toLower());
    return name;
}

class SheetWriter {
public:
    SheetWriter(lxw_worksheet* worksheet, const Formats& formats) : mWorksheet(worksheet), mFormats(formats)
    {
    }

    void write(const TemplateSheet& sheet)
    {
        for (int i = 0; i < sheet.columns.size(); ++i) {
            writeColumn(lxw_col_t(i), sheet.columns.at(i));
        }
        for (const QString& note : sheet.notes) {
            writeText(nextRow(), 2, note, mFormats.note);
        }
        writeExample(nextRow(), sheet);
        for (int i = 0; i < sheet.columns.size(); ++i) {
            addChoices(lxw_col_t(i), sheet.columns.at(i));
        }
        worksheet_freeze_panes(mWorksheet, 1, 0);
    }

private:
    lxw_row_t nextRow() { return ++mRow; }

    void writeText(lxw_row_t row, lxw_col_t column, const QString& text, lxw_format* format)
    {
        if (!text.isEmpty()) {
            worksheet_write_string(mWorksheet, row, column, text.toUtf8().constData(), format);
        }
    }

    void writeColumn(lxw_col_t index, const TemplateColumn& column)
    {
        const double width = column.kind == CellKind::DateTime
                                 ? DateWidth
                                 : qMax(LeastWidth, column.title.size() * WidthPerCharacter);
        worksheet_set_column(mWorksheet, index, index, width, formatOf(column.kind, mFormats));
        writeText(0, index, column.title, column.required ? mFormats.requiredHeader : mFormats.header);
    }

    void writeExample(lxw_row_t row, const TemplateSheet& sheet)
    {
        const QStringList cells = sheet.exampleRow();
        for (int i = 0; i < cells.size(); ++i) {
            writeTyped(row, lxw_col_t(i), cells.at(i), sheet.columns.at(i).kind);
        }
    }

    void writeTyped(lxw_row_t row, lxw_col_t column, const QString& cell, CellKind kind)
    {
        if (cell.isEmpty()) {
            return;
        }
        lxw_format* format = formatOf(kind, mFormats);
        const QDateTime moment = QDateTime::fromString(cell, CellDateFormat);
        if (kind == CellKind::DateTime && moment.isValid()) {
            const QDate date = moment.date();
            const QTime time = moment.time();
            lxw_datetime value{date.year(), date.month(),  date.day(),
                               time.hour(), time.minute(), double(time.second())};
            worksheet_write_datetime(mWorksheet, row, column, &value, format);
        } else if (kind == CellKind::Whole || kind == CellKind::Decimal) {
            worksheet_write_number(mWorksheet, row, column, cell.toDouble(), format);
        } else {
            writeText(row, column, cell, format);
        }
    }

    /// A drop-down list that warns and lets pass: other spellings, such as those of a market, are accepted
    /// too.
    void addChoices(lxw_col_t index, const TemplateColumn& column)
    {
        if (column.accepted.isEmpty() || column.accepted.join(QLatin1Char(',')).size() > MaxListLength) {
            return;
        }
        std::vector<QByteArray> texts;
        texts.reserve(std::size_t(column.accepted.size()));
        for (const QString& value : column.accepted) {
            texts.push_back(value.toUtf8());
        }
        std::vector<char*> list;
        list.reserve(texts.size() + 1);
        for (QByteArray& text : texts) {
            list.push_back(text.data());
        }
        list.push_back(nullptr);
        QByteArray title = template_texts::choiceTitle().toUtf8();
        QByteArray hint =
            template_texts::choiceHint().arg(column.title, column.note).left(MaxListLength).toUtf8();
        lxw_data_validation validation{};
        validation.validate = LXW_VALIDATION_TYPE_LIST;
        validation.value_list = list.data();
        validation.error_type = LXW_VALIDATION_ERROR_TYPE_WARNING;
        validation.error_title = title.data();
        validation.error_message = hint.data();
        worksheet_data_validation_range(mWorksheet, mRow, index, LastTypedRow, index, &validation);
    }

    lxw_worksheet* mWorksheet;
    const Formats& mFormats;
    lxw_row_t mRow = 0; ///< the last one written
};

} // namespace

QByteArray xlsxBytes(const QList<TemplateSheet>& sheets, QString& error)
{
    table_writer::XlsxDraft draft;
    lxw_workbook* const workbook = draft.workbook();
    if (workbook != nullptr) {
        const Formats formats = addFormats(workbook);
        QSet<QString> names;
        for (const TemplateSheet& sheet : sheets) {
            const QByteArray name = sheetName(sheet.name, names).toUtf8();
            SheetWriter(workbook_add_worksheet(workbook, name.constData()), formats).write(sheet);
        }
    }
    return draft.close(error);
}

} // namespace template_files
