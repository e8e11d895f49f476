#include "desk/window/DeskApplication.h"

#include <QApplication>
#include <QFont>
#include <QLibraryInfo>
#include <QMessageBox>
#include <QTranslator>

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

void prepare(QApplication& application)
{
    QApplication::setApplicationDisplayName(QStringLiteral("算法交易台"));
    QApplication::setStyle(QStringLiteral("Fusion"));
    QApplication::setFont(textFont());
    auto* texts = new QTranslator(&application); // the buttons of the file dialogs
    if (texts->load(QStringLiteral("qtbase_zh_CN"), QLibraryInfo::location(QLibraryInfo::TranslationsPath))) {
        QCoreApplication::installTranslator(texts);
    }
}

void tellFault(const QString& error)
{
    QMessageBox box(QMessageBox::Critical, QStringLiteral("算法交易台"), error);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

} // namespace desk_application
