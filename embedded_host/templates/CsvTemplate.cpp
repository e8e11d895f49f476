#include "embedded_host/table_writer/CsvText.h"
#include "embedded_host/templates/TemplateFormats.h"

namespace template_files {

QByteArray csvBytes(const TemplateSheet& sheet)
{
    return table_writer::csvText(sheet.rows());
}

} // namespace template_files
