#pragma once

#include "embedded_host/UserPrompts.h"

#include <QList>
#include <QPoint>
#include <QSize>
#include <QString>

#include <functional>

/// A message box as it would have been shown. Sizes in pixels.
struct ShownBox {
    QString title;
    QString text;
    int type;
    int flag;
    QSize size;
    QSize sizeBefore; ///< as constructed
    int textWidth;
    int textWidthBefore; ///< as constructed
    QPoint position;
};

/// Answers in the user's place and records every message box: for the headless runner and for tests.
class RecordingPrompts : public UserPrompts {
public:
    /// The file that the user "chooses" to open; empty (at first) is a cancelled dialog.
    void setFileToOpen(const QString& path) { mFileToOpen = path; }
    /// The file that the user "chooses" to write; empty (at first) is a cancelled dialog.
    void setFileToSave(const QString& path) { mFileToSave = path; }
    /// The answer to questions: yes at first.
    void setAnswerYes(bool yes) { mAnswerYes = yes; }
    /// Runs while a box is "open", before it is answered.
    void whileOpen(std::function<void(ZelMessageBox&)> action) { mWhileOpen = std::move(action); }

    QString chooseOpenFile(QWidget* parent, const QString& title, const QString& directory,
                           const QString& filter) override;
    QString chooseSaveFile(QWidget* parent, const QString& title, const QString& suggestedName,
                           const QString& filter) override;
    int answerMessageBox(ZelMessageBox& box) override;

    const QList<ShownBox>& boxes() const { return mBoxes; }
    void clear() { mBoxes.clear(); }

private:
    QString mFileToOpen;
    QString mFileToSave;
    bool mAnswerYes = true;
    std::function<void(ZelMessageBox&)> mWhileOpen;
    QList<ShownBox> mBoxes;
};
