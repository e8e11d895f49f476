#include "desk/window/FileIntake.h"

#include "desk/mapping/MappedFile.h"
#include "desk/mapping/MappingMemory.h"
#include "desk/mapping/Suggestion.h"
#include "desk/window/MappingDialog.h"
#include "desk/window/Waiting.h"
#include "embedded_host/EmbeddedHost.h"
#include "embedded_host/table_reader/TableFile.h"
#include "words/Words.h"

#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace {

strategy::Strategy strategyOf(const ReferenceData& data, const QString& code)
{
    const AesStrategy* offered = data.strategy(code);
    const auto parsed =
        offered ? strategy::Strategy::parse(offered->name(), offered->alias(), offered->paramFormats())
                : Outcome<strategy::Strategy>{};
    return parsed.ok() && offered ? parsed.value : strategy::Strategy::withoutParameters(code, code);
}

/// Ticker → 证券代码、Side → 交易方向
QString shownColumns(const mapping::Mapping& mapping)
{
    QStringList columns;
    for (const mapping::Column& column : mapping.columns) {
        if (column.from != column.to) {
            columns.append(QStringLiteral("%1 → %2").arg(column.from, column.to));
        }
    }
    for (auto constant = mapping.constants.cbegin(); constant != mapping.constants.cend(); ++constant) {
        columns.append(QStringLiteral("%1 = %2").arg(constant.key(), *constant));
    }
    return columns.join(Words::tr("、"));
}

/// What stands above a header costs no order its place.
constexpr int RowsToMap = table::RowsToRead + mapping::MostTitleRows;

ImportedFile readSheet(const QString& path, const QString& sheet, int rows)
{
    table_reader::ReadOptions options;
    options.sheet = sheet;
    options.maxRows = rows;
    return ImportedFile::read(path, options);
}

/// Whether a mapping is worth a question: some line looks like a header.
bool isOrders(const strategy::Strategy& strategy, const table::Table& table)
{
    return mapping::suggest(strategy, table, {}).mapping.columns.size() > 1;
}

/// A file and, of a workbook of several strategies, its sheets.
struct Opened {
    ImportedFile file;
    QList<mapping::StrategySheet> sheets;
};

} // namespace

QString IntakeItem::shown() const
{
    QStringList parts{QFileInfo(path).fileName()};
    if (!strategy.isEmpty()) {
        parts.append(strategy);
    }
    if (offered > 0) {
        parts.append(Words::tr("第 %1 行起").arg(offered + 1));
    }
    return parts.join(QStringLiteral(" · "));
}

FileIntake::FileIntake(EmbeddedHost& host, QWidget* window) : QObject(window), mHost(host), mWindow(window) {}

bool FileIntake::prepare(const QString& path, const QString& strategy)
{
    forget();
    IntakeItem item;
    item.path = path;
    if (mExpected && mExpected->path == path) {
        item = *mExpected;
    }
    mExpected.reset();
    const bool asks = std::exchange(mAsks, false);
    const bool isRead =
        item.offered > 0 ? readRest(item) : read(item, strategyOf(mHost.referenceData(), strategy), asks);
    mIsSettled = isRead || mIsSettled;
    return isRead;
}

std::optional<ImportedFile> FileIntake::take()
{
    mTakenMapping = std::exchange(mMapping, std::nullopt);
    return std::exchange(mFile, std::nullopt);
}

QString FileIntake::takeNotice()
{
    return std::exchange(mNotice, QString());
}

std::optional<IntakeItem> FileIntake::takeRest()
{
    return std::exchange(mRest, std::nullopt);
}

void FileIntake::forget()
{
    mIsSettled = false;
    mFile.reset();
    mMapping.reset();
    mRest.reset();
    mNotice.clear();
}

bool FileIntake::read(const IntakeItem& item, const strategy::Strategy& strategy, bool asks)
{
    const auto opened = waiting::resultOf<Opened>(
        [path = item.path, sheet = item.sheet, codes = mapping::strategyCodes(mHost.referenceData())] {
            table_reader::ReadOptions options;
            options.sheet = sheet;
            const ImportedFile file = ImportedFile::read(path, options);
            return Opened{file, mapping::strategySheets(file, sheet.isEmpty() ? codes : QStringList())};
        },
        Words::tr("正在读取文件…"), mWindow);
    if (!opened) {
        return false;
    }
    ImportedFile file = opened->file;
    QList<IntakeItem> items;
    bool isOfThis = false;
    for (const mapping::StrategySheet& sheet : qAsConst(opened->sheets)) {
        if (sheet.isFilled) {
            items.append({item.path, sheet.strategy, sheet.strategy, 0, nullptr, std::nullopt});
            isOfThis = isOfThis || sheet.strategy == strategy.code;
        }
    }
    if (items.size() > 1 || (items.size() == 1 && !isOfThis)) {
        mIsSettled = true;
        emit queued(items);
        return false;
    }
    if (items.size() == 1 && file.table.sheet != strategy.code) {
        file = readSheet(item.path, strategy.code, table::RowsToRead);
    }
    if (!tell(file, strategy, asks)) {
        return false;
    }
    cut(file, item);
    mFile = file;
    return true;
}

