// The press on 确定: the whole batch is checked once more, then handed to the host.

#include "dialog/AlgoBatchImportParamSetting.h"
#include "dialog/DialogSettings.h"
#include "dialog/ErrorBox.h"
#include "dialog/Logging.h"
#include "strategy/Traits.h"
#include "table/FaultCatalogue.h"
#include "ui_AlgoBatchImportParamSetting.h"
#include "validation/BatchRules.h"

/// The disabled button guards against a second press until the host has dealt with the first.
void AlgoBatchImportParamSetting::slotBtnOkClicked()
{
    if (!ui->btn_ok->isEnabled()) {
        return;
    }
    ui->btn_ok->setEnabled(false);

    const QString error = batchError();
    if (!error.isEmpty()) {
        error_box::show(error);
        ui->btn_ok->setEnabled(true);
        return;
    }
    mIsCreatedClose = created_close_setting::choice(created_close_setting::read()).value_or(true);
    emit signalBtnOkClicked(mIsCreatedClose);
}

QString AlgoBatchImportParamSetting::batchError()
{
    const std::optional<table::Fault> fault =
        validation::faultOfChoice({ui->cbx_algoType->currentText(), mStrategy.name(), mStrategy.alias()},
                                  ui->combx_account->GetCurTradingAccount());
    if (fault) {
        return table::sentence(*fault);
    }
    const bool lock = strategy::traitsOf(mStrategy.name()).has(strategy::Lock);
    return lock ? checkAILOCK() : checkAccounTypesInParamsMap();
}

void AlgoBatchImportParamSetting::slotBtnCancelClicked()
{
    emit signalBtnCancelClicked();
}

void AlgoBatchImportParamSetting::slotResetOkBtn()
{
    ui->btn_ok->setEnabled(true);
}

QList<QMap<QString, QVariant>> AlgoBatchImportParamSetting::getWidgetData()
{
    if (mAllParamVarMapLst.isEmpty()) {
        qCDebug(lcDialog) << Q_FUNC_INFO << "can not get widget data!";
    }
    return mAllParamVarMapLst;
}
