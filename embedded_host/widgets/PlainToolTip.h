#pragma once

#include <QString>
#include <QTextDocument>

/// A tool tip that shows `text` as it stands: Qt would draw a text that looks like markup as markup.
inline QString plainToolTip(const QString& text)
{
    return Qt::mightBeRichText(text) ? QStringLiteral("<span>%1</span>").arg(text.toHtmlEscaped()) : text;
}
