// The menu under 导出模板. The files and the save dialog are the host's.

#include "dialog/AlgoBatchImportParamSetting.h"
#include "host/SolveyConstants.h"
#include "host/SolveyUtils.h"
#include "strategy/Traits.h"
#include "ui_AlgoBatchImportParamSetting.h"

#include <QAction>
#include <QMenu>
#include <QPointer>

namespace {

const QPoint UnderTheButton(0, 24);

void download(QWidget* parent, const QString& name)
{
    SolveyUtils::DownloadTemplateFile(SolveyConstants::TemplateFileType::AlgoBatchSingle, parent, {name});
}

} // namespace

/// The dialog may be deleted while the menu is open: it takes its actions along and closes the menu.
void AlgoBatchImportParamSetting::slotBtnExportClicked()
{
    QMenu menu;
    connect(this, &QObject::destroyed, &menu, &QWidget::close);
    const QPointer<QAction> all = new QAction(QStringLiteral("全部算法模板"), this);
    connect(all, &QAction::triggered, this, [this] { download(this, SolveyConstants::AllTemplates); });
    menu.addAction(all);

    const QPointer<QAction> current = new QAction(QStringLiteral("当前算法模板"), this);
    connect(current, &QAction::triggered, this, [this] { download(this, ui->cbx_algoType->currentText()); });
    if (strategy::traitsOf(mStrategy.name()).has(strategy::OwnTemplate)) {
        menu.addAction(current);
    }
    menu.exec(mapToGlobal(ui->pb_exportModules->pos() + UnderTheButton));
    delete all;
    delete current;
}
