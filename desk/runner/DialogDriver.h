#pragma once

#include "desk/batch/DraftBuilder.h"
#include "desk/check/ImportedFile.h"
#include "desk/runner/CommandLine.h"
#include "dialog/AlgoBatchImportParamSetting.h"
#include "embedded_host/EmbeddedHost.h"
#include "embedded_host/RecordingPrompts.h"
#include "table/Fault.h"
#include "table/Outcome.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

#include <functional>
#include <memory>

namespace runner {

/// Does at the real dialog what a person would do at the desk, in the same order:
///
///     DialogDriver driver(*host, line);
///     if (!driver.unknownName().isEmpty()) …
///     driver.importFile(ImportedFile::read(driver.path()));
///     driver.switchAccountAndConfirm();
///     QJsonObject json = driver.toJson();
class DialogDriver {
public:
    DialogDriver(EmbeddedHost& host, const CommandLine& line);
    ~DialogDriver();

    /// The first name in the arguments that the reference data does not know; empty when all is known.
    QString unknownName() const;

    /// Constructs the dialog, loads the strategy, chooses the account and presses 导入算法. The dialog takes
    /// the table as it was read.
    void importFile(const ImportedFile& file);
    /// Chooses the other account and presses 确定, each where the arguments ask for it.
    void switchAccountAndConfirm();

    bool isConfirmed() const { return mSignal.isObject(); }
    /// Everything that the runner prints of an import.
    QJsonObject toJson();
    QJsonArray boxes() const;
    const QList<ShownBox>& shownBoxes() const { return mPrompts.boxes(); }
    /// What the error boxes are about: of the file, and of the batch behind it.
    const table::Faults& fileFaults() const { return mFileFaults; }
    const table::Faults& batchFaults() const { return mBatchFaults; }
    table::Faults faults() const { return mFileFaults + mBatchFaults; }
    /// What 确定 would say of the batch; none of an empty one.
    table::Faults confirmationFaults() const;
    /// Titles of the table, and the rows that it shows.
    QStringList columns() const;
    int importedRows() const;
    /// What the desk takes over on confirmation.
    batch::DialogContent content();
    /// Why the imported file has no digest, which a creation needs; empty where it has.
    QString digestError() const { return mDigest.error; }
    /// As the file dialog gave it: absolute, without "." and ".." steps.
    QString path() const { return mPath; }

private:
    QStringList errorTexts() const;
    /// Those found where an error box came up since there were so many.
    table::Faults faultsSince(int boxes, const std::function<table::Faults()>& find) const;

    EmbeddedHost& mHost;
    CommandLine mLine;
    QString mPath;
    table::Table mTable; ///< as the dialog was offered it
    RecordingPrompts mPrompts;
    std::unique_ptr<AlgoBatchImportParamSetting> mDialog;
    Outcome<QString> mDigest;
    QJsonValue mSignal = QJsonValue::Null;
    table::Faults mFileFaults;
    table::Faults mBatchFaults;
};

} // namespace runner
