#pragma once

#include "words/Words.h"

#include <QString>

/// What users read in template files and in the messages about them.
namespace template_texts {

inline QString notesTitle()
{
    return Words::tr("备注：");
}
inline QString numberedNote()
{
    return Words::tr("%1、%2：%3");
}
inline QString skippedRows()
{
    return Words::tr("前两格都为空的行是备注行，导入时跳过；一行一个算法实例，最多%1行（备注行计算在内）");
}
inline QString skippedRowsTitle()
{
    return Words::tr("说明");
}
inline QString firstSheetOnly()
{
    return Words::tr("在算法交易台中导入时，以算法代码命名的工作表按该算法读取，几张表都填写时依次成为几个批"
                     "次；其他程序只读取第一张可见的工作表");
}
inline QString exampleTitle()
{
    return Words::tr("示例（下一行；补上证券代码和市场后即成为一个实例，未填的列取默认值）：");
}

inline QString required()
{
    return Words::tr("必填");
}
inline QString optional()
{
    return Words::tr("非必填");
}
inline QString nameNote()
{
    return Words::tr("非必填，以系统中的证券名称为准");
}
inline QString codeNote()
{
    return Words::tr("请按文本填写，保留前面的0（如000001）");
}
inline QString dateTimeNote()
{
    return Words::tr("格式为yyyy-MM-dd HH:mm:ss");
}
inline QString defaultNow()
{
    return Words::tr("默认当前时间");
}
inline QString defaultToday()
{
    return Words::tr("默认当日%1");
}
inline QString defaultValue()
{
    return Words::tr("默认%1");
}
inline QString bothLegs()
{
    return Words::tr("两腿以“/”分隔，先第一腿后第二腿，如%1");
}
inline QString noteSeparator()
{
    return Words::tr("，");
}
inline QString startOnCreate()
{
    return Words::tr("创建并立即启动");
}
inline QString createOnly()
{
    return Words::tr("创建不启动");
}

inline QString errorTitle()
{
    return Words::tr("错误");
}
inline QString choiceTitle()
{
    return Words::tr("请选择列表中的值");
}
inline QString choiceHint()
{
    return Words::tr("%1：%2");
}
inline QString saveTitle()
{
    return Words::tr("导出模板");
}
inline QString suggestedName()
{
    return Words::tr("算法批量导入模板-%1");
}
inline QString nameSeparator()
{
    return Words::tr("、");
}
inline QString replaceQuestion()
{
    return Words::tr("以下%1个文件已存在，是否替换？\n%2");
}
inline QString saveFilter()
{
    return Words::tr("Excel 工作簿 (*.xlsx);;CSV 文件 (*.csv)");
}

inline QString noStrategy()
{
    return Words::tr("没有可导出的算法模板：%1");
}
inline QString noColumns()
{
    return Words::tr("算法%1的参数格式无法识别，模板未保存");
}
inline QString unknownEnding()
{
    return Words::tr("模板文件的扩展名应为xlsx或csv：%1");
}
inline QString noFolder()
{
    return Words::tr("文件夹不存在，模板未保存：%1");
}
inline QString isFolder()
{
    return Words::tr("该名称是一个文件夹，模板未保存：%1");
}
inline QString readOnlyFile()
{
    return Words::tr("文件是只读的，模板未保存：%1");
}
inline QString openElsewhere()
{
    return Words::tr("文件正在其他程序中打开，请关闭后重试，模板未保存：%1");
}
inline QString writeFailed()
{
    return Words::tr("模板未保存：%1（%2）");
}

} // namespace template_texts
