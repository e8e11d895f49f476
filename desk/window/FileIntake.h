#pragma once

#include "desk/check/ImportedFile.h"
#include "desk/mapping/Mapping.h"

#include <QList>
#include <QObject>
#include <QString>

#include <optional>

class EmbeddedHost;
namespace strategy {
struct Strategy;
}

/// What is imported on its own: a file, a sheet of one that is named after a strategy, or the rows of one
/// that an import before it left.
struct IntakeItem {
    QString path;
    QString strategy; ///< code; empty: the one that is chosen
    QString sheet;    ///< empty: the one that the reader, the strategy or a mapping chooses
    int offered = 0;  ///< orders of the file that were offered before
    /// Of rows that an import left: the file as it was opened for that import, and the mapping that it took.
    std::shared_ptr<table_reader::TableFile> file;
    std::optional<mapping::Mapping> mapping;

    /// For people, such as "list.csv · AITWAP" or "list.csv · 1001–".
    QString shown() const;
};

/// From a chosen file to the table that the dialog is offered: reads it in the background, finds its sheet,
/// tells a stranger's columns by a mapping, and leaves what is more than one import to the queue. Nothing on
/// screen changes before prepare() answers true.
class FileIntake : public QObject {
    Q_OBJECT

public:
    FileIntake(EmbeddedHost& host, QWidget* window);

    /// Reads the file for an import under the strategy, and asks for a mapping where it needs one. False
    /// where the user gave up, or where the file became several items (queued() was emitted).
    bool prepare(const QString& path, const QString& strategy);
    /// What prepare() read; once.
    std::optional<ImportedFile> take();
    /// The mapping that the file taken was told by.
    const std::optional<mapping::Mapping>& mapping() const { return mTakenMapping; }
    /// Says which mapping a file was told by without a question; empty where none was, or where it was asked;
    /// once.
    QString takeNotice();
    /// What the file taken holds beyond one import; once.
    std::optional<IntakeItem> takeRest();

    /// The next prepare() of this path reads this.
    void expect(const IntakeItem& item) { mExpected = item; }
    /// A sheet or further rows of a file, which what is on screen may be of too.
    bool isExpectingPart() const
    {
        return mExpected && (mExpected->offered > 0 || !mExpected->sheet.isEmpty());
    }
    /// What was expected was read, or became several items.
    bool isSettled() const { return !mExpected && mIsSettled; }
    /// The next prepare() asks for the mapping, even where the header fits or one is remembered.
    void askNext(bool asks) { mAsks = asks; }

signals:
    /// A workbook with filled sheets of several strategies, or of another one.
    void queued(const QList<IntakeItem>& items);

private:
    bool read(const IntakeItem& item, const strategy::Strategy& strategy, bool asks);
    bool readRest(const IntakeItem& item);
    bool tell(ImportedFile& file, const strategy::Strategy& strategy, bool asks);
    bool useRemembered(ImportedFile& file, const strategy::Strategy& strategy);
    bool ask(ImportedFile& file, const strategy::Strategy& strategy,
             const std::optional<mapping::Mapping>& begin);
    void cut(ImportedFile& file, const IntakeItem& item);
    void forget();

    EmbeddedHost& mHost;
    QWidget* mWindow;
    std::optional<IntakeItem> mExpected;
    bool mAsks = false;
    bool mIsSettled = false;
    std::optional<ImportedFile> mFile;
    std::optional<mapping::Mapping> mMapping;
    std::optional<mapping::Mapping> mTakenMapping;
    std::optional<IntakeItem> mRest;
    QString mNotice;
};
