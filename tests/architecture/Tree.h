#pragma once

#include <gtest/gtest.h>

#include <QFile>
#include <QString>

/// The project's own files, as a test reads them.
namespace tree {

const QString Root = QStringLiteral(SOURCE_ROOT);

inline QString textOf(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    return QString::fromUtf8(file.readAll());
}

} // namespace tree
