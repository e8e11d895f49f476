#include "ledger/store/Address.h"

#include "tests/support/Text.h"

#include <gtest/gtest.h>

#include <QDir>

using namespace ledger;

TEST(Address, OfAPathIsAFile)
{
    const Address address = Address::parse("/some/where/ledger.sqlite"_s).value;
    EXPECT_EQ(address.kind, Address::Kind::File);
    EXPECT_EQ(address.path, "/some/where/ledger.sqlite"_s);
    EXPECT_EQ(address.shown(), address.path);
}

TEST(Address, OfAFileNamedLikeSomethingOfTheDatabaseIsThatFile)
{
    for (const QString& name : {":memory:"_s, "file:x?mode=ro"_s, ":name"_s}) {
        EXPECT_EQ(Address::parse(name).value.path, QDir::current().absoluteFilePath(name))
            << name.toStdString();
    }
}

TEST(Address, OfAServerNamesUserHostsAndDatabase)
{
    const Address address = Address::parse("postgresql://trader@db1:5433,db2,[::1]:5432/desk"_s).value;
    EXPECT_EQ(address.kind, Address::Kind::Server);
    EXPECT_EQ(address.user, "trader"_s);
    ASSERT_EQ(address.hosts.size(), 3);
    EXPECT_EQ(address.hosts.at(0).name, "db1"_s);
    EXPECT_EQ(address.hosts.at(0).port, 5433);
    EXPECT_EQ(address.hosts.at(1).port, 0);
    EXPECT_EQ(address.hosts.at(2).name, "[::1]"_s);
    EXPECT_EQ(address.database, "desk"_s);
    EXPECT_EQ(address.shown(), "postgresql://trader@db1:5433,db2,[::1]:5432/desk"_s);
}

TEST(Address, WithAPasswordIsRefusedAndTheAnswerDoesNotRepeatIt)
{
    for (const QString& text :
         {"postgresql://trader:s3cret@db/desk"_s, "postgresql://db/desk?password=s3cret"_s}) {
        const Outcome<Address> parsed = Address::parse(text);
        EXPECT_FALSE(parsed.ok()) << text.toStdString();
        EXPECT_FALSE(parsed.error.contains("s3cret"_s));
        EXPECT_FALSE(parsed.value.shown().contains("s3cret"_s));
    }
}

TEST(Address, ThatIsNoneIsRefused)
{
    for (const QString& text :
         {""_s, "  "_s, "mysql://db/desk"_s, "postgresql://"_s, "postgresql://db"_s, "postgresql://db/"_s,
          "postgresql:///desk"_s, "postgresql://db:0/desk"_s, "postgresql://db:99999/desk"_s,
          "postgresql://db:x/desk"_s, "postgresql://db/a/b"_s, "postgresql://db,,c/desk"_s}) {
        EXPECT_FALSE(Address::parse(text).ok()) << text.toStdString();
    }
}
