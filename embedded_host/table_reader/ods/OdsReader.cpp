#include "embedded_host/table_reader/ods/OdsReader.h"

#include "embedded_host/table_reader/ods/OdsNames.h"
#include "embedded_host/table_reader/ods/OdsSheet.h"
#include "embedded_host/table_reader/ods/OdsSheetList.h"
#include "embedded_host/table_reader/shared/Messages.h"

#include <algorithm>

namespace table_reader {
namespace {

using ods::value;

const QString ContentPart = QStringLiteral("content.xml");
const QString ManifestPart = QStringLiteral("META-INF/manifest.xml");
const QString TypePart = QStringLiteral("mimetype");
constexpr QLatin1String SpreadsheetType = latin1("application/vnd.oasis.opendocument.spreadsheet");

/// What the manifest says of the archive.
struct ManifestFacts {
    QString type;
    bool encrypted = false;
};

ManifestFacts readManifest(ZipArchive& archive, QString& error)
{
    ManifestFacts facts;
    XmlPart part(archive, ManifestPart);
    if (!archive.contains(ManifestPart)) {
        return facts;
    }
    part.begin(ods::Manifest, QLatin1String("manifest"));
    while (!part.hasError() && part.nextChild()) {
        const XmlAttributes attributes = part.attributes();
        if (value(attributes, ods::Manifest, "full-path") == QLatin1String("/")) {
            facts.type = value(attributes, ods::Manifest, "media-type").toString();
        }
        while (part.nextChild()) {
            facts.encrypted = facts.encrypted || part.is(ods::Manifest, QLatin1String("encryption-data"));
            part.skip();
        }
    }
    error = part.finish();
    return facts;
}

class OdsContent {
public:
    /// `sheet`: number of the sheet to read; -1: the first that can be seen.
    OdsContent(const ReadOptions& options, int sheet) : mOptions(options), mWanted(sheet) {}

    QString read(ZipArchive& archive, table::Table& table);
    bool found() const { return mFound; }
    int sheets() const { return mSheets; }
    /// Number of the sheet that was read.
    int readSheet() const { return mRead; }

private:
    void readBody(XmlPart& part, table::Table& table);
    void readSheets(XmlPart& part, table::Table& table);
    bool isWanted(const XmlAttributes& attributes) const;

    const ReadOptions& mOptions;
    int mWanted;
    int mSheets = 0;
    bool mFound = false;
    bool mStopped = false; ///< behind the last row wanted
    int mRead = -1;
    OdsStyles mStyles;
};

QString OdsContent::read(ZipArchive& archive, table::Table& table)
{
    if (mOptions.inspect) {
        mStyles.readNamed(archive);
    }
    XmlPart part(archive, ContentPart);
    if (!part.begin(ods::Office, QLatin1String("document-content"))) {
        return part.error();
    }
    while (!mStopped && part.nextChild()) {
        if (part.is(ods::Office, QLatin1String("automatic-styles"))) {
            mStyles.read(part);
        } else if (part.is(ods::Office, QLatin1String("body"))) {
            readBody(part, table);
        } else {
            part.skip();
        }
    }
    return part.finish();
}

void OdsContent::readBody(XmlPart& part, table::Table& table)
{
    while (!mStopped && part.nextChild()) {
        if (part.is(ods::Office, QLatin1String("spreadsheet"))) {
            readSheets(part, table);
        } else {
            part.skip();
        }
    }
}

void OdsContent::readSheets(XmlPart& part, table::Table& table)
{
    while (!mStopped && part.nextChild()) {
        if (!part.is(ods::TableSpace, QLatin1String("table"))) {
            part.skip();
            continue;
        }
        const XmlAttributes attributes = part.attributes();
        if (!isWanted(attributes)) {
            part.skip();
        } else {
            mFound = true;
            mRead = mSheets;
            table.sheet = value(attributes, ods::TableSpace, "name").toString();
            SheetRows rows(mOptions, table);
            OdsSheet sheet(part, mStyles, rows);
            sheet.read();
            rows.finish();
            mStopped = sheet.isFull();
        }
        ++mSheets;
    }
}

bool OdsContent::isWanted(const XmlAttributes& attributes) const
{
    if (mFound) {
        return false;
    }
    if (!mOptions.sheet.isEmpty()) {
        return value(attributes, ods::TableSpace, "name") == mOptions.sheet;
    }
    return mWanted < 0 ? !mStyles.isHiddenTable(value(attributes, ods::TableSpace, "style-name").toString())
                       : mWanted == mSheets;
}

} // namespace

bool isOdsArchive(ZipArchive& archive)
{
    QString type;
    if (archive.contains(TypePart)) {
        PartStream part(archive, TypePart);
        type = part.begin().isEmpty() ? QString::fromLatin1(part.read(256)) : QString();
    } else {
        QString error;
        type = readManifest(archive, error).type;
    }
    return type.startsWith(SpreadsheetType);
}

QString readOds(ZipArchive& archive, const ReadOptions& options, table::Table& table)
{
    QString error;
    const ManifestFacts facts = readManifest(archive, error);
    if (facts.encrypted || !error.isEmpty()) {
        return facts.encrypted ? message::encrypted() : error;
    }
    OdsContent visible(options, -1);
    error = visible.read(archive, table);
    if (error.isEmpty() && visible.sheets() == 0) {
        return message::noSheet();
    }
    if (error.isEmpty() && !visible.found() && !options.sheet.isEmpty()) {
        return message::noSuchSheet(options.sheet);
    }
    if (error.isEmpty() && !visible.found()) {
        error = OdsContent(options, 0).read(archive, table);
    }
    if (error.isEmpty() && options.inspect) {
        table.sheets = listOdsSheets(archive, std::max(visible.readSheet(), 0), table);
    }
    return error;
}

} // namespace table_reader
