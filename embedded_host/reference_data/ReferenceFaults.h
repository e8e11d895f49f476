#pragma once

#include "words/Words.h"

#include <QString>

/// What can be wrong with a reference data folder, as it is shown to whoever supplies it.
namespace reference_faults {

/// "FILE:LINE: what is wrong".
inline QString at(const QString& path, int line, const QString& what)
{
    return path + QLatin1Char(':') + QString::number(line) + QLatin1String(": ") + what;
}

inline QString missingFile()
{
    return Words::tr("文件不存在");
}

inline QString unreadableFile(const QString& reason)
{
    return Words::tr("无法读取文件：%1").arg(reason);
}

inline QString notRegular()
{
    return Words::tr("不是普通文件");
}

inline QString fileTooLarge(qint64 mostBytes)
{
    return Words::tr("文件超过 %1 MiB").arg(mostBytes >> 20);
}

inline QString tooManyRows(int most)
{
    return Words::tr("超过 %1 行").arg(most);
}

inline QString tooManyEntries(int most)
{
    return Words::tr("超过 %1 个算法").arg(most);
}

inline QString tooManyColumns(int most)
{
    return Words::tr("该行超过 %1 列").arg(most);
}

/// `what`: a column or key; empty for any cell.
inline QString tooLong(const QString& what, int most)
{
    return Words::tr("%1超过 %2 个字符")
        .arg(what.isEmpty() ? Words::tr("单元格") : what + QLatin1Char(' '))
        .arg(most);
}

inline QString invalidUtf8()
{
    return Words::tr("不是有效的 UTF-8 编码");
}

inline QString unclosedQuote()
{
    return Words::tr("引号没有闭合");
}

inline QString noHeader()
{
    return Words::tr("缺少表头");
}

/// `misspelt`: the column that seems to stand for it; empty when none does.
inline QString missingColumn(const QString& column, const QString& misspelt)
{
    return misspelt.isEmpty() ? Words::tr("表头缺少 %1 列").arg(column)
                              : Words::tr("表头缺少 %1 列，疑似误写为“%2”").arg(column, misspelt);
}

inline QString misspeltKey(const QString& key, const QString& misspelt)
{
    return Words::tr("缺少 %1，疑似误写为“%2”").arg(key, misspelt);
}

inline QString duplicateColumn(const QString& column)
{
    return Words::tr("表头中 %1 列重复").arg(column);
}

inline QString tooManyCells(int cells, int columns)
{
    return Words::tr("该行有 %1 个单元格，表头只有 %2 列").arg(cells).arg(columns);
}

inline QString emptyKey(const QString& column)
{
    return Words::tr("%1 不能为空").arg(column);
}

inline QString duplicateKey(const QString& columns, const QString& values, int firstLine)
{
    return Words::tr("%1 重复：%2，首次出现在第 %3 行")
        .arg(columns, values, QString::number(firstLine)); // at once: a value may look like a placeholder
}

inline QString notWhole(const QString& column, const QString& cell)
{
    return Words::tr("%1 应为整数：%2").arg(column, cell);
}

inline QString outOfRange(const QString& column, const QString& cell, int least, int most)
{
    return Words::tr("%1 应在 %2 到 %3 之间：%4").arg(column).arg(least).arg(most).arg(cell);
}

inline QString notNumber(const QString& column, const QString& cell)
{
    return Words::tr("%1 应为数字：%2").arg(column, cell);
}

inline QString negative(const QString& column, const QString& cell)
{
    return Words::tr("%1 不能为负数：%2").arg(column, cell);
}

inline QString notFlag(const QString& column, const QString& cell)
{
    return Words::tr("%1 应为 0 或 1：%2").arg(column, cell);
}

inline QString jsonSyntax(const QString& reason)
{
    return Words::tr("JSON 语法错误：%1").arg(reason);
}

inline QString notArray()
{
    return Words::tr("最外层应为数组");
}

inline QString notObject()
{
    return Words::tr("数组元素应为对象");
}

inline QString notText(const QString& key)
{
    return Words::tr("%1 应为字符串").arg(key);
}

inline QString notDocument(const QString& key)
{
    return Words::tr("%1 应为数组、对象或字符串").arg(key);
}

} // namespace reference_faults
