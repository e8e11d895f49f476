#include "tests/embedded_host/DataFolder.h"

#include "tests/support/Text.h"

#include <gtest/gtest.h>

#include <QFile>

DataFolder::DataFolder()
{
    write("strategies.json"_s, R"([{"name": "AITWAP", "alias": "智能TWAP", "paramFormats": []}])");
    write("markets.csv"_s, "exchange,name,post,codeLength,aliases\nSH,上海,SH,6,沪市|SSE\n");
    write("securities.csv"_s, "symbol,code,name,post,exchanges\n600000.SH,600000,样本,SH,SH\n");
    write("accounts.csv"_s, "tradingAccount,name,fundAccountType,sysNodeId\n1001,现金户,Cash,node1\n");
}

void DataFolder::write(const QString& name, const QByteArray& content) const
{
    QFile file(filePath(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(content), content.size());
}

void DataFolder::remove(const QString& name) const
{
    ASSERT_TRUE(QFile::remove(filePath(name)));
}

void DataFolder::link(const QString& target, const QString& name) const
{
    ASSERT_TRUE(QFile::link(target, filePath(name)));
}

ReferenceTables DataFolder::tables() const
{
    QString error;
    const std::optional<ReferenceTables> read = readReferenceFolder(path(), error);
    EXPECT_EQ(error, QString());
    EXPECT_TRUE(read.has_value());
    return read.value_or(ReferenceTables());
}

QString DataFolder::fault() const
{
    QString error;
    const std::optional<ReferenceTables> read = readReferenceFolder(path(), error);
    EXPECT_EQ(read.has_value(), error.isEmpty());
    return error;
}
