// One market, one security, one account, one strategy: every service that the dialog asks.

#include "host/AlgoConstants.h"
#include "host/AlgoTradeLogicNew.h"
#include "host/CBusinessDataBase.h"
#include "host/CDataBase.h"
#include "host/CommonQuotaHandler.h"
#include "host/FuturesLogicInterface.h"
#include "host/IZelSkin.h"
#include "host/SolveyBusinessDataInterface.h"
#include "host/SolveyBusiUtils.h"
#include "host/SolveyConstants.h"
#include "host/SolveyUtils.h"
#include "host/ZelCore.h"

#include <QFile>
#include <QFileDialog>
#include <QTextStream>
#include <QWidget>

namespace {

const QString Exchange = QStringLiteral("SH");
const QString Code = QStringLiteral("600000");
const QString Symbol = QStringLiteral("600000.SH");
const tagUserAccountInfo Account = {QStringLiteral("1001"), QStringLiteral("现金账户"),
                                    Solvey_Values::FundAccountType::Cash,
                                    Solvey_Values::FundAccountType::Cash, QStringLiteral("node-1")};
const AesStrategy Strategy(QStringLiteral("AITWAP"), QStringLiteral("时间加权"), QStringLiteral(R"([
    {"ui": "Table", "columns": [{"paramName": "证券代码", "paramId": "证券代码", "ui": "LineEdit"},
                                {"paramName": "委托数量", "paramId": "委托数量", "ui": "LineEdit"}]},
    {"paramName": "交易方向", "paramId": "交易方向", "ui": "ComboBox",
     "options": [{"display": "买入", "value": "Buy"}, {"display": "卖出", "value": "Sell"}]}])"),
                           Algo_Values::AlgoGlobalType::algo);

QString ifKnown(const QString& symbol, const QString& answer)
{
    return symbol == Symbol ? answer : QString();
}

class Quotes final : public CommonQuotaHandler {
public:
    void SubscribeQuota(const QStringList&, bool, int) override {}
    QMap<QString, QVariant> GetQuotaSnapshot(const QString&, int) override
    {
        return {{QStringLiteral("LastPx"), 10.0}, {QStringLiteral("MaxPx"), 11.0}};
    }
};

} // namespace

AlgoTradeLogicNew* AlgoTradeLogicNew::GetInstance()
{
    static AlgoTradeLogicNew instance;
    return &instance;
}
QList<AesStrategy> AlgoTradeLogicNew::GetAllStrategies(const QString&)
{
    return {Strategy};
}
AesStrategy AlgoTradeLogicNew::GetStrategy(const QString& name)
{
    return name == Strategy.name() ? Strategy : AesStrategy();
}
bool AlgoTradeLogicNew::hasCorrespAuthority(QString, QString, QString)
{
    return true;
}
bool AlgoTradeLogicNew::isBondRepoSymbol(const QString&)
{
    return false;
}

CBusinessDataBase* CBusinessDataBase::GetInstance()
{
    static CBusinessDataBase instance;
    return &instance;
}
QString CBusinessDataBase::GetLoginAccount()
{
    return QStringLiteral("minimal");
}
QString CBusinessDataBase::GetSecurityTypeBySymbol(const QString&)
{
    return QStringLiteral("STOCK");
}
QString CBusinessDataBase::GetSecuritySubTypeBySymbol(const QString&)
{
    return QString();
}
QStringList CBusinessDataBase::GetSecurityExchangeBySymbol(const QString& symbol)
{
    return symbol == Symbol ? QStringList{Exchange} : QStringList();
}
QString CBusinessDataBase::GetSymbolPostBySymbol(const QString& symbol)
{
    return ifKnown(symbol, Exchange);
}
QString CBusinessDataBase::GetSecurityChineseName(const QString& symbol)
{
    return ifKnown(symbol, QStringLiteral("示例股票"));
}
QString CBusinessDataBase::GetSysNodeIDByAccount(const QMap<QString, QVariant>&)
{
    return Account.sysNodeId;
}

