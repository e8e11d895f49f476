#pragma once

#include <QString>
#include <QStringList>

#include <ostream>

/// "…" as QString in tests.
inline QString operator""_s(const char* text, std::size_t length)
{
    return QString::fromUtf8(text, int(length));
}

/// Makes gtest print texts instead of bytes.
inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}
