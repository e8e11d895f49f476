#include "desk/window/DeskApplication.h"

#include "words/Words.h"

#include <QApplication>
#include <QFont>
#include <QMessageBox>

namespace desk_application {

namespace {

// The size is the system's. Without the SC face first, a system that holds all the Noto faces draws Japanese
// forms of Chinese signs.
QFont textFont()
{
    QFont font;
    font.setFamilies({QStringLiteral("Noto Sans CJK SC"), QStringLiteral("Source Han Sans SC"),
                      QStringLiteral("Microsoft YaHei"), QStringLiteral("PingFang SC"),
                      QStringLiteral("WenQuanYi Micro Hei"), font.family()});
    return font;
}

} // namespace

void prepare(words::Language language)
{
    words::speak(language);
    QApplication::setApplicationDisplayName(Words::tr("算法交易台"));
    QApplication::setStyle(QStringLiteral("Fusion"));
    QApplication::setFont(textFont());
}

void tellFault(const QString& error)
{
    QMessageBox box(QMessageBox::Critical, Words::tr("算法交易台"), error);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

} // namespace desk_application
