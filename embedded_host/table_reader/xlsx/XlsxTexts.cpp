#include "embedded_host/table_reader/xlsx/XlsxTexts.h"

#include "embedded_host/table_reader/shared/Messages.h"
#include "embedded_host/table_reader/xlsx/SpreadsheetNames.h"
#include "embedded_host/table_reader/xlsx/SpreadsheetText.h"

namespace table_reader {
namespace {

/// Looks at the list of texts up to the last one that a cell wants.
QString readTexts(ZipArchive& archive, const QString& name, SharedTexts& texts)
{
    XmlPart part(archive, name);
    if (!part.begin(Sheet, QLatin1String("sst"))) {
        return part.error();
    }
    qint64 index = 0;
    while (texts.next() >= index && part.nextChild()) {
        if (!part.is(Sheet, QLatin1String("si"))) {
            part.skip();
            continue;
        }
        if (index++ != texts.next()) {
            part.skip();
            continue;
        }
        const QString refused = texts.supply(readRichText(part));
        if (!refused.isEmpty()) {
            return refused;
        }
    }
    const QString error = part.finish();
    return error.isEmpty() && texts.next() >= 0 ? message::badSharedText(texts.nextCell()) : error;
}

} // namespace

QString supplyXlsxTexts(ZipArchive& archive, const QString& part, SharedTexts& texts)
{
    if (texts.isEmpty()) {
        return QString();
    }
    texts.sort();
    if (part.isEmpty() || texts.next() < 0) {
        return message::badSharedText(texts.nextCell());
    }
    return readTexts(archive, part, texts);
}

} // namespace table_reader
