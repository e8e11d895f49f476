#include "atdl/XmlTree.h"

#include "tests/support/Text.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

using atdl::readXml;
using atdl::XmlElement;

namespace {

QString errorOf(const QByteArray& bytes)
{
    return readXml(bytes).error;
}

} // namespace

TEST(XmlTree, HoldsElementsAttributesAndTexts)
{
    const Outcome<XmlElement> read = readXml(
        "<a xmlns='u' xmlns:x='http://www.w3.org/2001/XMLSchema-instance'>\n <b k=' v ' x:type='T'/>t</a>");
    ASSERT_TRUE(read.ok()) << qPrintable(read.error);
    EXPECT_TRUE(read.value.is("u"_s, "a"_s));
    EXPECT_EQ(read.value.text.trimmed(), "t"_s);
    ASSERT_EQ(read.value.children.size(), 1);
    const XmlElement& child = read.value.children.first();
    EXPECT_EQ(child.attribute("k"_s), "v"_s);
    EXPECT_EQ(child.attribute("xsi:type"_s), "T"_s);
    EXPECT_EQ(child.line, 2);
}

TEST(XmlTree, KnowsNoEntities)
{
    const QByteArray laughs = R"(<?xml version="1.0"?>
<!DOCTYPE lolz [<!ENTITY a "ha"><!ENTITY b "&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;"><!ENTITY c "&b;&b;&b;&b;&b;&b;&b;&b;">]>
<a>&c;</a>)";
    EXPECT_EQ(errorOf(laughs), "第 2 行第 16 列：不接受文档类型声明（DOCTYPE）"_s);
    EXPECT_TRUE(errorOf("<a>&foreign;</a>").startsWith("第 1 行第 4 列：不是正确的 XML"_s));
    EXPECT_EQ(readXml("<a>&lt;&amp;</a>").value.text, "<&"_s) << "those of XML itself are none";
}

TEST(XmlTree, ReadsNothingFromOutside)
{
    QTemporaryDir folder;
    QFile secret(folder.filePath("secret"_s));
    ASSERT_TRUE(secret.open(QIODevice::WriteOnly));
    secret.write("geheim");
    secret.close();
    const QByteArray document =
        "<!DOCTYPE a [<!ENTITY s SYSTEM \"file://" + secret.fileName().toUtf8() + "\">]><a>&s;</a>";
    const Outcome<XmlElement> read = readXml(document);
    EXPECT_TRUE(read.error.endsWith("不接受文档类型声明（DOCTYPE）"_s)) << qPrintable(read.error);
    EXPECT_EQ(read.value.text, QString());
    EXPECT_NE(errorOf("<!DOCTYPE a SYSTEM \"http://127.0.0.1:1/a.dtd\"><a/>"), QString());
}

TEST(XmlTree, EndsAtItsLimits)
{
    EXPECT_EQ(errorOf(QByteArray("<a>").repeated(65)), "第 1 行第 196 列：元素嵌套超过 64 层"_s);
    EXPECT_EQ(errorOf("<a>" + QByteArray("<b/>").repeated(100000) + "</a>"),
              "第 1 行第 400004 列：元素超过 100000 个"_s);
    EXPECT_TRUE(errorOf("<a>" + QByteArray(70000, 'x') + "</a>").endsWith("文本超过 65536 个字符"_s));
    EXPECT_EQ(errorOf(QByteArray(5 * 1024 * 1024, ' ')), "文件超过 4 MiB"_s);
    QByteArray attributes;
    QByteArray spaces;
    for (int i = 0; i < 200000; ++i) {
        attributes += " a" + QByteArray::number(i) + "='1'";
        spaces += i < 300 ? " xmlns:a" + QByteArray::number(i) + "='u'" : QByteArray();
    }
    EXPECT_TRUE(errorOf("<a" + attributes + "/>").endsWith("属性过多或过长"_s));
    EXPECT_TRUE(errorOf("<a" + spaces + "/>").endsWith("命名空间声明超过 256 个"_s));
}

TEST(XmlTree, TellsWhereADocumentIsBroken)
{
    EXPECT_TRUE(errorOf("<a>\n<b></a>").startsWith("第 2 行第 6 列：不是正确的 XML（"_s));
    EXPECT_TRUE(errorOf("").startsWith("第 1 行第 1 列：不是正确的 XML（"_s));
    EXPECT_TRUE(errorOf("<a/><b/>").startsWith("第 1 行第 5 列：不是正确的 XML（"_s));
    EXPECT_TRUE(errorOf("<a>\xff</a>").contains("不是正确的 XML"_s));
    EXPECT_TRUE(errorOf("<x:a/>").contains("不是正确的 XML"_s));
}
