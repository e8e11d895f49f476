#pragma once

#include <QColor>
#include <QHash>
#include <QPalette>
#include <QString>
#include <QStringList>

/// The colours of one skin by name, such as "surface", "buy" or "warning"; every skin has the same names.
class SkinColours {
public:
    /// Reads the skin's table; an unknown skin has no colours.
    static SkinColours ofSkin(const QString& skin);
    /// The skins that there are.
    static QStringList skins();

    bool isEmpty() const { return mColours.isEmpty(); }
    QStringList names() const { return mColours.keys(); }
    /// Invalid for an unknown name.
    QColor colour(const QString& name) const { return mColours.value(name); }
    /// A style sheet in which "@name" stands for a colour, with the colours put in.
    QString filledIn(QString sheet) const;
    /// For what draws itself by the palette.
    QPalette palette() const;

private:
    QHash<QString, QColor> mColours;
};
