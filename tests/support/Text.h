#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>

#include <ostream>

/// "…"_s is a QString.
inline QString operator""_s(const char* text, std::size_t length)
{
    return QString::fromUtf8(text, static_cast<int>(length));
}

// How gtest prints Qt's values when an expectation fails.

inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QStringList& texts, std::ostream* out)
{
    *out << "[\"" << texts.join(QStringLiteral("\", \"")).toStdString() << "\"]";
}

inline void PrintTo(const QVariant& value, std::ostream* out)
{
    *out << value.typeName() << '(' << value.toString().toStdString() << ')';
}
