#include "bench/embedded_host/LargeFolder.h"

#include <QFile>

namespace {

QString post(int position)
{
    return position % 2 == 0 ? QStringLiteral("SH") : QStringLiteral("SZ");
}

} // namespace

LargeFolder::LargeFolder(int securities, int accounts)
{
    write(QStringLiteral("strategies.json"),
          QStringLiteral("[{\"name\": \"AITWAP\", \"paramFormats\": []}]"));
    write(QStringLiteral("markets.csv"), QStringLiteral("exchange,name,post,codeLength,aliases\n"
                                                        "SH,上海,SH,6,沪市\nSZ,深圳,SZ,6,深市\n"));
    QString securityRows = QStringLiteral("symbol,code,name,post,exchanges,securityType,subType,dispFactor,"
                                          "minQtyPerOrder,qtyStep,pricePrecision,bondRepo\n");
    QString quoteRows = QStringLiteral("symbol,LastPx,MaxPx,MinPx,PreClosePx\n");
    for (int i = 0; i < securities; ++i) {
        securityRows +=
            QStringLiteral("%1,%2,样本%2,%3,%3,STOCK,MAIN,1,100,100,2,0\n").arg(symbol(i), code(i), post(i));
        quoteRows += QStringLiteral("%1,10.00,11.00,9.00,10.00\n").arg(symbol(i));
    }
    write(QStringLiteral("securities.csv"), securityRows);
    write(QStringLiteral("quotes.csv"), quoteRows);
    QString accountRows = QStringLiteral("tradingAccount,name,fundAccountType,assetProp,sysNodeId\n");
    QString securityAccountRows = QStringLiteral("tradingAccount,exchange,securityAccount\n");
    for (int i = 0; i < accounts; ++i) {
        accountRows += QStringLiteral("%1,账户%1,Cash,Cash,node1\n").arg(i);
        securityAccountRows += QStringLiteral("%1,SH,A%1\n%1,SZ,0%1\n").arg(i);
    }
    write(QStringLiteral("accounts.csv"), accountRows);
    write(QStringLiteral("security_accounts.csv"), securityAccountRows);
}

QString LargeFolder::code(int position)
{
    return QStringLiteral("%1").arg(position, 6, 10, QLatin1Char('0'));
}

QString LargeFolder::symbol(int position)
{
    return code(position) + QLatin1Char('.') + post(position);
}

void LargeFolder::write(const QString& name, const QString& content) const
{
    QFile file(filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content.toUtf8()) < 0) {
        qFatal("cannot write the benchmark's folder: %s", qPrintable(file.errorString()));
    }
}
