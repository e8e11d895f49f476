#include "desk/window/About.h"

#include "words/Words.h"

#include <QCoreApplication>

QString aboutText()
{
    return Words::tr(
               "算法交易台 %1\n\n"
               "批量导入算法参数，核对，经网关发往对手方。\n\n"
               "This product includes software developed by quickfixengine.org "
               "(http://www.quickfixengine.org/).\n\n"
               "Qt %2 (LGPL-3)、libzip (BSD-3-Clause)、libgsf (LGPL-2.1)、libxlsxwriter (BSD-2-Clause)、"
               "RapidJSON (MIT)、Expat (MIT)、QuickFIX (The QuickFIX Software License 1.0)、"
               "SQLite (public domain)、PostgreSQL libpq (PostgreSQL License)；清单见 docs/parts.md。")
        .arg(QCoreApplication::applicationVersion(), QString::fromLatin1(qVersion()));
}
