#include "desk/mapping/Mapping.h"

#include "desk/mapping/Cells.h"
#include "embedded_host/reference_data/ReferenceData.h"
#include "host/AlgoConstants.h"
#include "words/Words.h"

#include <QDateTime>
#include <QHash>
#include <QTimeZone>

#include <algorithm>

namespace mapping {

namespace {

namespace Info = Algo_Fields::AlgoInstContentInfo;

/// The file's column, from 0; -1: the row has no such title.
int placeOf(const Column& column, const QStringList& header)
{
    int place = -1;
    for (int number = 0; number < column.number; ++number) {
        place = header.indexOf(column.from, place + 1);
        if (place < 0) {
            return -1;
        }
    }
    return place;
}

bool hasAllTitles(const Mapping& mapping, const QStringList& header)
{
    return std::all_of(mapping.columns.begin(), mapping.columns.end(),
                       [&](const Column& column) { return placeOf(column, header) >= 0; });
}

QString missingTitles(const Mapping& mapping, const QStringList& header)
{
    QStringList missing;
    for (const Column& column : mapping.columns) {
        if (placeOf(column, header) < 0) {
            missing.append(column.from);
        }
    }
    return missing.join(Words::tr("、"));
}

bool isCode(const QString& title)
{
    return title == Info::Symbol || title == QStringLiteral("代码");
}

/// One column of the new table: of the file, the same text everywhere, or the market that the codes name.
struct Target {
    QString title;
    int from = -1; ///< of the file
    const Column* column = nullptr;
    QString constant;
    bool isMarket = false;
};

class Telling {
public:
    Telling(const Mapping& mapping, const table::Table& table, int header, const Surroundings& surroundings)
        : mMapping(mapping), mTable(table), mHeader(header), mSurroundings(surroundings)
    {
        findTargets();
    }

    table::Table told() const
    {
        table::Table told = mTable;
        told.rows.clear();
        told.lines.clear();
        told.inspection = {};
        told.inspection.replacedCharacters = mTable.inspection.replacedCharacters;
        told.inspection.unknownCodePage = mTable.inspection.unknownCodePage;
        QStringList titles;
        for (const Target& target : mTargets) {
            titles.append(target.title);
        }
        append(told, titles, mHeader);
        for (int row = mHeader + 1; row < mTable.rows.size(); ++row) {
            append(told, toldRow(mTable.rows.at(row)), row);
        }
        return told;
    }

private:
    /// The import takes a row for a note whose first two cells are blank: code and market stand there.
    void findTargets()
    {
        const QStringList header = mTable.rows.value(mHeader);
        QList<Target> rest;
        Target market{Info::Exchange, -1, nullptr, QString(), true};
        for (const Column& column : mMapping.columns) {
            const Target target{column.to, placeOf(column, header), &column, QString(), false};
            if (isCode(column.to)) {
                mTargets.append(target);
            } else if (column.to == Info::Exchange) {
                market.from = target.from;
                market.column = target.column;
            } else {
                rest.append(target);
            }
        }
        for (auto constant = mMapping.constants.cbegin(); constant != mMapping.constants.cend(); ++constant) {
            if (constant.key() == Info::Exchange) {
                market.constant = *constant;
            } else {
                rest.append({constant.key(), -1, nullptr, *constant, false});
            }
        }
        mTargets.append(market);
        mTargets.append(rest);
    }

    QStringList toldRow(const QStringList& cells) const
    {
        const bool isEmpty = std::none_of(mTargets.begin(), mTargets.end(), [&](const Target& target) {
            return !cells.value(target.from).trimmed().isEmpty();
        });
        QStringList told;
        for (const Target& target : isEmpty ? QList<Target>() : mTargets) {
            told.append(target.isMarket ? marketOf(target, cells) : cellOf(target, cells));
        }
        return told;
    }

    QString cellOf(const Target& target, const QStringList& cells) const
    {
        return target.column ? toldAnew(*target.column, cells.value(target.from), mSurroundings)
                             : target.constant;
    }

