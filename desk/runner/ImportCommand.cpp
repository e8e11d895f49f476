#include "desk/runner/Commands.h"
#include "desk/runner/Runner.h"
#include "desk/runner/Session.h"
#include "desk/runner/WidgetJson.h"
#include "dialog/AlgoBatchImportParamSetting.h"
#include "embedded_host/RecordingPrompts.h"
#include "host/AlgoConstants.h"
#include "host/AlgoTradeLogicNew.h"
#include "host/SolveyAccountComboBox.h"

#include <QDir>
#include <QFileInfo>
#include <QPushButton>

#include <optional>

namespace runner {

namespace {

/// As a file dialog gives it: absolute, without "." and ".." steps.
QString chosenPath(const QString& file)
{
    return QDir::cleanPath(QFileInfo(file).absoluteFilePath());
}

/// The first thing in the arguments that the reference data does not know; empty when all is known.
QString unknownName(const CommandLine& line, const ReferenceData& data)
{
    const AesStrategy* strategy = data.strategy(line.strategy);
    if (strategy == nullptr || strategy->globalType() != Algo_Values::AlgoGlobalType::algo) {
        return QStringLiteral("unknown strategy '%1'").arg(line.strategy);
    }
    if (data.account(line.account) == nullptr) {
        return QStringLiteral("unknown account '%1'").arg(line.account);
    }
    if (!line.switchAccount.isEmpty() && data.account(line.switchAccount) == nullptr) {
        return QStringLiteral("unknown account '%1'").arg(line.switchAccount);
    }
    return QString();
}

void press(const AlgoBatchImportParamSetting& dialog, const char* button)
{
    dialog.findChild<QPushButton*>(QString::fromLatin1(button))->click();
}

/// What a person would do at the desk, in the same order.
QJsonValue driveImport(AlgoBatchImportParamSetting& dialog, const CommandLine& line)
{
    QJsonValue signal = QJsonValue::Null;
    QObject::connect(&dialog, &AlgoBatchImportParamSetting::signalBtnOkClicked, &dialog,
                     [&signal](bool createdClose) {
                         signal = QJsonObject{{QStringLiteral("name"), QStringLiteral("signalBtnOkClicked")},
                                              {QStringLiteral("createdClose"), createdClose}};
                     });
    auto* accounts = dialog.findChild<SolveyAccountComboBox*>(QStringLiteral("combx_account"));
    accounts->SetCurTradingAccount(line.account);
    press(dialog, "btn_import");
    if (!line.switchAccount.isEmpty()) {
        accounts->SetCurTradingAccount(line.switchAccount);
    }
    if (line.confirm) {
        press(dialog, "btn_ok");
    }
    return signal;
}

} // namespace

Outcome importFile(const CommandLine& line)
{
    if (line.strategy.isEmpty() || line.account.isEmpty()) {
        return refuse(QStringLiteral("import needs --strategy CODE and --account ACCOUNT"));
    }
    QString error;
    const std::unique_ptr<EmbeddedHost> host = openHost(line, error);
    if (!host) {
        return refuse(error);
    }
    const QString unknown = unknownName(line, host->referenceData());
    if (!unknown.isEmpty()) {
        return refuse(unknown);
    }
    RecordingPrompts prompts;
    prompts.setFileToOpen(chosenPath(line.files.first()));
    prompts.setAnswerYes(line.answerYes);
    host->setPrompts(&prompts);

    AlgoBatchImportParamSetting dialog(nullptr, SelectableStrategy);
    dialog.CreateStrategyInitWidget(AlgoTradeLogicNew::GetInstance()->GetStrategy(line.strategy));
    const QJsonValue signal = driveImport(dialog, line);

    QJsonObject json = dialogToJson(dialog);
    json[QStringLiteral("strategy")] = line.strategy;
    json[QStringLiteral("account")] = line.account;
    json[QStringLiteral("messageBoxes")] = boxesToJson(prompts.boxes());
    json[QStringLiteral("signal")] = signal;
    return {prompts.boxes().isEmpty() ? Done : Complained, QJsonDocument(json), QString()};
}

} // namespace runner
