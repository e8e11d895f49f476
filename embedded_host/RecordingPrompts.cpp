#include "embedded_host/RecordingPrompts.h"

#include "host/ZelMessageBox.h"

QString RecordingPrompts::chooseOpenFile(QWidget*, const QString&, const QString&, const QString&)
{
    return mFileToOpen;
}

QString RecordingPrompts::chooseSaveFile(QWidget*, const QString&, const QString&, const QString&)
{
    return mFileToSave;
}

int RecordingPrompts::answerMessageBox(ZelMessageBox& box)
{
    mBoxes.append({box.windowTitle(), box.message(), box.type(), box.flag(), box.size(),
                   ZelMessageBox::sizeAsConstructed(), box.textWidth(),
                   ZelMessageBox::textWidthAsConstructed(), box.pos()});
    if (mWhileOpen) {
        mWhileOpen(box);
    }
    const bool accepted = box.type() != ZelMessageBox::Question || mAnswerYes;
    return accepted ? QDialog::Accepted : QDialog::Rejected;
}
