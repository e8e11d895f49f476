#include "import/HeaderMatching.h"

#include "host/AlgoConstants.h"

namespace import {

namespace {

/// The file column that supplies a table column: under its title, else under an alias of either direction; -1
/// for none.
int fileColumn(const QStringList& fileHeader, const QString& title, const QMap<QString, QString>& aliases)
{
    const int direct = fileHeader.indexOf(title);
    if (direct >= 0) {
        return direct;
    }
    const auto alias = aliases.constFind(title);
    if (alias != aliases.constEnd() && fileHeader.contains(*alias)) {
        return fileHeader.indexOf(*alias);
    }
    const QString key = aliases.key(title);
    return key.isEmpty() ? -1 : fileHeader.indexOf(key);
}

} // namespace

HeaderMatch matchHeader(const QStringList& fileHeader, const WantedColumns& wanted)
{
    HeaderMatch match;
    for (const QString& title : wanted.titles) {
        if (title == Algo_Values::AlgoParamId::traderOrder) {
            match.directionColumn = fileHeader.indexOf(title);
        } else if (title == Algo_Values::AlgoParamId::entrustProp) {
            match.entrustPropColumn = fileHeader.indexOf(title);
        }
        const int column = fileColumn(fileHeader, title, wanted.aliases);
        if (column >= 0) {
            match.columnIndexMap[title] = column;
        } else if (wanted.compulsory.contains(title) || wanted.required.contains(title)) {
            match.missingColumn = title;
            return match;
        } else {
            match.optionalMissing.append(title);
        }
    }
    return match;
}

} // namespace import
