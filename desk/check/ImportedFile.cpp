#include "desk/check/ImportedFile.h"

#include "embedded_host/table_reader/TableFile.h"

ImportedFile ImportedFile::read(const QString& path)
{
    return read(path, table_reader::ReadOptions());
}

ImportedFile ImportedFile::read(const QString& path, table_reader::ReadOptions options)
{
    auto file = std::make_shared<table_reader::TableFile>(path);
    options.inspect = true;
    return {path, file->read(options), file};
}
