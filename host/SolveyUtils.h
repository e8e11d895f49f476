#pragma once

#include "host/HostApi.h"

#include <QList>
#include <QPoint>
#include <QString>
#include <QStringList>

class QWidget;

/// Where a pop-up goes.
enum class WidgetShowPosType { CursorPos = 0, ParentTopLeft = 1, ActiveWindowCenter = 2 };

/// File types that the open-file dialog offers.
enum class ExportFileFormat { AllTables = 0, Csv = 1, Spreadsheet = 2 };

/// How a table is read.
enum class ReadTableCfg { AllSheets = 0, FirstSheet = 1 };

/// Files and windows. GUI thread only.
class ALGO_HOST_API SolveyUtils {
public:
    /// Asks the user for a table file; empty when cancelled.
    static QString GetOpenTableFileName(QWidget* parent, const QString& title, const QString& directory,
                                        const ExportFileFormat& format);
    /// Reads a csv or spreadsheet file into rows of cell texts, blanks included. On failure fills `error` with a text
    /// for the user and returns no rows.
    static QList<QStringList> ReadTableData(const QString& path, ReadTableCfg cfg, QString& error);
    /// Saves the template file of a type for the listed strategies, asking the user where; true when it was saved.
    static bool DownloadTemplateFile(const QString& fileType, QWidget* parent, const QStringList& names);
    /// The screen position at which to show `widget`.
    static QPoint GetWidgetPos(QWidget* widget, WidgetShowPosType type);
};
