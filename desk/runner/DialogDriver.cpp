#include "desk/runner/DialogDriver.h"

#include "desk/probe/DialogProbe.h"
#include "desk/runner/Session.h"
#include "desk/runner/WidgetJson.h"
#include "embedded_host/table_reader/TableFile.h"
#include "host/AlgoTradeLogicNew.h"
#include "host/SolveyAccountComboBox.h"
#include "host/ZelMessageBox.h"
#include "host/ZelTableView.h"
#include "words/Words.h"

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
            return Words::tr("没有账户“%1”").arg(account);
        }
    }
    return QString();
}

void DialogDriver::importFile(const ImportedFile& file)
{
    if (mLine.create) {
        mDigest = file.file->sha256();
    }
    mDialog = std::make_unique<AlgoBatchImportParamSetting>(nullptr, SelectableStrategy);
    QObject::connect(mDialog.get(), &AlgoBatchImportParamSetting::signalBtnOkClicked,
                     [this](bool createdClose) {
                         mSignal = QJsonObject{{QStringLiteral("name"), QStringLiteral("signalBtnOkClicked")},
                                               {QStringLiteral("createdClose"), createdClose}};
                     });
    mTable = file.table;
    mDialog->CreateStrategyInitWidget(AlgoTradeLogicNew::GetInstance()->GetStrategy(mLine.strategy));
    const DialogProbe probe(*mDialog);
    probe.accounts().SetCurTradingAccount(mLine.account);
    mHost.offeredTable().offer(mPath, file.table);
    const int boxes = errorTexts().size();
    probe.importButton().click();
    mFileFaults = faultsSince(boxes, [&] { return probe.faults().ofFile(file.table, mPath); });
}

void DialogDriver::switchAccountAndConfirm()
{
    const DialogProbe probe(*mDialog);
    if (!mLine.switchAccount.isEmpty()) {
        const int boxes = errorTexts().size();
        probe.accounts().SetCurTradingAccount(mLine.switchAccount);
        mBatchFaults += faultsSince(
            boxes, [&] { return probe.faults().ofAccount(mDialog->getWidgetData(), mTable, mPath); });
    }
    if (mLine.confirm) {
        const int boxes = errorTexts().size();
        probe.confirmButton().click();
        mBatchFaults += faultsSince(
            boxes, [&] { return probe.faults().ofBatch(mDialog->getWidgetData(), mTable, mPath); });
    }
}

table::Faults DialogDriver::confirmationFaults() const
{
    const validation::Instances batch = mDialog->getWidgetData();
    return batch.isEmpty() ? table::Faults() : DialogProbe(*mDialog).faults().ofBatch(batch, mTable, mPath);
}

QStringList DialogDriver::columns() const
{
    return DialogProbe(*mDialog).table().headNames();
}

int DialogDriver::importedRows() const
{
    return DialogProbe(*mDialog).table().getViewData().size();
}

QStringList DialogDriver::errorTexts() const
{
    QStringList texts;
    for (const ShownBox& box : mPrompts.boxes()) {
        if (box.type == ZelMessageBox::Error) {
            texts.append(box.text);
        }
    }
    return texts;
}

table::Faults DialogDriver::faultsSince(int boxes, const std::function<table::Faults()>& find) const
{
    const QStringList texts = errorTexts();
    return texts.size() > boxes ? DialogFaults::orWords(find(), texts.last()) : table::Faults();
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
    return DialogProbe(*mDialog).content({mPath, mDigest.value, mHost.options().loginAccount});
}

} // namespace runner
