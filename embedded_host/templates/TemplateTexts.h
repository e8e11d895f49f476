#pragma once

#include <QString>

/// What users read in template files and in the messages about them.
namespace template_texts {

inline const QString NotesTitle = QStringLiteral("备注：");
inline const QString NumberedNote = QStringLiteral("%1、%2：%3");
inline const QString SkippedRows =
    QStringLiteral("前两格都为空的行是备注行，导入时跳过；一行一个算法实例，最多%1行（备注行计算在内）");
inline const QString SkippedRowsTitle = QStringLiteral("说明");
inline const QString FirstSheetOnly =
    QStringLiteral("在算法交易台中导入时，以算法代码命名的工作表按该算法读取，几张表都填写时依次成为几个批次"
                   "；其他程序只读取第一张可见的工作表");
inline const QString ExampleTitle =
    QStringLiteral("示例（下一行；补上证券代码和市场后即成为一个实例，未填的列取默认值）：");

inline const QString Required = QStringLiteral("必填");
inline const QString Optional = QStringLiteral("非必填");
inline const QString NameNote = QStringLiteral("非必填，以系统中的证券名称为准");
inline const QString CodeNote = QStringLiteral("请按文本填写，保留前面的0（如000001）");
inline const QString DateTimeNote = QStringLiteral("格式为yyyy-MM-dd HH:mm:ss");
inline const QString DefaultNow = QStringLiteral("默认当前时间");
inline const QString DefaultToday = QStringLiteral("默认当日%1");
inline const QString DefaultValue = QStringLiteral("默认%1");
inline const QString BothLegs = QStringLiteral("两腿以“/”分隔，先第一腿后第二腿，如%1");
inline const QString NoteSeparator = QStringLiteral("，");
inline const QString StartOnCreate = QStringLiteral("创建并立即启动");
inline const QString CreateOnly = QStringLiteral("创建不启动");

inline const QString ErrorTitle = QStringLiteral("错误");
inline const QString ChoiceTitle = QStringLiteral("请选择列表中的值");
inline const QString ChoiceHint = QStringLiteral("%1：%2");
inline const QString SaveTitle = QStringLiteral("导出模板");
inline const QString SuggestedName = QStringLiteral("算法批量导入模板-%1");
inline const QString NameSeparator = QStringLiteral("、");
inline const QString ReplaceQuestion = QStringLiteral("以下%1个文件已存在，是否替换？\n%2");
inline const QString SaveFilter = QStringLiteral("Excel 工作簿 (*.xlsx);;CSV 文件 (*.csv)");

inline const QString NoStrategy = QStringLiteral("没有可导出的算法模板：%1");
inline const QString NoColumns = QStringLiteral("算法%1的参数格式无法识别，模板未保存");
inline const QString UnknownEnding = QStringLiteral("模板文件的扩展名应为xlsx或csv：%1");
inline const QString NoFolder = QStringLiteral("文件夹不存在，模板未保存：%1");
inline const QString IsFolder = QStringLiteral("该名称是一个文件夹，模板未保存：%1");
inline const QString ReadOnlyFile = QStringLiteral("文件是只读的，模板未保存：%1");
inline const QString OpenElsewhere = QStringLiteral("文件正在其他程序中打开，请关闭后重试，模板未保存：%1");
inline const QString WriteFailed = QStringLiteral("模板未保存：%1（%2）");

} // namespace template_texts
