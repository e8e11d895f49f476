#include "desk/probe/DialogProbe.h"

#include "host/SolveyAccountComboBox.h"
#include "host/SolveyDecimalLineEdit.h"
#include "host/ZelTableView.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>

template <typename Widget> Widget& DialogProbe::part(const char* name) const
{
    auto* found = mDialog.findChild<Widget*>(QString::fromLatin1(name));
    if (found == nullptr) {
        qFatal("the dialog has no widget of the name %s", name);
    }
    return *found;
}

ZelTableView& DialogProbe::table() const
{
    return part<ZelTableView>("table_paramSettings");
}

QComboBox& DialogProbe::strategies() const
{
    return part<QComboBox>("cbx_algoType");
}

SolveyAccountComboBox& DialogProbe::accounts() const
{
    return part<SolveyAccountComboBox>("combx_account");
}

QAbstractButton& DialogProbe::importButton() const
{
    return part<QAbstractButton>("btn_import");
}

QAbstractButton& DialogProbe::confirmButton() const
{
    return part<QAbstractButton>("btn_ok");
}

QAbstractButton& DialogProbe::templateButton() const
{
    return part<QAbstractButton>("pb_exportModules");
}

QAbstractButton& DialogProbe::cancelButton() const
{
    return part<QAbstractButton>("btn_cancel");
}

QList<DialogProbe::Caption> DialogProbe::captions() const
{
    return {{part<QLabel>("label"), accounts()},
            {part<QLabel>("label_2"), strategies()},
            {part<QLabel>("expectBuyLab"), expectedBuy().box},
            {part<QLabel>("expectSellLab"), expectedSell().box}};
}

DialogProbe::Expected DialogProbe::expectedBuy() const
{
    return {part<SolveyDecimalLineEdit>("expectBuyLine"), part<QLabel>("label_bWarning")};
}

DialogProbe::Expected DialogProbe::expectedSell() const
{
    return {part<SolveyDecimalLineEdit>("expectSellLine"), part<QLabel>("label_sWarning")};
}

batch::DialogContent DialogProbe::content(const Origin& origin) const
{
    batch::DialogContent content;
    content.strategy = mDialog.getStrategy().name();
    content.account = accounts().GetCurTradingAccount();
    content.filePath = origin.filePath;
    content.fileSha256 = origin.fileSha256;
    content.createdBy = origin.createdBy;
    content.expectedBuy = expectedBuy().box.value();
    content.expectedSell = expectedSell().box.value();
    content.columns = table().headNames();
    content.records = table().getViewData();
    content.parameterMaps = mDialog.getWidgetData();
    return content;
}

DialogFaults DialogProbe::faults() const
{
    return DialogFaults(mDialog.getStrategy(),
                        {accounts().GetCurTradingAccount(), accounts().GetCurAccountAssetProp()});
}

ledger::BatchTable DialogProbe::shownTable() const
{
    return batch::shownTable(table().headNames(), table().getViewData());
}
