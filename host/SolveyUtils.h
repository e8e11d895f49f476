#pragma once

#include "host/HostApi.h"

#include <QList>
#include <QPoint>
#include <QString>
#include <QStringList>

class QWidget;

/// Where a pop-up goes.
enum class WidgetShowPosType {
    /// Its top left corner at the mouse.
    CursorPos = 0,
    /// Its top left corner on its parent's; without a parent at the desktop's origin.
    ParentTopLeft = 1,
    /// Its middle over that of its parent's window, else of the active window, else of the screen.
    ActiveWindowCenter = 2,
};

/// File types that the open-file dialog offers.
enum class ExportFileFormat { AllTables = 0, Csv = 1, Spreadsheet = 2 };

/// How much of a workbook is read.
enum class ReadTableCfg {
    AllSheets = 0,  ///< the dialog never asks for it; what a host gives then is its own affair
    FirstSheet = 1, ///< the first sheet that can be seen
};

/// Files and windows. GUI thread only.
class ALGO_HOST_API SolveyUtils {
public:
    /// Asks the user for a table file; empty when cancelled.
    static QString GetOpenTableFileName(QWidget* parent, const QString& title, const QString& directory,
                                        const ExportFileFormat& format);
    /// Reads a csv or spreadsheet file into rows of cell texts, blanks included. Rows beyond the 1,002nd may
    /// be left out: the dialog takes a header and 1,000 rows, and one more tells it that there are too many.
    /// On failure fills `error` with a text for the user and returns no rows; otherwise leaves it empty.
    static QList<QStringList> ReadTableData(const QString& path, ReadTableCfg cfg, QString& error);
    /// Saves the template file of a type (SolveyConstants::TemplateFileType), asking the user where. `names`
    /// are aliases of strategies (AesStrategy::alias()), or SolveyConstants::AllTemplates. True when it was
    /// saved; false when the user gave up, or was already told why it could not be.
    static bool DownloadTemplateFile(const QString& fileType, QWidget* parent, const QStringList& names);
    /// Where to show `widget`, which has its final size: pixels on the desktop, for QWidget::move() of a
    /// window.
    static QPoint GetWidgetPos(QWidget* widget, WidgetShowPosType type);
};
