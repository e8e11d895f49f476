#pragma once

#include "embedded_host/ScreenPrompts.h"

#include <QObject>
#include <QString>

#include <functional>

/// The host's questions at the desk: dialogs on the screen, with the desk looking over the user's shoulder. A
/// file that was dropped on the window answers the next question for a file.
class DeskPrompts : public QObject, public ScreenPrompts {
    Q_OBJECT

public:
    using QObject::QObject;

    /// Answers the next chooseOpenFile() in the user's place.
    void answerNextOpenWith(const QString& path) { mDroppedFile = path; }

    /// Asked with the path before a file is taken for the import; where it answers false, none was chosen.
    void setGuard(const std::function<bool(const QString& path)>& guard) { mGuard = guard; }
    /// While `act` runs, every message box is confirmed in the user's place, and no guard is asked: he has
    /// seen and answered them before.
    void answeringAsBefore(const std::function<void()>& act);

    QString chooseOpenFile(QWidget* parent, const QString& title, const QString& directory,
                           const QString& filter) override;
    QString chooseSaveFile(QWidget* parent, const QString& title, const QString& suggestedName,
                           const QString& filter) override;
    int answerMessageBox(ZelMessageBox& box) override;

signals:
    /// A table file is about to be read.
    void fileChosen(const QString& path);
    /// A message box is about to be shown.
    void messageComing(const QString& text, int type);

private:
    QString startFolder(const QString& asked) const;

    QString mDroppedFile;
    std::function<bool(const QString& path)> mGuard;
    bool mAnswersAsBefore = false;
    QString mLastFolder;
};
