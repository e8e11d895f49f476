#include "dialog/ErrorBox.h"

#include "host/SolveyUtils.h"
#include "host/ZelMessageBox.h"

#include <QTextEdit>

namespace error_box {

namespace {

const QString Title = QStringLiteral("错误");
constexpr int LineHeight = 20;
constexpr int MaxHeight = 350;

void place(ZelMessageBox& box)
{
    box.move(SolveyUtils::GetWidgetPos(&box, WidgetShowPosType(2)));
}

void widenMessage(ZelMessageBox& box, int pixels)
{
    auto* message = box.findChild<QTextEdit*>(QStringLiteral("textEdit_message"));
    if (message != nullptr && pixels > 0) {
        message->setFixedWidth(message->width() + pixels);
    }
}

} // namespace

void show(const QString& text, const Growth& growth)
{
    ZelMessageBox box(Title, text, ZelMessageBox::Error, nullptr, 0);
    const int lineFeeds = text.count(QLatin1Char('\n'));
    const int height = box.height();
    widenMessage(box, growth.messageWidth);
    box.resize(box.width() + growth.width, qMin(lineFeeds * LineHeight + height, MaxHeight));
    place(box);
    box.exec();
}

void showAsIs(const QString& text)
{
    ZelMessageBox box(Title, text, ZelMessageBox::Error, nullptr, 0);
    place(box);
    box.exec();
}

bool ask(const QString& question, QWidget* parent)
{
    ZelMessageBox box(Title, question, ZelMessageBox::Question, parent, 1);
    return box.exec() == QDialog::Accepted;
}

} // namespace error_box
