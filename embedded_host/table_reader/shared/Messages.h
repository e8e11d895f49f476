#pragma once

#include "embedded_host/table_reader/shared/Limits.h"
#include "words/Words.h"

#include <QString>

/// The sentences with which the table reader refuses a file, for the user.
namespace table_reader::message {

inline QString missing()
{
    return Words::tr("文件不存在");
}
inline QString isDirectory()
{
    return Words::tr("所选路径是文件夹，不是文件");
}
inline QString notRegular()
{
    return Words::tr("所选路径不是普通文件，无法读取");
}
inline QString unreadable(const QString& reason)
{
    return Words::tr("文件无法打开，可能正被其他程序占用或没有读取权限：%1").arg(reason);
}
inline QString changed()
{
    return Words::tr("文件在读取之后被修改，请重新导入");
}

inline QString encrypted()
{
    return Words::tr("文件已加密或受权限保护，请取消密码或保护后另存再导入");
}
inline QString html()
{
    return Words::tr("文件内容是网页（HTML），不是表格，请另存为xlsx或csv后再导入");
}
inline QString webArchive()
{
    return Words::tr("文件内容是单个文件网页（MHTML），请另存为xlsx或csv后再导入");
}
inline QString xmlSpreadsheet()
{
    return Words::tr("文件内容是XML电子表格2003，请另存为xlsx后再导入");
}
inline QString flatOpenDocument()
{
    return Words::tr("文件内容是单个XML的OpenDocument表格，请另存为xlsx或ods后再导入");
}
inline QString xml()
{
    return Words::tr("文件内容是XML，不是表格，请另存为xlsx或csv后再导入");
}
inline QString richText()
{
    return Words::tr("文件内容是RTF文档，不是表格");
}
inline QString pdf()
{
    return Words::tr("文件内容是PDF文档，不是表格");
}
inline QString image()
{
    return Words::tr("文件内容是图片，不是表格");
}
inline QString compressed()
{
    return Words::tr("文件是压缩包，请解压后导入其中的表格");
}
inline QString otherZip()
{
    return Words::tr("文件是压缩包或其他程序的文件，里面没有可读取的表格");
}
inline QString binaryWorkbook()
{
    return Words::tr("不支持xlsb（二进制工作簿），请另存为xlsx后再导入");
}
inline QString otherDocument()
{
    return Words::tr("文件是文档、演示文稿或其他程序的文件，不是表格");
}
inline QString oldWorkbook()
{
    return Words::tr("不支持1993年以前的xls格式（BIFF2至BIFF4），请另存为xlsx后再导入");
}
inline QString binary()
{
    return Words::tr("文件不是文本，也不是可识别的表格（含有值为零的字节）");
}

inline QString damaged(const QString& where)
{
    return Words::tr("文件已损坏，无法读取：%1").arg(where);
}
inline QString damagedArchive()
{
    return damaged(Words::tr("压缩结构不完整"));
}
inline QString damagedContainer()
{
    return damaged(Words::tr("复合文档结构不完整"));
}
inline QString missingPart(const QString& part)
{
    return damaged(Words::tr("缺少部件%1").arg(part));
}
inline QString damagedPart(const QString& part)
{
    return damaged(Words::tr("部件%1校验失败").arg(part));
}
inline QString damagedXml(const QString& part, qint64 line, qint64 column)
{
    return damaged(Words::tr("部件%1第%2行第%3列不是有效的XML")
                       .arg(part, QString::number(line), QString::number(column)));
}
inline QString unexpectedXml(const QString& part)
{
    return damaged(Words::tr("部件%1的内容与其用途不符").arg(part));
}
inline QString badAddress(const QString& part, const QString& address)
{
    return damaged(Words::tr("部件%1的单元格地址“%2”无效").arg(part, address.left(40)));
}
inline QString badRowNumber(const QString& part, const QString& number)
{
    return damaged(Words::tr("部件%1的行号“%2”无效").arg(part, number.left(40)));
}
inline QString missingSheet(const QString& sheet)
{
    return damaged(Words::tr("缺少工作表“%1”的内容").arg(sheet));
}
inline QString foreignEncoding(const QString& part)
{
    return Words::tr("部件%1的文字编码不受支持，请用电子表格程序另存后再导入").arg(part);
}
inline QString documentType(const QString& part)
{
    return Words::tr("文件含有不允许的文档类型声明（部件%1），已拒绝读取").arg(part);
}
inline QString truncatedWorkbook()
{
    return damaged(Words::tr("工作簿数据不完整"));
}
inline QString badSharedText(const QString& cell)
{
    return damaged(Words::tr("单元格%1引用的文本不存在").arg(cell));
}
inline QString noSuchSheet(const QString& sheet)
{
    return Words::tr("文件中没有工作表“%1”").arg(sheet);
}
inline QString noSheet()
{
    return Words::tr("文件中没有工作表");
}

inline QString tooLarge(const QString& what)
{
    return Words::tr("文件超出读取限制：%1").arg(what);
}
inline QString fileTooLarge()
{
    return tooLarge(Words::tr("文件过大"));
}
inline QString tooManySheets()
{
    return tooLarge(Words::tr("工作表过多"));
}
inline QString tooManyColumns(int row)
{
    return tooLarge(Words::tr("第%1行超过%2列").arg(row + 1).arg(limits::Columns));
}
inline QString tooManyCells()
{
    return tooLarge(Words::tr("单元格过多"));
}
inline QString cellTooLong(const QString& cell)
{
    return tooLarge(Words::tr("单元格%1的文字过长").arg(cell));
}
inline QString tooMuchText()
{
    return tooLarge(Words::tr("文字总量过大"));
}
inline QString tooManyParts()
{
    return tooLarge(Words::tr("压缩包内文件过多"));
}
inline QString partTooLarge(const QString& part)
{
    return tooLarge(Words::tr("部件%1解压后过大").arg(part));
}
inline QString tooManyAttributes(const QString& part)
{
    return tooLarge(Words::tr("部件%1的一个标签中属性过多").arg(part));
}
inline QString tooManyNamespaces(const QString& part)
{
    return tooLarge(Words::tr("部件%1的命名空间过多").arg(part));
}
inline QString nestedTooDeep(const QString& part)
{
    return tooLarge(Words::tr("部件%1嵌套过深").arg(part));
}
inline QString tooManyRecords()
{
    return tooLarge(Words::tr("记录过多"));
}

inline QString unknownEncoding(const QString& name)
{
    return Words::tr("不认识的文件编码：%1").arg(name);
}
inline QString openQuote(int line)
{
    return Words::tr("第%1行的引号没有结束，后面的内容都会被它吞掉，请检查该行的引号").arg(line);
}

} // namespace table_reader::message
