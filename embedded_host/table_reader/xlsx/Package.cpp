#include "embedded_host/table_reader/xlsx/Package.h"

#include "embedded_host/table_reader/xlsx/SpreadsheetNames.h"

#include <QUrl>

namespace table_reader {
namespace {

QString folderOf(const QString& part)
{
    return part.left(part.lastIndexOf(QLatin1Char('/')) + 1);
}

QString referencesOf(const QString& part)
{
    const QString folder = folderOf(part);
    return folder + QStringLiteral("_rels/") + part.mid(folder.size()) + QStringLiteral(".rels");
}

/// A target from the root of the archive: "/xl/a.xml" is absolute, "a.xml" and "../a.xml" go from the part's
/// folder.
QString resolve(const QString& folder, QString target)
{
    target.replace(QLatin1Char('\\'), QLatin1Char('/'));
    const QString path = target.startsWith(QLatin1Char('/')) ? target.mid(1) : folder + target;
    QStringList names;
    for (const QString& name : path.split(QLatin1Char('/'), Qt::SkipEmptyParts)) {
        if (name != QLatin1String("..")) {
            if (name != QLatin1String(".")) {
                names.append(name);
            }
        } else if (!names.isEmpty()) {
            names.removeLast();
        }
    }
    return names.join(QLatin1Char('/'));
}

PartReference referenceOf(const XmlAttributes& attributes, const QString& folder, const ZipArchive& archive)
{
    const QString type = attributes.value(QLatin1String("Type")).toString();
    QString target = resolve(folder, attributes.value(QLatin1String("Target")).toString());
    if (!archive.contains(target)) {
        const QString plain = QUrl::fromPercentEncoding(target.toUtf8());
        target = archive.contains(plain) ? plain : target;
    }
    return {attributes.value(QLatin1String("Id")).toString(),
            type.mid(type.lastIndexOf(QLatin1Char('/')) + 1), target};
}

/// Where the archive's own references name no workbook, its list of content types does.
QString workbookByContentType(ZipArchive& archive, QString& error)
{
    XmlPart part(archive, QStringLiteral("[Content_Types].xml"));
    QString workbook;
    if (!part.begin(ContentTypes, QLatin1String("Types"))) {
        error = part.error();
        return QString();
    }
    while (part.nextChild()) {
        const XmlAttributes attributes = part.attributes();
        const QStringRef type = attributes.value(QLatin1String("ContentType"));
        const bool isWorkbook =
            type.contains(QLatin1String("spreadsheetml")) || type.contains(QLatin1String("ms-excel"));
        if (isWorkbook && type.contains(QLatin1String(".main"))) {
            workbook = resolve(QString(), attributes.value(QLatin1String("PartName")).toString());
        }
        part.skip();
    }
    error = part.finish();
    return workbook;
}

} // namespace

QVector<PartReference> readReferences(ZipArchive& archive, const QString& part, QString& error)
{
    QVector<PartReference> references;
    const QString name = referencesOf(part);
    if (!archive.contains(name)) {
        return references;
    }
    XmlPart list(archive, name);
    if (list.begin(PackageRelationship, QLatin1String("Relationships"))) {
        const QString folder = folderOf(part);
        while (list.nextChild()) {
            const XmlAttributes attributes = list.attributes();
            if (attributes.value(QLatin1String("TargetMode")) != QLatin1String("External")) {
                references.append(referenceOf(attributes, folder, archive));
            }
            list.skip();
        }
    }
    error = list.finish();
    return references;
}

QString findWorkbook(ZipArchive& archive, QString& error)
{
    const QVector<PartReference> references = readReferences(archive, QString(), error);
    for (const PartReference& reference : references) {
        if (reference.kind == QLatin1String("officeDocument")) {
            return reference.target;
        }
    }
    const bool hasTypes = archive.contains(QStringLiteral("[Content_Types].xml"));
    return error.isEmpty() && hasTypes ? workbookByContentType(archive, error) : QString();
}

} // namespace table_reader
