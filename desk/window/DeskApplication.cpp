#include "desk/window/DeskApplication.h"

#include <QApplication>
#include <QFont>
#include <QLibraryInfo>
#include <QTranslator>

namespace desk_application {

namespace {

constexpr qreal PointSize = 9;

// Without the SC face first, a system that holds all the Noto faces draws Japanese forms of Chinese signs.
QFont textFont()
{
    QFont font;
    font.setFamilies({QStringLiteral("Noto Sans CJK SC"), QStringLiteral("Source Han Sans SC"),
                      QStringLiteral("Microsoft YaHei"), QStringLiteral("PingFang SC"),
                      QStringLiteral("WenQuanYi Micro Hei"), font.family()});
    font.setPointSizeF(PointSize);
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

} // namespace desk_application
