#include "embedded_host/ScreenPrompts.h"

#include "host/ZelMessageBox.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QRegularExpression>

namespace {

/// "CSV 文件 (*.csv)": csv. Empty for a filter that lets every file pass.
QString endingOf(const QString& nameFilter)
{
    static const QRegularExpression ending(QStringLiteral("\\*\\.(\\w+)"));
    return ending.match(nameFilter).captured(1);
}

} // namespace

QString ScreenPrompts::chooseOpenFile(QWidget* parent, const QString& title, const QString& directory,
                                      const QString& filter)
{
    return QFileDialog::getOpenFileName(parent, title, directory, filter);
}

QString ScreenPrompts::chooseSaveFile(QWidget* parent, const QString& title, const QString& suggestedName,
                                      const QString& filter)
{
    const QFileInfo suggested(suggestedName);
    QFileDialog dialog(parent, title, suggested.path(), filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.selectFile(suggested.fileName());
    const auto followFilter = [&dialog](const QString& chosen) { dialog.setDefaultSuffix(endingOf(chosen)); };
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, followFilter);
    followFilter(dialog.selectedNameFilter());
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

int ScreenPrompts::answerMessageBox(ZelMessageBox& box)
{
    return box.showModally();
}
