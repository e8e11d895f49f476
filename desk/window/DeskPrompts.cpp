#include "desk/window/DeskPrompts.h"

#include "host/ZelMessageBox.h"

#include <QDir>
#include <QFileInfo>

QString DeskPrompts::chooseOpenFile(QWidget* parent, const QString& title, const QString& directory,
                                    const QString& filter)
{
    QString path;
    path.swap(mDroppedFile);
    if (path.isEmpty()) {
        path = ScreenPrompts::chooseOpenFile(parent, title, startFolder(directory), filter);
    }
    if (!path.isEmpty() && !mAnswersAsBefore && mGuard && !mGuard(path)) {
        path.clear();
    }
    if (!path.isEmpty()) {
        mLastFolder = QFileInfo(path).absolutePath();
        emit fileChosen(path);
    }
    return path;
}

void DeskPrompts::answeringAsBefore(const std::function<void()>& act)
{
    mAnswersAsBefore = true;
    act();
    mAnswersAsBefore = false;
}

QString DeskPrompts::chooseSaveFile(QWidget* parent, const QString& title, const QString& suggestedName,
                                    const QString& filter)
{
    const QString suggested = QDir(startFolder(QString())).filePath(suggestedName);
    const QString path = ScreenPrompts::chooseSaveFile(parent, title, suggested, filter);
    if (!path.isEmpty()) {
        mLastFolder = QFileInfo(path).absolutePath();
    }
    return path;
}

int DeskPrompts::answerMessageBox(ZelMessageBox& box)
{
    emit messageComing(box.message(), box.type());
    return mAnswersAsBefore ? int(QDialog::Accepted) : box.showModally();
}

QString DeskPrompts::startFolder(const QString& asked) const
{
    return asked.isEmpty() ? mLastFolder : asked;
}
