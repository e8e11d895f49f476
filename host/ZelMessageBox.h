#pragma once

#include "host/HostApi.h"

#include <QDialog>

#include <memory>

/// The host's message box: a modal window whose text stands whole, selectable and scrollable in a QTextEdit
/// named "textEdit_message", as plain text. Ctrl+C copies it, Esc answers no.
class ALGO_HOST_API ZelMessageBox : public QDialog {
    Q_OBJECT

public:
    enum Type {
        Error = 1,    ///< one button
        Question = 3, ///< yes and no
    };

    /// `type`: one of Type. `flag`: 0 none, 1 the first button has the focus.
    ZelMessageBox(const QString& title, const QString& text, int type, QWidget* parent = nullptr,
                  int flag = 0);
    ~ZelMessageBox() override;

    QString message() const;
    int type() const;
    int flag() const;

    /// The size of every box before its caller resizes it; a later resize is taken exactly.
    static QSize sizeAsConstructed();
    static int textWidthAsConstructed();
    /// Pixels; until the box is shown, what the constructor or the caller set.
    int textWidth() const;

public slots:
    /// 1 when confirmed (yes, or the only button), 0 otherwise. Where the host has someone who answers in the
    /// user's place, the box is handed over instead of shown.
    int exec() override;
    /// Shows the box whoever else might answer; for who was handed it and wants the user's own answer.
    int showModally();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    class Private;
    std::unique_ptr<Private> d;
};
