#include "embedded_host/skin/SkinColours.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

QStringList SkinColours::skins()
{
    return {QStringLiteral("light"), QStringLiteral("dark")};
}

SkinColours SkinColours::ofSkin(const QString& skin)
{
    SkinColours result;
    QFile file(QStringLiteral(":/skin/colours/%1.json").arg(skin));
    if (!skins().contains(skin) || !file.open(QIODevice::ReadOnly)) {
        return result;
    }
    const QJsonObject colours = QJsonDocument::fromJson(file.readAll()).object();
    for (auto it = colours.begin(); it != colours.end(); ++it) {
        result.mColours.insert(it.key(), QColor(it.value().toString()));
    }
    return result;
}

QString SkinColours::filledIn(QString sheet) const
{
    QStringList longestFirst = mColours.keys(); // "lineSoft" before "line"
    std::sort(longestFirst.begin(), longestFirst.end(),
              [](const QString& a, const QString& b) { return a.size() > b.size(); });
    for (const QString& name : qAsConst(longestFirst)) {
        sheet.replace(QLatin1Char('@') + name, mColours.value(name).name());
    }
    return sheet;
}

QPalette SkinColours::palette() const
{
    static const QList<QPair<QPalette::ColorRole, QString>> Roles = {
        {QPalette::Window, QStringLiteral("window")},
        {QPalette::WindowText, QStringLiteral("text")},
        {QPalette::Base, QStringLiteral("surface")},
        {QPalette::AlternateBase, QStringLiteral("alternate")},
        {QPalette::Text, QStringLiteral("text")},
        {QPalette::PlaceholderText, QStringLiteral("muted")},
        {QPalette::Button, QStringLiteral("button")},
        {QPalette::ButtonText, QStringLiteral("text")},
        {QPalette::BrightText, QStringLiteral("error")},
        {QPalette::Highlight, QStringLiteral("selection")},
        {QPalette::HighlightedText, QStringLiteral("selectionText")},
        {QPalette::ToolTipBase, QStringLiteral("surface")},
        {QPalette::ToolTipText, QStringLiteral("text")},
        {QPalette::Link, QStringLiteral("accent")},
        {QPalette::Mid, QStringLiteral("line")},
        {QPalette::Midlight, QStringLiteral("lineSoft")},
    };
    QPalette palette(colour(QStringLiteral("button")), colour(QStringLiteral("window")));
    for (const auto& role : Roles) {
        palette.setColor(role.first, colour(role.second));
    }
    for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, colour(QStringLiteral("disabled")));
    }
    return palette;
}
