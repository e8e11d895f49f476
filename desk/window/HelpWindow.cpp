#include "desk/window/HelpWindow.h"

#include "words/Language.h"

#include <QFile>
#include <QLineEdit>
#include <QShortcut>
#include <QTextBrowser>
#include <QVBoxLayout>

static void askForGuide() // in no namespace, or it is another's that is asked for
{
    Q_INIT_RESOURCE(guide);
}

namespace {

const QSize FirstSize(820, 640);

QString guide()
{
    askForGuide();
    const bool isEnglish = words::spoken() == words::Language::English;
    QFile file(isEnglish ? QStringLiteral(":/guide/import-table.en.md")
                         : QStringLiteral(":/guide/import-table.md"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace

HelpWindow::HelpWindow(QWidget* parent)
    : QWidget(parent, Qt::Window), mText(new QTextBrowser(this)), mSearch(new QLineEdit(this))
{
    setObjectName(QStringLiteral("helpWindow"));
    setWindowTitle(Words::tr("填写说明"));
    mText->setAccessibleName(Words::tr("填写说明"));
    mText->setOpenLinks(false); // it speaks of files that stand beside the sources alone
    mText->setMarkdown(guide());
    mSearch->setPlaceholderText(Words::tr("查找 (Ctrl+F)"));
    mSearch->setAccessibleName(Words::tr("在说明中查找"));
    mSearch->setClearButtonEnabled(true);
    auto* column = new QVBoxLayout(this);
    column->addWidget(mSearch);
    column->addWidget(mText, 1);
    connect(mSearch, &QLineEdit::returnPressed, this, &HelpWindow::find);
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, mSearch,
            [this] { mSearch->setFocus(); });
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
    resize(FirstSize);
    mText->setFocus();
}

/// The next place; behind the last one the first.
void HelpWindow::find()
{
    if (!mText->find(mSearch->text())) {
        mText->moveCursor(QTextCursor::Start);
        mText->find(mSearch->text());
    }
}
