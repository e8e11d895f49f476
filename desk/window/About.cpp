#include "desk/window/About.h"

#include <QCoreApplication>

QString aboutText()
{
    return QStringLiteral(
               "算法交易台 %1\n\n"
               "批量导入算法参数，核对，经网关发往对手方。\n\n"
               "This product includes software developed by quickfixengine.org "
               "(http://www.quickfixengine.org/).\n\n"
               "Qt %2、libzip、libgsf、libxlsxwriter、SQLite、PostgreSQL (libpq)，各依其许可证使用；"
               "清单见 docs/parts.md。")
        .arg(QCoreApplication::applicationVersion(), QString::fromLatin1(qVersion()));
}
