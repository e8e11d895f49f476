// Another account was chosen: every instance and every leg must trade through it.

#include "dialog/AlgoBatchImportParamSetting.h"
#include "dialog/ErrorBox.h"
#include "ui_AlgoBatchImportParamSetting.h"
#include "validation/AccountRules.h"
#include "validation/ValidationTexts.h"

namespace {

constexpr error_box::Growth WiderBox = {35, 20};

} // namespace

void AlgoBatchImportParamSetting::slotCbxAccountChanged()
{
    ui->btn_ok->setEnabled(true);
    const table::Faults faults =
        validation::changeAccount(mAllParamVarMapLst, ui->combx_account->currentData(Qt::UserRole).toString(),
                                  ui->combx_account->GetCurTradingAccount());
    if (!faults.isEmpty()) {
        error_box::show(validation::textOfAccountChange(faults), WiderBox);
        ui->btn_ok->setEnabled(false);
    }
}
