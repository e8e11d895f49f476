#include "host/ZelMessageBox.h"

#include "embedded_host/EmbeddedHost.h"
#include "words/Words.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QTextEdit>
#include <QVBoxLayout>

namespace {

constexpr int BoxWidth = 420;
constexpr int BoxHeight = 160;
constexpr int Margin = 10;
constexpr int ButtonRow = 34; // the button and the space above it
constexpr int FirstButtonFocused = 1;

QTextEdit* makeTextArea(const QString& text, QWidget* parent)
{
    auto* area = new QTextEdit(parent);
    area->setObjectName(QStringLiteral("textEdit_message"));
    area->setAccessibleName(Words::tr("消息内容"));
    area->setReadOnly(true);
    area->setAcceptRichText(false);
    area->setTabChangesFocus(true);
    area->setPlainText(text); // texts come from files: never markup
    area->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    area->setGeometry(Margin, Margin, BoxWidth - 2 * Margin, BoxHeight - 2 * Margin - ButtonRow);
    return area;
}

} // namespace

class ZelMessageBox::Private {
public:
    QString message;
    int type;
    int flag;
    QTextEdit* textArea;
    QList<QPushButton*> buttons;

    void addButton(ZelMessageBox* box, const QString& text, const QString& name, void (QDialog::*slot)())
    {
        auto* button = new QPushButton(text, box);
        button->setObjectName(name);
        button->setAutoDefault(false);
        QObject::connect(button, &QPushButton::clicked, box, slot);
        buttons.append(button);
    }

    void layOut(ZelMessageBox* box)
    {
        auto* row = new QHBoxLayout;
        row->addStretch();
        for (QPushButton* button : qAsConst(buttons)) {
            row->addWidget(button);
        }
        row->addStretch();
        auto* column = new QVBoxLayout(box);
        column->setSizeConstraint(QLayout::SetNoConstraint); // whoever shows the box says its size
        column->setContentsMargins(Margin, Margin, Margin, Margin);
        column->addWidget(textArea, 1);
        column->addLayout(row);
    }
};

ZelMessageBox::ZelMessageBox(const QString& title, const QString& text, int type, QWidget* parent, int flag)
    : QDialog(parent), d(std::make_unique<Private>())
{
    d->message = text;
    d->type = type;
    d->flag = flag;
    d->textArea = makeTextArea(text, this);
    setWindowTitle(title);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    resize(sizeAsConstructed());

    if (type == Question) {
        d->addButton(this, Words::tr("是(&Y)"), QStringLiteral("button_yes"), &QDialog::accept);
        d->addButton(this, Words::tr("否(&N)"), QStringLiteral("button_no"), &QDialog::reject);
    } else {
        d->addButton(this, Words::tr("确定(&O)"), QStringLiteral("button_ok"), &QDialog::accept);
    }
    d->layOut(this);
    // A lone button takes Enter in any case; a question only where the caller chose an answer.
    if (type != Question || flag == FirstButtonFocused) {
        d->buttons.first()->setDefault(true);
        d->buttons.first()->setFocus();
    }
}

ZelMessageBox::~ZelMessageBox() = default;

QString ZelMessageBox::message() const
{
    return d->message;
}

int ZelMessageBox::type() const
{
    return d->type;
}

int ZelMessageBox::flag() const
{
    return d->flag;
}

QSize ZelMessageBox::sizeAsConstructed()
{
    return {BoxWidth, BoxHeight};
}

int ZelMessageBox::textWidthAsConstructed()
{
    return BoxWidth - 2 * Margin;
}

int ZelMessageBox::textWidth() const
{
    return d->textArea->width();
}

int ZelMessageBox::exec()
{
    return EmbeddedHost::current().prompts()->answerMessageBox(*this);
}

int ZelMessageBox::showModally()
{
    return QDialog::exec();
}

void ZelMessageBox::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy)) {
        QApplication::clipboard()->setText(d->message);
        return;
    }
    // A button that is no default would hand Enter on, and nothing or another one be pressed.
    auto* focused = qobject_cast<QPushButton*>(focusWidget());
    if (focused != nullptr && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
        focused->click();
        return;
    }
    QDialog::keyPressEvent(event);
}
