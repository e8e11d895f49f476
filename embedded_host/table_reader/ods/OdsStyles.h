#pragma once

#include <QHash>
#include <QSet>
#include <QString>

namespace table_reader {

class XmlPart;
class ZipArchive;

/// What the styles of an OpenDocument spreadsheet say of tables and cells.
class OdsStyles {
public:
    /// Reads a list of styles, whose element is current and is then left.
    void read(XmlPart& part);
    /// Reads the styles that a user names; what is wrong with them is left aside.
    void readNamed(ZipArchive& archive);

    bool isHiddenTable(const QString& style) const { return mHiddenTables.contains(style); }
    bool isStruck(const QString& style) const;
    /// Shows the time of a day alone, whatever the day; not hours that run on beyond it.
    bool showsTimeOfDay(const QString& style) const;

private:
    struct CellStyle {
        QString parent;
        QString format;
        int struck = -1; ///< -1: as the parent
    };
    void readStyle(XmlPart& part);
    void readTimeFormat(XmlPart& part);

    QSet<QString> mHiddenTables;
    QSet<QString> mTimesOfDay; ///< formats
    QHash<QString, CellStyle> mCells;
};

} // namespace table_reader
