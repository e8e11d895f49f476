#pragma once

#include "tests/support/DialogFixture.h"
#include "tests/support/Sheet.h"

/// Imports into strategies of the small market, or into one whose document has further parameters.
class ImportTest : public DialogFixture {
protected:
    /// Loads a strategy of this code whose document is the ordinary one and `more`.
    void openWith(const QVariantList& more, const QString& code = QStringLiteral("EXTRA"),
                  const QString& account = QStringLiteral("CASH1"))
    {
        openDocument(small_market::ordinaryDocument() + more, code, account);
    }

    Security& securityOf(const QString& symbol)
    {
        for (Security& security : tables.securities) {
            if (security.symbol == symbol) {
                return security;
            }
        }
        ADD_FAILURE() << "no security " << symbol.toStdString();
        return tables.securities.first();
    }

    QList<QMap<QString, QVariant>> instances() { return dialog->getWidgetData(); }
    QVariant parameter(int instance, const QString& key) { return instances().value(instance).value(key); }

    /// The only message box of one data row's error.
    void expectRowError(const QString& error, int line = 2)
    {
        EXPECT_EQ("导入文件中包含以下错误:\r\n第%1行：%2\r\n"_s.arg(QString::number(line), error),
                  lastBoxText());
    }
};
