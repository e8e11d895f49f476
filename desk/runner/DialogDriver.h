#pragma once

#include "desk/batch/DraftBuilder.h"
#include "desk/runner/CommandLine.h"
#include "dialog/AlgoBatchImportParamSetting.h"
#include "embedded_host/EmbeddedHost.h"
#include "embedded_host/RecordingPrompts.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

#include <memory>

namespace runner {

/// Does at the real dialog what a person would do at the desk, in the same order:
///
///     DialogDriver driver(*host, line);
///     if (!driver.unknownName().isEmpty()) …
///     driver.importFile();
///     driver.switchAccountAndConfirm();
///     QJsonObject json = driver.toJson();
class DialogDriver {
public:
    DialogDriver(EmbeddedHost& host, const CommandLine& line);
    ~DialogDriver();

    /// The first name in the arguments that the reference data does not know; empty when all is known.
    QString unknownName() const;

    /// Constructs the dialog, loads the strategy, chooses the account and presses 导入算法.
    void importFile();
    /// Chooses the other account and presses 确定, each where the arguments ask for it.
    void switchAccountAndConfirm();

    bool isConfirmed() const { return mSignal.isObject(); }
    /// Everything that the runner prints of an import.
    QJsonObject toJson();
    QJsonArray boxes() const;
    const QList<ShownBox>& shownBoxes() const { return mPrompts.boxes(); }
    /// What the desk takes over on confirmation.
    batch::DialogContent content();
    /// As the file dialog gave it: absolute, without "." and ".." steps.
    QString path() const { return mPath; }

private:
    EmbeddedHost& mHost;
    CommandLine mLine;
    QString mPath;
    QString mSha256;
    RecordingPrompts mPrompts;
    std::unique_ptr<AlgoBatchImportParamSetting> mDialog;
    QJsonValue mSignal = QJsonValue::Null;
};

} // namespace runner
