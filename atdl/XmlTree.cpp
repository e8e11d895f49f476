#include "atdl/XmlTree.h"

#include "words/Words.h"

#include <expat.h>

#include <memory>
#include <type_traits>

namespace atdl {

namespace {

constexpr int MostBytes = 4 * 1024 * 1024;
constexpr int MostLevels = 64;
constexpr int MostElements = 100000;
constexpr int MostAttributes = 64;
constexpr int MostCharacters = 65536;
constexpr int MostNamespaces = 256;

const char Separator = '\n'; // stands in no URI
const QString TypeAttribute = QStringLiteral("http://www.w3.org/2001/XMLSchema-instance\ntype");

/// Builds the tree from the parser's calls; ends it at the first thing beyond the limits.
class TreeBuilder {
public:
    TreeBuilder() : mParser(XML_ParserCreateNS(nullptr, Separator), XML_ParserFree)
    {
        XML_SetUserData(mParser.get(), this);
        XML_SetElementHandler(mParser.get(), begin, end);
        XML_SetCharacterDataHandler(mParser.get(), characters);
        XML_SetStartDoctypeDeclHandler(mParser.get(), doctype);
        XML_SetStartNamespaceDeclHandler(mParser.get(), space);
    }

    Outcome<XmlElement> read(const QByteArray& bytes)
    {
        const XML_Status status = XML_Parse(mParser.get(), bytes.constData(), bytes.size(), XML_TRUE);
        if (status == XML_STATUS_OK) {
            return {mRoot, QString()};
        }
        const QString why = mFault.isEmpty()
                                ? Words::tr("不是正确的 XML（%1）")
                                      .arg(QLatin1String(XML_ErrorString(XML_GetErrorCode(mParser.get()))))
                                : mFault;
        return {{},
                Words::tr("第 %1 行第 %2 列：%3")
                    .arg(XML_GetCurrentLineNumber(mParser.get()))
                    .arg(XML_GetCurrentColumnNumber(mParser.get()) + 1)
                    .arg(why)};
    }

private:
    static TreeBuilder& of(void* data) { return *static_cast<TreeBuilder*>(data); }
    static void begin(void* data, const XML_Char* name, const XML_Char** attributes)
    {
        of(data).enter(QString::fromUtf8(name), attributes);
    }
    static void end(void* data, const XML_Char*) { of(data).leave(); }
    static void characters(void* data, const XML_Char* text, int length)
    {
        of(data).add(QString::fromUtf8(text, length));
    }
    static void doctype(void* data, const XML_Char*, const XML_Char*, const XML_Char*, int)
    {
        of(data).fail(Words::tr("不接受文档类型声明（DOCTYPE）"));
    }
    static void space(void* data, const XML_Char*, const XML_Char*) { of(data).countSpace(); }

    void fail(const QString& fault)
    {
        mFault = mFault.isEmpty() ? fault : mFault;
        XML_StopParser(mParser.get(), XML_FALSE);
    }

    void countSpace()
    {
        if (++mSpaces > MostNamespaces) {
            fail(Words::tr("命名空间声明超过 %1 个").arg(MostNamespaces));
        }
    }

    void enter(const QString& name, const XML_Char** attributes)
    {
        if (mOpen.size() >= MostLevels) {
            return fail(Words::tr("元素嵌套超过 %1 层").arg(MostLevels));
        }
        if (++mElements > MostElements) {
            return fail(Words::tr("元素超过 %1 个").arg(MostElements));
        }
        XmlElement element;
        element.space =
            name.contains(QLatin1Char(Separator)) ? name.section(QLatin1Char(Separator), 0, 0) : QString();
        element.name = name.section(QLatin1Char(Separator), -1);
        element.line = static_cast<int>(XML_GetCurrentLineNumber(mParser.get()));
        for (; *attributes != nullptr; attributes += 2) {
            addAttribute(element, QString::fromUtf8(attributes[0]), QString::fromUtf8(attributes[1]));
        }
        mOpen.append(element);
    }

    void addAttribute(XmlElement& element, const QString& name, const QString& value)
    {
        const QString key = name == TypeAttribute ? QStringLiteral("xsi:type") : name;
        if (key.contains(QLatin1Char(Separator))) {
            return; // another schema's
        }
        element.attributes.insert(key, value);
        if (element.attributes.size() > MostAttributes || value.size() > MostCharacters) {
            fail(Words::tr("属性过多或过长"));
        }
    }

    void add(const QString& text)
    {
        QString& all = mOpen.last().text;
        all += text;
        if (all.size() > MostCharacters) {
            fail(Words::tr("文本超过 %1 个字符").arg(MostCharacters));
        }
    }

    void leave()
    {
        if (!mFault.isEmpty()) {
            return; // the end of an empty element is told even behind a stop
        }
        const XmlElement done = mOpen.takeLast();
        if (mOpen.isEmpty()) {
            mRoot = done;
        } else {
            mOpen.last().children.append(done);
        }
    }

    std::unique_ptr<std::remove_pointer_t<XML_Parser>, decltype(&XML_ParserFree)> mParser;
    QList<XmlElement> mOpen; ///< from the root inwards
    XmlElement mRoot;
    QString mFault;
    int mElements = 0;
    int mSpaces = 0;
};

} // namespace

bool XmlElement::is(const QString& wantedSpace, const QString& wantedName) const
{
    return space == wantedSpace && name == wantedName;
}

QList<XmlElement> XmlElement::all(const QString& wantedSpace, const QString& wantedName) const
{
    QList<XmlElement> found;
    for (const XmlElement& child : children) {
        if (child.is(wantedSpace, wantedName)) {
            found.append(child);
        }
    }
    return found;
}

Outcome<XmlElement> readXml(const QByteArray& bytes)
{
    if (bytes.size() > MostBytes) {
        return {{}, Words::tr("文件超过 %1 MiB").arg(MostBytes / (1024 * 1024))};
    }
    return TreeBuilder().read(bytes);
}

} // namespace atdl
