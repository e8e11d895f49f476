#include "embedded_host/templates/TemplateFormats.h"
#include "files/CsvText.h"

namespace template_files {

QByteArray csvBytes(const TemplateSheet& sheet)
{
    return files::csvText(sheet.rows());
}

} // namespace template_files
