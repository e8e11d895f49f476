// A client of the dialog in one screen: construct, load a strategy, connect, show.
//
//   minimal_host                 opens the dialog
//   minimal_host --import FILE   imports FILE, confirms and prints what a host would create; exit status 0 on
//   success

#include "dialog/AlgoBatchImportParamSetting.h"
#include "host/AlgoTradeLogicNew.h"

#include <QApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPushButton>

#include <cstdio>

namespace {

/// What a host does on confirmation: it takes the parameter maps and creates one instance of each.
int createInstances(AlgoBatchImportParamSetting& dialog)
{
    QJsonArray instances;
    const QList<QMap<QString, QVariant>> maps = dialog.getWidgetData();
    for (const QMap<QString, QVariant>& map : maps) {
        instances.append(QJsonObject::fromVariantMap(map));
    }
    std::fputs(QJsonDocument(instances).toJson().constData(), stdout);
    return instances.size();
}

int importOnce(AlgoBatchImportParamSetting& dialog)
{
    int created = 0;
    QObject::connect(&dialog, &AlgoBatchImportParamSetting::signalBtnOkClicked, &dialog, [&](bool) {
        created = createInstances(dialog);
        dialog.slotResetOkBtn();
    });
    dialog.findChild<QPushButton*>(QStringLiteral("btn_import"))->click();
    dialog.findChild<QPushButton*>(QStringLiteral("btn_ok"))->click();
    return created > 0 ? 0 : 1;
}

} // namespace

int main(int argc, char** argv)
{
    const bool headless = argc == 3 && qstrcmp(argv[1], "--import") == 0;
    if (headless) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qputenv("MINIMAL_HOST_FILE", argv[2]);
    }
    QApplication application(argc, argv);
    AlgoBatchImportParamSetting dialog(nullptr, SelectableStrategy);
    dialog.CreateStrategyInitWidget(AlgoTradeLogicNew::GetInstance()->GetStrategy(QStringLiteral("AITWAP")));
    if (headless) {
        return importOnce(dialog);
    }
    QObject::connect(&dialog, &AlgoBatchImportParamSetting::signalBtnOkClicked, &dialog,
                     [&](bool createdClose) {
                         createInstances(dialog);
                         if (createdClose) {
                             dialog.close();
                         } else {
                             dialog.slotResetOkBtn();
                         }
                     });
    QObject::connect(&dialog, &AlgoBatchImportParamSetting::signalBtnCancelClicked, &dialog, &QWidget::close);
    dialog.show();
    return application.exec();
}