/// A header that does not fit is told by the mapping that is remembered for it, else by a person.
bool FileIntake::tell(ImportedFile& file, const strategy::Strategy& strategy, bool asks)
{
    if (!file.table.error.isEmpty() || file.table.rows.isEmpty()) {
        return true;
    }
    if (!asks && (mapping::fitsAsItStands(strategy, file.table) || !isOrders(strategy, file.table))) {
        return true;
    }
    if (file.table.rows.size() == table::RowsToRead) {
        file = readSheet(file.path, file.table.sheet, RowsToMap);
    }
    const auto remembered = mapping::MappingMemory(mHost).find(strategy.code, file.table);
    return (!asks && remembered && useRemembered(file, strategy)) || ask(file, strategy, remembered);
}

bool FileIntake::useRemembered(ImportedFile& file, const strategy::Strategy& strategy)
{
    const mapping::Surroundings surroundings = mapping::surroundingsOf(mHost.referenceData());
    const auto known = mapping::MappingMemory(mHost).find(strategy.code, file.table);
    ImportedFile chosen = file;
    if (!known->sheet.isEmpty() && known->sheet != file.table.sheet) {
        chosen = readSheet(file.path, known->sheet, RowsToMap);
    }
    const Outcome<table::Table> told = apply(*known, chosen.table, surroundings);
    if (!told.ok() || !told.value.error.isEmpty() ||
        !gapsOf(*known, strategy, chosen.table, surroundings).isWhole()) {
        return false;
    }
    file = chosen;
    file.table = told.value;
    mMapping = known;
    mNotice = Words::tr("已按记住的映射导入：%1").arg(shownColumns(*known));
    return true;
}

bool FileIntake::ask(ImportedFile& file, const strategy::Strategy& strategy,
                     const std::optional<mapping::Mapping>& begin)
{
    const mapping::Surroundings surroundings = mapping::surroundingsOf(mHost.referenceData());
    ImportedFile chosen = file;
    QStringList sheets;
    for (const table::Sheet& sheet : qAsConst(file.table.sheets)) {
        if (sheet.visible) {
            sheets.append(sheet.name);
        }
    }
    MappingDialog dialog(strategy, file.table, surroundings, mWindow);
    dialog.setSheets(sheets, [&chosen](const QString& sheet) {
        chosen = readSheet(chosen.path, sheet, RowsToMap);
        return chosen.table;
    });
    dialog.start(begin);
    if (dialog.exec() != QDialog::Accepted || dialog.isPlainWanted()) {
        return dialog.isPlainWanted();
    }
    const Outcome<table::Table> told = apply(dialog.mapping(), dialog.table(), surroundings);
    if (dialog.isToBeRemembered()) {
        mapping::MappingMemory(mHost).remember(dialog.mapping(), dialog.table(), file.table);
    } else {
        mapping::MappingMemory(mHost).forget(dialog.mapping(), dialog.table());
    }
    file = chosen;
    file.table = told.value;
    file.table.error = told.error;
    mMapping = dialog.mapping();
    return true;
}

/// The dialog asks of a longer file whether to take its first orders alone: what is left then comes next.
void FileIntake::cut(ImportedFile& file, const IntakeItem& item)
{
    table::Table& table = file.table;
    table.rows = table.rows.mid(0, table::RowsToRead);
    table.lines = table.lines.mid(0, table::RowsToRead);
    if (table.rows.size() == table::RowsToRead) {
        IntakeItem rest = item;
        rest.offered = table::MostOrders;
        rest.sheet = table.sheet;
        rest.mapping = mMapping;
        rest.file = std::make_shared<table_reader::TableFile>(file.path);
        mRest = rest;
    }
}

/// So many orders behind those that were offered, under the header.
bool FileIntake::readRest(const IntakeItem& item)
{
    const mapping::Surroundings surroundings = mapping::surroundingsOf(mHost.referenceData());
    const auto read = waiting::resultOf<table::Table>(
        [item, surroundings] {
            table_reader::ReadOptions options;
            options.sheet = item.sheet;
            options.inspect = true;
            options.maxRows = item.offered + table::RowsToRead + mapping::MostTitleRows;
            const table::Table whole = item.file->read(options);
            if (!item.mapping) {
                return whole;
            }
            Outcome<table::Table> told = apply(*item.mapping, whole, surroundings);
            told.value.error += told.error;
            return told.value;
        },
        Words::tr("正在读取文件…"), mWindow);
    if (!read) {
        return false;
    }
    ImportedFile file{item.path, *read, item.file};
    table::Table& table = file.table;
    if (table.error.isEmpty()) {
        const bool isMore = table.rows.size() > item.offered + table::MostOrders + 1;
        table.rows = table.rows.mid(0, 1) + table.rows.mid(item.offered + 1, table::MostOrders);
        table.lines = table.lines.mid(0, 1) + table.lines.mid(item.offered + 1, table::MostOrders);
        table.inspection = {}; // its rows are those of the whole file
        if (isMore) {
            mRest = item;
            mRest->offered += table::MostOrders;
            mRest->file = std::make_shared<table_reader::TableFile>(item.path);
        }
    }
    mMapping = item.mapping;
    mFile = file;
    return true;
}
