#pragma once

#include <QWidget>

class QLineEdit;
class QTextBrowser;

/// The trader's guide beside the window, in the language spoken. Esc closes it, Ctrl+F finds a text.
class HelpWindow : public QWidget {
    Q_OBJECT

public:
    explicit HelpWindow(QWidget* parent);

    QTextBrowser* text() const { return mText; }

private:
    void find();

    QTextBrowser* mText;
    QLineEdit* mSearch;
};