    /// What the row says, else what its code says, else what holds of all rows. Where row and code disagree,
    /// nothing: the import refuses the row.
    QString marketOf(const Target& market, const QStringList& cells) const
    {
        const Column* code = mTargets.isEmpty() ? nullptr : mTargets.first().column;
        const QString codeCell = code ? cells.value(mTargets.first().from) : QString();
        const QString typed =
            market.column ? toldAnew(*market.column, cells.value(market.from), mSurroundings) : QString();
        if (codeCell.trimmed().isEmpty()) {
            return typed;
        }
        const QStringList named = code->form == Form::Code && code->values.isEmpty()
                                      ? codeOf(codeCell, mSurroundings).exchanges
                                      : QStringList();
        const QString said = typed.isEmpty() ? market.constant : typed;
        if (said.isEmpty() || named.isEmpty()) {
            return said.isEmpty() && named.size() == 1 ? named.first() : said;
        }
        const QStringList meant = mSurroundings.markets.value(said.trimmed().toUpper());
        const bool agree = std::any_of(meant.begin(), meant.end(),
                                       [&](const QString& exchange) { return named.contains(exchange); });
        return agree ? said : QString();
    }

    void append(table::Table& told, const QStringList& cells, int row) const
    {
        const auto& inspection = mTable.inspection;
        const int at = told.rows.size();
        if (inspection.hiddenRows.contains(row)) {
            told.inspection.hiddenRows.insert(at);
        }
        if (inspection.struckRows.contains(row)) {
            told.inspection.struckRows.insert(at);
        }
        for (int column = 0; column < mTargets.size() && !cells.isEmpty(); ++column) {
            if (inspection.uncalculated.contains({row, mTargets.at(column).from})) {
                told.inspection.uncalculated.insert({at, column});
            }
        }
        told.rows.append(cells);
        told.lines.append(mTable.lineOf(row));
    }

    const Mapping& mMapping;
    const table::Table& mTable;
    const int mHeader;
    const Surroundings& mSurroundings;
    QList<Target> mTargets;
};

} // namespace

const Column* Mapping::columnTo(const QString& title) const
{
    const auto found = std::find_if(columns.begin(), columns.end(),
                                    [&](const Column& column) { return column.to == title; });
    return found == columns.end() ? nullptr : &*found;
}

Surroundings surroundingsOf(const ReferenceData& data)
{
    Surroundings surroundings;
    surroundings.today = QDateTime::currentDateTime().toTimeZone(QTimeZone("Asia/Shanghai")).date();
    for (const Market& market : data.tables().markets) {
        for (const QString& spelling : QStringList{market.exchange, market.name} + market.aliases) {
            surroundings.markets[spelling.toUpper()] = QStringList{market.exchange};
        }
        surroundings.postfixes[market.post.toUpper()].append(market.exchange);
    }
    for (const Security& security : data.tables().securities) {
        surroundings.codes.insert(security.code);
    }
    // As the data of other houses write Shanghai.
    const QStringList shanghai = surroundings.postfixes.value(QStringLiteral("SH"));
    if (!shanghai.isEmpty() && !surroundings.postfixes.contains(QStringLiteral("SS"))) {
        surroundings.postfixes[QStringLiteral("SS")] = shanghai;
    }
    return surroundings;
}

int headerRow(const Mapping& mapping, const table::Table& table)
{
    for (int row = 0; row < table.rows.size() && row < MostTitleRows; ++row) {
        const bool isNamed = mapping.headerLine == 0 || table.lineOf(row) == mapping.headerLine;
        if (isNamed && hasAllTitles(mapping, table.rows.at(row))) {
            return row;
        }
    }
    return -1;
}

Outcome<table::Table> apply(const Mapping& mapping, const table::Table& table,
                            const Surroundings& surroundings)
{
    if (!table.error.isEmpty()) {
        return {table, QString()};
    }
    if (!mapping.sheet.isEmpty() && mapping.sheet != table.sheet) {
        return {{}, Words::tr("映射要读取工作表“%1”，而读到的是“%2”").arg(mapping.sheet, table.sheet)};
    }
    const int header = headerRow(mapping, table);
    if (header < 0 && mapping.headerLine > 0) {
        const int row =
            table.lines.isEmpty() ? mapping.headerLine - 1 : table.lines.indexOf(mapping.headerLine);
        return {{},
                Words::tr("第 %1 行没有映射所要的列：%2")
                    .arg(QString::number(mapping.headerLine), missingTitles(mapping, table.rows.value(row)))};
    }
    if (header < 0) {
        return {{}, Words::tr("文件中没有一行含有映射所要的全部列：%1").arg(missingTitles(mapping, {}))};
    }
    return {Telling(mapping, table, header, surroundings).told(), QString()};
}

} // namespace mapping
