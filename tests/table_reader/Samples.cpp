#include "tests/table_reader/Samples.h"

#include "embedded_host/table_reader/xls/BiffStream.h"

#include <zip.h>

#include <cstring>

#undef signals
#include <gsf/gsf.h>

namespace samples {
namespace {

const QByteArray XmlHead("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
const QByteArray OfficeRelationships("http://schemas.openxmlformats.org/officeDocument/2006/relationships");

} // namespace

const QByteArray SheetNamespace("xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\"");
const QByteArray RelationshipsOpen(
    "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">");

QByteArray zip(const Parts& parts, bool compressed)
{
    zip_source_t* buffer = zip_source_buffer_create(nullptr, 0, 0, nullptr);
    zip_source_keep(buffer);
    zip_t* archive = zip_open_from_source(buffer, ZIP_TRUNCATE, nullptr);
    for (const auto& part : parts) {
        const auto size = static_cast<zip_uint64_t>(part.second.size());
        zip_source_t* content = zip_source_buffer(archive, part.second.constData(), size, 0);
        const zip_int64_t entry =
            zip_file_add(archive, part.first.toUtf8().constData(), content, ZIP_FL_ENC_UTF_8);
        if (!compressed) {
            zip_set_file_compression(archive, static_cast<zip_uint64_t>(entry), ZIP_CM_STORE, 0);
        }
    }
    zip_close(archive);

    zip_stat_t written;
    zip_source_stat(buffer, &written);
    QByteArray bytes(static_cast<int>(written.size), Qt::Uninitialized);
    zip_source_open(buffer);
    zip_source_read(buffer, bytes.data(), written.size);
    zip_source_close(buffer);
    zip_source_free(buffer);
    return bytes;
}

QByteArray relationship(const char* id, const char* kind, const char* target)
{
    return QByteArray("<Relationship Id=\"") + id + "\" Type=\"" + OfficeRelationships + "/" + kind +
           "\" Target=\"" + target + "\"/>";
}

QByteArray worksheet(const QByteArray& sheetData, const QByteArray& behind)
{
    return XmlHead + "<worksheet " + SheetNamespace + "><sheetData>" + sheetData + "</sheetData>" + behind +
           "</worksheet>";
}

Xlsx::Xlsx()
    : workbook(XmlHead + "<workbook " + SheetNamespace + " xmlns:r=\"" + OfficeRelationships +
               "\"><sheets><sheet name=\"委托\" sheetId=\"1\" r:id=\"rId1\"/></sheets></workbook>"),
      references(relationship("rId1", "worksheet", "worksheets/sheet1.xml") +
                 relationship("rId2", "styles", "styles.xml") +
                 relationship("rId3", "sharedStrings", "sharedStrings.xml"))
{
    cellStyles = "<xf numFmtId=\"0\"/>";
    texts = "";
}

Parts Xlsx::parts() const
{
    Parts parts = {{QStringLiteral("_rels/.rels"),
                    XmlHead + RelationshipsOpen + relationship("r", "officeDocument", "xl/workbook.xml") +
                        "</Relationships>"},
                   {QStringLiteral("xl/workbook.xml"), workbook},
                   {QStringLiteral("xl/_rels/workbook.xml.rels"),
                    XmlHead + RelationshipsOpen + references + "</Relationships>"},
                   {QStringLiteral("xl/worksheets/sheet1.xml"),
                    worksheet(sheetData, behindData).replace("<sheetData>", beforeData + "<sheetData>")}};
    if (!cellStyles.isNull()) {
        parts.append({QStringLiteral("xl/styles.xml"), XmlHead + "<styleSheet " + SheetNamespace +
                                                           "><numFmts>" + numberFormats +
                                                           "</numFmts><fonts>" + fonts + "</fonts><cellXfs>" +
                                                           cellStyles + "</cellXfs></styleSheet>"});
    }
    if (!texts.isNull()) {
        parts.append({QStringLiteral("xl/sharedStrings.xml"),
                      XmlHead + "<sst " + SheetNamespace + ">" + texts + "</sst>"});
    }
    return parts + more;
}

QByteArray ods(const QByteArray& tables, const QByteArray& styles, const QByteArray& manifest,
               bool compressed, const Parts& more)
{
    const QByteArray content =
        XmlHead +
        "<office:document-content xmlns:office=\"urn:oasis:names:tc:opendocument:xmlns:office:1.0\" "
        "xmlns:table=\"urn:oasis:names:tc:opendocument:xmlns:table:1.0\" "
        "xmlns:text=\"urn:oasis:names:tc:opendocument:xmlns:text:1.0\" "
        "xmlns:style=\"urn:oasis:names:tc:opendocument:xmlns:style:1.0\" "
        "xmlns:calcext=\"urn:org:documentfoundation:names:experimental:calc:xmlns:calcext:1.0\" "
        "xmlns:number=\"urn:oasis:names:tc:opendocument:xmlns:datastyle:1.0\" "
        "xmlns:draw=\"urn:oasis:names:tc:opendocument:xmlns:drawing:1.0\">"
        "<office:automatic-styles>" +
        styles + "</office:automatic-styles><office:body><office:spreadsheet>" + tables +
        "</office:spreadsheet></office:body></office:document-content>";
    Parts parts = {{QStringLiteral("mimetype"), "application/vnd.oasis.opendocument.spreadsheet"},
                   {QStringLiteral("content.xml"), content}};
    if (!manifest.isEmpty()) {
        parts.append({QStringLiteral("META-INF/manifest.xml"),
                      XmlHead +
                          "<manifest:manifest "
                          "xmlns:manifest=\"urn:oasis:names:tc:opendocument:xmlns:manifest:1.0\">" +
                          manifest + "</manifest:manifest>"});
    }
    return zip(parts + more, compressed);
}

QByteArray word(int value)
{
    QByteArray bytes(2, '\0');
    bytes[0] = static_cast<char>(value & 0xFF);
    bytes[1] = static_cast<char>(value >> 8 & 0xFF);
    return bytes;
}

QByteArray dword(quint32 value)
{
    return word(static_cast<int>(value & 0xFFFF)) + word(static_cast<int>(value >> 16));
}

QByteArray real(double value)
{
    quint64 bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return dword(static_cast<quint32>(bits)) + dword(static_cast<quint32>(bits >> 32));
}

QByteArray text8(const QString& text, int lengthBytes)
{
    bool wide = false;
    for (const QChar c : text) {
        wide = wide || c.unicode() > 0xFF;
    }
    const QByteArray length = lengthBytes == 1 ? word(text.size()).left(1) : word(text.size());
    QByteArray characters;
    for (const QChar c : text) {
        characters += wide ? word(c.unicode()) : word(c.unicode()).left(1);
    }
    return length + char(wide ? 1 : 0) + characters;
}

Biff& Biff::record(quint16 type, const QByteArray& data)
{
    mBytes += word(type) + word(data.size()) + data;
    return *this;
}

Biff& Biff::cell(quint16 type, int row, int column, int style, const QByteArray& data)
{
    return record(type, word(row) + word(column) + word(style) + data);
}

Biff& Biff::number(int row, int column, double value, int style)
{
    return cell(table_reader::biff::Number, row, column, style, real(value));
}

Biff& Biff::begin(quint16 version, quint16 kind)
{
    return record(table_reader::biff::Bof, word(version) + word(kind) + QByteArray(12, '\0'));
}

Biff& Biff::end()
{
    return record(table_reader::biff::Eof);
}

namespace {

QByteArray sheetEntry(quint16 version, const XlsSheet& sheet, int position)
{
    const QByteArray name = version == table_reader::biff::Version8
                                ? text8(QString::fromUtf8(sheet.name), 1)
                                : word(sheet.name.size()).left(1) + sheet.name;
    return dword(static_cast<quint32>(position)) + char(sheet.visibility) + char(sheet.kind) + name;
}

QByteArray globalsOf(quint16 version, const QByteArray& globals, const QList<XlsSheet>& sheets,
                     const QList<int>& positions)
{
    Biff all;
    all.begin(version, 0x05);
    QByteArray bytes = all.bytes() + globals;
    for (int at = 0; at < sheets.size(); ++at) {
        bytes +=
            Biff()
                .record(table_reader::biff::BoundSheet, sheetEntry(version, sheets.at(at), positions.at(at)))
                .bytes();
    }
    return bytes + Biff().end().bytes();
}

} // namespace

QByteArray workbookStream(quint16 version, const QByteArray& globals, const QList<XlsSheet>& sheets)
{
    QList<int> positions;
    for (int at = 0; at < sheets.size(); ++at) {
        positions.append(0);
    }
    int position = globalsOf(version, globals, sheets, positions).size();
    QByteArray bodies;
    for (int at = 0; at < sheets.size(); ++at) {
        positions[at] = position + bodies.size();
        bodies += Biff().begin(version, 0x10).bytes() + sheets.at(at).records + Biff().end().bytes();
    }
    return globalsOf(version, globals, sheets, positions) + bodies;
}

QByteArray ole(const Parts& streams)
{
    gsf_init();
    GsfOutput* const memory = gsf_output_memory_new();
    GsfOutfile* const container = gsf_outfile_msole_new(memory);
    for (const auto& stream : streams) {
        GsfOutput* const output = gsf_outfile_new_child(container, stream.first.toUtf8().constData(), FALSE);
        gsf_output_write(output, static_cast<size_t>(stream.second.size()),
                         reinterpret_cast<const guint8*>(stream.second.constData()));
        gsf_output_close(output);
        g_object_unref(output);
    }
    gsf_output_close(GSF_OUTPUT(container));
    const QByteArray bytes(
        reinterpret_cast<const char*>(gsf_output_memory_get_bytes(GSF_OUTPUT_MEMORY(memory))),
        static_cast<int>(gsf_output_size(memory)));
    g_object_unref(container);
    g_object_unref(memory);
    return bytes;
}

QByteArray xls(const QByteArray& records, const QByteArray& globals)
{
    return ole({{QStringLiteral("Workbook"),
                 workbookStream(table_reader::biff::Version8, globals, {{"委托", records}})}});
}

} // namespace samples
