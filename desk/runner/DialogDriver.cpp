#include "desk/runner/DialogDriver.h"

#include "desk/probe/DialogProbe.h"
#include "desk/runner/Session.h"
#include "desk/runner/WidgetJson.h"
#include "host/AlgoTradeLogicNew.h"
#include "host/SolveyAccountComboBox.h"

#include <QAbstractButton>
#include <QDir>
#include <QFileInfo>

namespace runner {

DialogDriver::DialogDriver(EmbeddedHost& host, const CommandLine& line)
    : mHost(host), mLine(line), mPath(QDir::cleanPath(QFileInfo(line.files.first()).absoluteFilePath()))
{
    mPrompts.setFileToOpen(mPath);
    mPrompts.setAnswerYes(line.answer == QLatin1String("yes"));
    mHost.setPrompts(&mPrompts);
}

DialogDriver::~DialogDriver()
{
    mHost.setPrompts(nullptr);
}

QString DialogDriver::unknownName() const
{
    const ReferenceData& data = mHost.referenceData();
    const QString fault = unknownStrategy(data, mLine.strategy);
    if (!fault.isEmpty()) {
        return fault;
    }
    for (const QString& account : {mLine.account, mLine.switchAccount}) {
        const bool isNamed = !account.isEmpty() || account == mLine.account;
        if (isNamed && data.account(account) == nullptr) {
            return QStringLiteral("unknown account '%1'").arg(account);
        }
    }
    return QString();
}

void DialogDriver::importFile()
{
    if (mLine.create) {
        mSha256 = batch::sha256OfFile(mPath); // of what is read now, whatever becomes of the file meanwhile
    }
    mDialog = std::make_unique<AlgoBatchImportParamSetting>(nullptr, SelectableStrategy);
    QObject::connect(mDialog.get(), &AlgoBatchImportParamSetting::signalBtnOkClicked,
                     [this](bool createdClose) {
                         mSignal = QJsonObject{{QStringLiteral("name"), QStringLiteral("signalBtnOkClicked")},
                                               {QStringLiteral("createdClose"), createdClose}};
                     });
    mDialog->CreateStrategyInitWidget(AlgoTradeLogicNew::GetInstance()->GetStrategy(mLine.strategy));
    const DialogProbe probe(*mDialog);
    probe.accounts().SetCurTradingAccount(mLine.account);
    probe.importButton().click();
}

void DialogDriver::switchAccountAndConfirm()
{
    const DialogProbe probe(*mDialog);
    if (!mLine.switchAccount.isEmpty()) {
        probe.accounts().SetCurTradingAccount(mLine.switchAccount);
    }
    if (mLine.confirm) {
        probe.confirmButton().click();
    }
}

QJsonObject DialogDriver::toJson()
{
    QJsonObject json = dialogToJson(*mDialog);
    json[QStringLiteral("strategy")] = mLine.strategy;
    json[QStringLiteral("account")] = mLine.account;
    json[QStringLiteral("messageBoxes")] = boxes();
    json[QStringLiteral("signal")] = mSignal;
    return json;
}

QJsonArray DialogDriver::boxes() const
{
    return boxesToJson(mPrompts.boxes());
}

batch::DialogContent DialogDriver::content()
{
    return DialogProbe(*mDialog).content({mPath, mSha256, mHost.options().loginAccount});
}

} // namespace runner
