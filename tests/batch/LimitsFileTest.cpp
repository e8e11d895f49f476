#include "desk/batch/LimitsFile.h"

#include "tests/ledger/SampleDrafts.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

using namespace batch;
using namespace ledger;

namespace {

/// A reference data folder with that limits.csv.
class LimitsFolder {
public:
    explicit LimitsFolder(const QByteArray& csv)
    {
        QFile file(path());
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(csv);
    }

    QString path() const { return mFolder.filePath("limits.csv"_s); }
    std::optional<QList<LimitScope>> read(QString& error) const { return readLimits(mFolder.path(), error); }

private:
    QTemporaryDir mFolder;
};

QString faultOf(const QByteArray& csv)
{
    const LimitsFolder folder(csv);
    QString error;
    EXPECT_FALSE(folder.read(error).has_value());
    return error.mid(folder.path().size());
}

} // namespace

TEST(LimitsFile, AreNoneWhereThereIsNoFile)
{
    QTemporaryDir folder;
    QString error;
    const auto scopes = readLimits(folder.path(), error);
    ASSERT_TRUE(scopes.has_value());
    EXPECT_TRUE(scopes->isEmpty());
    EXPECT_FALSE(limitsFor(*scopes, "1001"_s, "AITWAP"_s).grossBuy.has_value());
}

TEST(LimitsFile, AreReadByColumnNameAndAnEmptyCellIsNoCeiling)
{
    const LimitsFolder folder(
        "strategy,account,maxRowAmount,maxRowQuantity,maxSecurityAmount,maxGrossBuy,"
        "maxGrossSell,maxPriceDistance,confirmAmount,moneyLikeAmount,refuseUnpriced,note\n"
        "*,1001,1,2,3,4,5,6.5,7,8,1,hello\n"
        "AITWAP,*,,,,,,,,,,\n");
    QString error;
    const auto scopes = folder.read(error);
    ASSERT_TRUE(scopes.has_value()) << error.toStdString();
    ASSERT_EQ(scopes->size(), 2);
    const LimitScope& first = scopes->first();
    EXPECT_EQ(first.account, "1001"_s);
    EXPECT_EQ(first.strategy, "*"_s);
    EXPECT_EQ(first.limits.rowAmount, 1);
    EXPECT_EQ(first.limits.rowQuantity, 2);
    EXPECT_EQ(first.limits.securityAmount, 3);
    EXPECT_EQ(first.limits.grossBuy, 4);
    EXPECT_EQ(first.limits.grossSell, 5);
    EXPECT_EQ(first.limits.priceDistance, 6.5_d);
    EXPECT_EQ(first.limits.confirmAmount, 7);
    EXPECT_EQ(first.limits.moneyLikeAmount, 8);
    EXPECT_TRUE(first.limits.refusesUnpriced);
    EXPECT_FALSE(scopes->last().limits.rowAmount.has_value());
    EXPECT_FALSE(scopes->last().limits.refusesUnpriced);
}

TEST(LimitsFile, OfAMalformedFileNameTheFileAndTheLine)
{
    EXPECT_TRUE(faultOf("strategy,maxGrossBuy\n*,1\n").startsWith(":1: "_s));
    EXPECT_TRUE(
        faultOf("account,strategy,maxGrossBuy\n*,*,1\n1001,*,much\n").startsWith(":3: maxGrossBuy"_s));
    EXPECT_TRUE(faultOf("account,strategy,maxGrossBuy\n*,*,-1\n").startsWith(":2: maxGrossBuy"_s));
    EXPECT_TRUE(faultOf("account,strategy,maxGrossBuy\n*,*,nan\n").startsWith(":2: maxGrossBuy"_s));
    EXPECT_TRUE(faultOf("account,strategy,refuseUnpriced\n*,*,maybe\n").startsWith(":2: refuseUnpriced"_s));
    EXPECT_TRUE(faultOf("account,strategy\n*,*\n*,*\n").startsWith(":3: "_s));
    EXPECT_TRUE(faultOf("").startsWith(":1: "_s));
    EXPECT_TRUE(faultOf("account,strategy\n\"*,*\n").startsWith(":2: "_s));
}

TEST(LimitsFile, ThatShipAreReadable)
{
    QString error;
    const auto scopes = readLimits(QStringLiteral(REFERENCE_FOLDER), error);
    ASSERT_TRUE(scopes.has_value()) << error.toStdString();
    const Limits limits = limitsFor(*scopes, "any"_s, "AITWAP"_s);
    EXPECT_TRUE(limits.rowAmount && limits.securityAmount && limits.grossBuy && limits.grossSell &&
                limits.priceDistance && limits.confirmAmount);
}