using Data = SolveyBusinessDataInterface;
QString Data::GetSymbolBySecurityIDAndExchange(QString code, QString exchange)
{
    return code == Code && exchange == Exchange ? Symbol : QString();
}
QString Data::GetASecurityExchangeBySymbol(const QString& symbol)
{
    return ifKnown(symbol, Exchange);
}
QString Data::GetCurrentSecurityAccountByTradingAndExchange(const QString&, const QString&)
{
    return QStringLiteral("A1001");
}
QList<tagUserAccountInfo> Data::GetAccountInfoListFromTrade(QString, bool)
{
    return {Account};
}
QList<tagUserAccountInfo> Data::GetFundAccountListByFundProp(int, int, bool, const QStringList&, bool)
{
    return {Account};
}
QMap<QString, QVariant> Data::GetSecurityDetailsBySymbol(QString)
{
    return {};
}
int Data::GetDispFactorBySymbol(const QString&)
{
    return 1;
}
int Data::GetMinQtyPerOrderBySymbol(QString)
{
    return 100;
}
int Data::GetQtyStepBySymbol(QString)
{
    return 100;
}
int Data::GetPricePrecisionBySymbol(QString, const QString&)
{
    return 2;
}
void Data::GetHKStockExchangeRate(HKExchangeRateTable&) {}
bool Data::CheckSymbolRiskInfo(const QStringList&, const QString&)
{
    return true;
}

QString SolveyBusiUtils::NormalizeSecurityExchange(QString market)
{
    return market.trimmed();
}

CDataBase* CDataBase::GetInstance()
{
    static CDataBase instance;
    return &instance;
}
QString CDataBase::GetStaticCfgValue(const QString&, const QString&)
{
    return QStringLiteral("上海");
}

CommonQuotaHandler* CommonQuotaHandler::instance()
{
    static Quotes quotes;
    return &quotes;
}
double CommonQuotaHandler::getLastPriceFromTick(const QMap<QString, QVariant>& tick)
{
    return tick.value(QStringLiteral("LastPx")).toDouble();
}

void FuturesLogicInterface::InitData() {}
int FuturesLogicInterface::GetFuturesPricePrecision(const QString&)
{
    return 2;
}
stuFuturesBaseData FuturesLogicInterface::GetFuturesBaseData(const QString&)
{
    return {};
}

IZelSkin::IZelSkin() = default;
IZelSkin::~IZelSkin() = default;

ZelCore* ZelCore::instance()
{
    static ZelCore core;
    return &core;
}
QVariant ZelCore::settings(const QString&, const QString&, const QString&, QSettings::Scope)
{
    return QVariant();
}
void ZelCore::saveSetting(const QString&, const QVariant&, const QString&, const QString&, QSettings::Scope)
{
}
void ZelCore::addStyle2View(IZelSkin*, const QString&) {}

QString SolveyUtils::GetOpenTableFileName(QWidget* parent, const QString& title, const QString& directory,
                                          const ExportFileFormat&)
{
    const QByteArray scripted = qgetenv("MINIMAL_HOST_FILE"); // a file to import without asking
    return scripted.isEmpty() ? QFileDialog::getOpenFileName(parent, title, directory)
                              : QFile::decodeName(scripted);
}
QList<QStringList> SolveyUtils::ReadTableData(const QString& path, ReadTableCfg, QString& error)
{
    QFile file(path);
    QList<QStringList> rows;
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        error = file.errorString();
        return rows;
    }
    QTextStream lines(&file); // which drops a byte order mark
    lines.setCodec("UTF-8");
    for (QString line; lines.readLineInto(&line);) {
        rows.append(line.split(QLatin1Char(',')));
    }
    return rows;
}
bool SolveyUtils::DownloadTemplateFile(const QString&, QWidget*, const QStringList&)
{
    return false;
}
QPoint SolveyUtils::GetWidgetPos(QWidget*, WidgetShowPosType)
{
    return {};
}
