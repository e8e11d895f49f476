#include "embedded_host/table_reader/ods/OdsSheetList.h"

#include "embedded_host/table_reader/ods/OdsNames.h"
#include "embedded_host/table_reader/ods/OdsSheet.h"
#include "embedded_host/table_reader/shared/Limits.h"

namespace table_reader {
namespace {

using ods::value;

/// The name of the sheet that is shown first, somewhere within the current element; empty where nothing says
/// it.
QString activeTable(XmlPart& part)
{
    QString found;
    while (part.nextChild()) {
        const XmlAttributes attributes = part.attributes();
        if (part.is(ods::Config, QLatin1String("config-item")) &&
            value(attributes, ods::Config, "name") == QLatin1String("ActiveTable")) {
            found = part.readText();
        } else {
            const QString inside = activeTable(part); // as deep as limits::NestingDepth lets it be
            found = inside.isEmpty() ? found : inside;
        }
    }
    return found;
}

QString activeTableOf(ZipArchive& archive)
{
    const QString name = QStringLiteral("settings.xml");
    XmlPart part(archive, name);
    const bool isThere =
        archive.contains(name) && part.begin(ods::Office, QLatin1String("document-settings"));
    return isThere ? activeTable(part) : QString();
}

class SheetList {
public:
    SheetList(int readSheet, const table::Table& table) : mReadSheet(readSheet), mTable(table) {}

    QList<table::Sheet> read(ZipArchive& archive);

private:
    void readWithin(XmlPart& part);
    void readSheet(XmlPart& part);

    int mReadSheet;
    const table::Table& mTable;
    OdsStyles mStyles;
    QList<table::Sheet> mSheets;
};

QList<table::Sheet> SheetList::read(ZipArchive& archive)
{
    XmlPart part(archive, QStringLiteral("content.xml"));
    if (part.begin(ods::Office, QLatin1String("document-content"))) {
        readWithin(part);
    }
    const QString active = activeTableOf(archive);
    int shownFirst = 0;
    for (int number = 0; number < mSheets.size(); ++number) {
        shownFirst = !active.isEmpty() && mSheets.at(number).name == active ? number : shownFirst;
    }
    if (!mSheets.isEmpty()) {
        mSheets[shownFirst].active = true;
    }
    return mSheets;
}

void SheetList::readWithin(XmlPart& part)
{
    while (part.nextChild()) {
        if (part.is(ods::Office, QLatin1String("automatic-styles"))) {
            mStyles.read(part);
        } else if (part.is(ods::Office, QLatin1String("body")) ||
                   part.is(ods::Office, QLatin1String("spreadsheet"))) {
            readWithin(part);
        } else if (part.is(ods::TableSpace, QLatin1String("table")) && mSheets.size() < limits::SheetNames) {
            readSheet(part);
        } else {
            part.skip();
        }
    }
}

void SheetList::readSheet(XmlPart& part)
{
    const XmlAttributes attributes = part.attributes();
    const bool isRead = mSheets.size() == mReadSheet;
    const bool isVisible =
        !mStyles.isHiddenTable(value(attributes, ods::TableSpace, "style-name").toString());
    table::Sheet sheet = {value(attributes, ods::TableSpace, "name").toString(), isVisible, false, isRead,
                          isRead ? headOf(mTable) : QStringList()};
    if (isRead || !isVisible || mSheets.size() >= SheetsLookedAt) {
        part.skip();
    } else {
        table::Table table;
        SheetRows rows = SheetRows::forFirstLook(table);
        OdsSheet look(part, mStyles, rows);
        look.read();
        look.leave();
        rows.finish();
        sheet.head = headOf(table);
    }
    mSheets.append(sheet);
}

} // namespace

QList<table::Sheet> listOdsSheets(ZipArchive& archive, int readSheet, const table::Table& table)
{
    return SheetList(readSheet, table).read(archive);
}

} // namespace table_reader
