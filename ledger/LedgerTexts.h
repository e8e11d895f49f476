#pragma once

#include <QString>

/// What ledger, guard and undo say to the user, each sentence once.
namespace ledger::texts {

// The file. %1 is always its name.

inline QString foreignFile(const QString& file)
{
    return QStringLiteral("“%1”不是算法台账文件，未作任何改动；请移走该文件，或另选目录。").arg(file);
}

inline QString damagedFile(const QString& file)
{
    return QStringLiteral("台账文件“%1”已损坏，未作任何改动；请保留该文件并从备份恢复。").arg(file);
}

inline QString newerFile(const QString& file, qint64 version, qint64 known)
{
    return QStringLiteral(
               "台账文件“%1”由更新版本的程序写入（版本 %2，本程序支持到 %3）；请升级程序后再打开。")
        .arg(file, QString::number(version), QString::number(known));
}

inline QString olderFile(const QString& file, qint64 version)
{
    return QStringLiteral("台账文件“%1”是旧版本（版本 %2）；请先打开一次交易台，由它升级。")
        .arg(file, QString::number(version));
}

inline QString fullDisk(const QString& file)
{
    return QStringLiteral("磁盘空间不足，台账文件“%1”未能写入；本次操作没有保存，原有批次不受影响。")
        .arg(file);
}

inline QString readOnlyFile(const QString& file)
{
    return QStringLiteral("台账文件“%1”或其目录只读，无法写入；请检查权限。").arg(file);
}

inline QString fileInUse(const QString& file, const QString& program, qint64 process)
{
    const QString owner = program.isEmpty()
                              ? QString() // it has not written it down yet
                              : QStringLiteral("（%1，进程 %2）").arg(program, QString::number(process));
    return QStringLiteral("台账文件“%1”正被另一个程序使用%2；请先关闭它。").arg(file, owner);
}

inline QString busyFile(const QString& file)
{
    return QStringLiteral("台账文件“%1”正忙，请稍后再试。").arg(file);
}

inline QString unreadableFile(const QString& file)
{
    return QStringLiteral("台账文件“%1”无法打开；请检查路径和权限。").arg(file);
}

inline QString failedFile(const QString& file, const QString& reason)
{
    return QStringLiteral("台账文件“%1”操作失败：%2").arg(file, reason);
}

// Batches and instances.

inline QString openedForReading(const QString& file)
{
    return QStringLiteral("台账文件“%1”以只读方式打开，不能创建或撤销。").arg(file);
}

inline QString draftWithoutId()
{
    return QStringLiteral("批次没有标识，不能创建。");
}

inline QString emptyDraft()
{
    return QStringLiteral("批次中没有算法实例，不能创建。");
}

inline QString noSuchBatch(const QString& file, qint64 number)
{
    return QStringLiteral("台账文件“%1”中没有批次 %2。").arg(file, QString::number(number));
}

inline QString noTableKept(qint64 number)
{
    return QStringLiteral("批次 %1 由旧版本创建，没有保存导入表，无法比较。").arg(number);
}

inline QString noSuchInstance(const QString& instance)
{
    return QStringLiteral("没有算法实例 %1。").arg(instance);
}

inline QString forbiddenChange(const QString& instance, const QString& before, const QString& after)
{
    return QStringLiteral("算法实例 %1 %2，不能改为%3。").arg(instance, before, after);
}

// limits.csv.

inline QString negativeLimit(const QString& column, const QString& cell)
{
    return QStringLiteral("%1 不能为负数：%2").arg(column, cell);
}

// Refusals of the guard.

inline QString notShown(int shown, int instances)
{
    return QStringLiteral("表格中有 %1 行，待创建的实例却有 %2 个：最近一次导入没有成功；请重新导入")
        .arg(shown)
        .arg(instances);
}

inline QString noQuantity(int count)
{
    return QStringLiteral("%1 行既没有委托数量也没有委托金额").arg(count);
}

inline QString negative(int count)
{
    return QStringLiteral("%1 行委托数量、金额或限价为负数").arg(count);
}

inline QString batchRows(int count, const QString& limit)
{
    return QStringLiteral("批次有 %1 行，超过单批上限 %2 行").arg(count).arg(limit);
}

inline QString participation(int count, const QString& limit)
{
    return QStringLiteral("%1 行最大市场占比超过上限 %2%").arg(count).arg(limit);
}

inline QString rowQuantity(int count, const QString& limit)
{
    return QStringLiteral("%1 行委托数量超过单行上限 %2").arg(count).arg(limit);
}

inline QString rowAmount(int count, const QString& limit)
{
    return QStringLiteral("%1 行金额超过单行上限 %2 元").arg(count).arg(limit);
}

inline QString securityAmount(int count, const QString& limit, const QString& symbols)
{
    return QStringLiteral("%1 只证券单边金额超过单证券上限 %2 元：%3").arg(count).arg(limit, symbols);
}

inline QString grossBuy(const QString& amount, const QString& limit)
{
    return QStringLiteral("买入总金额 %1 元超过上限 %2 元").arg(amount, limit);
}

inline QString grossSell(const QString& amount, const QString& limit)
{
    return QStringLiteral("卖出总金额 %1 元超过上限 %2 元").arg(amount, limit);
}

inline QString priceDistance(int count, const QString& limit)
{
    return QStringLiteral("%1 行限价偏离最新价超过 %2%").arg(count).arg(limit);
}

inline QString unpricedRefused(int count)
{
    return QStringLiteral("%1 行没有行情，无法核对金额上限").arg(count);
}

// Warnings of the guard.

inline QString sameFile(int count, const QString& batches)
{
    return QStringLiteral("该文件今天在此账号已创建过 %1 次（批次 %2）").arg(count).arg(batches);
}

inline QString sameRows(int count, const QString& batches)
{
    return QStringLiteral("%1 行与今天在此账号已创建的委托相同（批次 %2）").arg(count).arg(batches);
}

inline QString bothSides(int count, const QString& symbols)
{
    return QStringLiteral("%1 只证券同时买入和卖出：%2").arg(count).arg(symbols);
}

inline QString moneyLikeQuantity(int count)
{
    return QStringLiteral("%1 行委托数量像是金额，请核对").arg(count);
}

inline QString unpriced(int count)
{
    return QStringLiteral("%1 行没有行情，未计入金额").arg(count);
}

inline QString zeroLimit(int count)
{
    return QStringLiteral("%1 行限价为 0，将不限价").arg(count);
}

inline QString endBeforeStart(int count)
{
    return QStringLiteral("%1 行结束时间早于开始时间").arg(count);
}

// Consent.

inline QString refused(const QString& reasons)
{
    return QStringLiteral("不能创建：%1。").arg(reasons);
}

inline QString warningsOpen(const QString& warnings)
{
    return QStringLiteral("有警告未确认：%1。").arg(warnings);
}

inline QString amountNotTyped(const QString& amount)
{
    return QStringLiteral("总金额达到复核标准，请再次输入总金额 %1 元。").arg(amount);
}

inline QString importComplained()
{
    return QStringLiteral("导入时有提示，没有创建；如确认可以忽略，请加 --yes。");
}

inline QString notConfirmed()
{
    return QStringLiteral("批次未能确定，没有创建。");
}

} // namespace ledger::texts
