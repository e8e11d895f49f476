#include "desk/check/ImportedFile.h"

#include "embedded_host/table_reader/TableFile.h"

ImportedFile ImportedFile::read(const QString& path, const QString& encoding)
{
    auto file = std::make_shared<table_reader::TableFile>(path);
    table_reader::ReadOptions options;
    options.encoding = encoding;
    options.inspect = true;
    return {path, file->read(options), file};
}
