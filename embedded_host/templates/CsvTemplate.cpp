#include "embedded_host/table_reader/CsvText.h"
#include "embedded_host/templates/TemplateFormats.h"

namespace template_files {

QByteArray csvBytes(const TemplateSheet& sheet)
{
    return table_reader::csvText(sheet.rows());
}

} // namespace template_files
