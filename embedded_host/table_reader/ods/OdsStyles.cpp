#include "embedded_host/table_reader/ods/OdsStyles.h"

#include "embedded_host/table_reader/ods/OdsNames.h"
#include "embedded_host/table_reader/shared/Limits.h"

namespace table_reader {
namespace {

using ods::value;

constexpr int LongestLineage = 16; // of styles that build on each other

} // namespace

void OdsStyles::read(XmlPart& part)
{
    while (part.nextChild()) {
        if (part.is(ods::Style, QLatin1String("style"))) {
            readStyle(part);
        } else if (part.is(ods::DataStyle, QLatin1String("time-style"))) {
            readTimeFormat(part);
        } else {
            part.skip();
        }
    }
}

/// Hidden sheets are told by their style: style:table-properties table:display="false".
void OdsStyles::readStyle(XmlPart& part)
{
    const XmlAttributes attributes = part.attributes();
    const QString name = value(attributes, ods::Style, "name").toString();
    const QString family = value(attributes, ods::Style, "family").toString();
    CellStyle cell;
    cell.parent = value(attributes, ods::Style, "parent-style-name").toString();
    cell.format = value(attributes, ods::Style, "data-style-name").toString();
    while (part.nextChild()) {
        const XmlAttributes own = part.attributes();
        if (part.is(ods::Style, QLatin1String("table-properties")) && family == QLatin1String("table") &&
            value(own, ods::TableSpace, "display") == QLatin1String("false")) {
            mHiddenTables.insert(name);
        } else if (part.is(ods::Style, QLatin1String("text-properties"))) {
            const QStringRef line = value(own, ods::Style, "text-line-through-style");
            const QStringRef type = value(own, ods::Style, "text-line-through-type");
            const QStringRef said = line.isEmpty() ? type : line;
            cell.struck = said.isEmpty() ? -1 : said == QLatin1String("none") ? 0 : 1;
        }
        part.skip();
    }
    if (family == QLatin1String("table-cell") && mCells.size() < limits::CellStyles) {
        mCells.insert(name, cell);
    }
}

void OdsStyles::readTimeFormat(XmlPart& part)
{
    const XmlAttributes attributes = part.attributes();
    const bool runsOn = value(attributes, ods::DataStyle, "truncate-on-overflow") == QLatin1String("false");
    if (!runsOn && mTimesOfDay.size() < limits::CellStyles) {
        mTimesOfDay.insert(value(attributes, ods::Style, "name").toString());
    }
    part.skip();
}

void OdsStyles::readNamed(ZipArchive& archive)
{
    const QString name = QStringLiteral("styles.xml");
    XmlPart part(archive, name);
    if (!archive.contains(name) || !part.begin(ods::Office, QLatin1String("document-styles"))) {
        return;
    }
    while (part.nextChild()) {
        if (part.is(ods::Office, QLatin1String("styles"))) {
            read(part);
        } else {
            part.skip();
        }
    }
}

bool OdsStyles::isStruck(const QString& style) const
{
    QString name = style;
    for (int step = 0; step < LongestLineage; ++step) {
        const auto cell = mCells.constFind(name);
        if (cell == mCells.cend()) {
            return false;
        }
        if (cell->struck >= 0) {
            return cell->struck == 1;
        }
        name = cell->parent;
    }
    return false;
}

bool OdsStyles::showsTimeOfDay(const QString& style) const
{
    QString name = style;
    for (int step = 0; step < LongestLineage; ++step) {
        const auto cell = mCells.constFind(name);
        if (cell == mCells.cend()) {
            return false;
        }
        if (!cell->format.isEmpty()) {
            return mTimesOfDay.contains(cell->format);
        }
        name = cell->parent;
    }
    return false;
}

} // namespace table_reader
