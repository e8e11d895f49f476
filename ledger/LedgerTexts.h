#pragma once

#include "words/Words.h"

#include <QString>

/// What ledger and undo say to the user, each sentence once; what the guard says stands in the catalogue of
/// table/.
namespace ledger::texts {

// The file. %1 is always its name.

inline QString foreignFile(const QString& file)
{
    return Words::tr("“%1”不是算法台账文件，未作任何改动；请移走该文件，或另选目录。").arg(file);
}

inline QString damagedFile(const QString& file)
{
    return Words::tr("台账文件“%1”已损坏，未作任何改动；请保留该文件并从备份恢复。").arg(file);
}

inline QString newerFile(const QString& file, qint64 version, qint64 known)
{
    return Words::tr("台账文件“%1”由更新版本的程序写入（版本 %2，本程序支持到 %3）；请升级程序后再打开。")
        .arg(file, QString::number(version), QString::number(known));
}

inline QString olderFile(const QString& file, qint64 version)
{
    return Words::tr("台账文件“%1”是旧版本（版本 %2）；请先打开一次交易台，由它升级。")
        .arg(file, QString::number(version));
}

inline QString fullDisk(const QString& file)
{
    return Words::tr("磁盘空间不足，台账文件“%1”未能写入；本次操作没有保存，原有批次不受影响。").arg(file);
}

inline QString readOnlyFile(const QString& file)
{
    return Words::tr("台账文件“%1”或其目录只读，无法写入；请检查权限。").arg(file);
}

inline QString busyFile(const QString& file)
{
    return Words::tr("台账文件“%1”正忙，请稍后再试。").arg(file);
}

inline QString unreadableFile(const QString& file)
{
    return Words::tr("台账文件“%1”无法打开；请检查路径和权限。").arg(file);
}

inline QString failedDisk(const QString& file)
{
    return Words::tr("台账文件“%1”读写出错（磁盘故障或已断开）；请检查磁盘。").arg(file);
}

inline QString failedReading(const QString& file)
{
    return Words::tr("台账文件“%1”无法读取；请检查磁盘。").arg(file);
}

inline QString symlinkedFile(const QString& file)
{
    return Words::tr("台账文件“%1”是符号链接，未打开；请改用文件本身的路径。").arg(file);
}

inline QString versionlessFile(const QString& file)
{
    return Words::tr("台账文件“%1”没有有效的版本号，可能已损坏，未作任何改动；请保留该文件并从备份恢复。")
        .arg(file);
}

/// After a commit that failed, where even that could not be found out.
inline QString outcomeUnknown(const QString& ledger, const QString& reason)
{
    return Words::tr("台账“%1”未能确认本次操作是否已保存：%2 请勿重做，先核对台账。").arg(ledger, reason);
}

inline QString noLedger(const QString& ledger)
{
    return Words::tr("没有算法台账“%1”。").arg(ledger);
}

inline QString ceilingsOfFile(const QString& ledger)
{
    return Words::tr("台账“%1”是文件，限额由各程序按 limits.csv 执行；只有服务器上的台账自行保管限额。")
        .arg(ledger);
}

inline QString newLedger(const QString& ledger)
{
    return Words::tr("那里原先没有算法台账，已新建“%1”。").arg(ledger);
}

inline QString wrongAddress()
{
    return Words::tr("台账地址无效：应为文件路径，或 postgresql://[用户@]主机[:端口]/数据库。");
}

inline QString passwordInAddress()
{
    return Words::tr("台账地址中不能有密码；请用 PGPASSWORD 或密码文件。");
}

inline QString noServerSupport()
{
    return Words::tr("本程序不能使用服务器上的台账。");
}

inline QString backupExists(const QString& file)
{
    return Words::tr("“%1”已存在，未覆盖；请另选文件名。").arg(file);
}

inline QString backupFailed(const QString& file)
{
    return Words::tr("备份未能写入“%1”；请检查路径、权限和磁盘空间。").arg(file);
}

inline QString restoreFailed(const QString& file)
{
    return Words::tr("未能恢复到“%1”，原台账未改动；请检查路径、权限和磁盘空间。").arg(file);
}

inline QString restoreOnServer(const QString& ledger)
{
    return Words::tr("台账“%1”在服务器上：请用 pg_restore 恢复，或用 algodesk ledger copy 复制到空的台账。")
        .arg(ledger);
}

inline QString restoreUnconfirmed(const QString& file)
{
    return Words::tr("已恢复到“%1”，但磁盘没有确认；请检查磁盘。").arg(file);
}

inline QString ledgerInUse(const QString& file)
{
    return Words::tr("台账“%1”正被其他程序使用；请先关闭它们。").arg(file);
}

inline QString failedFile(const QString& file, const QString& reason)
{
    return Words::tr("台账文件“%1”操作失败：%2").arg(file, reason);
}

// Batches and instances.

inline QString openedForReading(const QString& file)
{
    return Words::tr("台账文件“%1”以只读方式打开，不能创建或撤销。").arg(file);
}

inline QString draftWithoutId()
{
    return Words::tr("批次没有标识，不能创建。");
}

inline QString draftNotKept(const QString& folder)
{
    return Words::tr("批次标识未能写入“%1”，没有创建；请检查权限和磁盘空间。").arg(folder);
}

inline QString createdBefore(qint64 batch, int rows)
{
    return Words::tr("该文件此前已创建为批次 %1（%2 个实例），只是未及告知；没有再次创建。")
        .arg(batch)
        .arg(rows);
}

inline QString emptyDraft()
{
    return Words::tr("批次中没有算法实例，不能创建。");
}

inline QString numberTooLong()
{
    return Words::tr("批次中有过长的数量或金额，不能创建。");
}

inline QString noSuchBatch(const QString& file, qint64 number)
{
    return Words::tr("台账文件“%1”中没有批次 %2。").arg(file, QString::number(number));
}

// A batch in the place of another.

inline QString replacesOtherAccount(qint64 number, const QString& its, const QString& account)
{
    return Words::tr("批次 %1 属于账号 %2，不能由账号 %3 的批次替换。")
        .arg(QString::number(number), its, account);
}

inline QString nothingToReplace(qint64 number, const QString& state)
{
    return Words::tr("批次 %1 %2，没有可替换的内容。").arg(QString::number(number), state);
}

/// Its orders may trade: a new batch beside them would be the same orders twice.
inline QString sentAlready(qint64 number, const QStringList& instances)
{
    return Words::tr("批次 %1 有 %2 个实例已经启动或发出（%3），不能整批替换；"
                     "请先撤销该批次、核对成交，再重新创建。")
        .arg(QString::number(number), QString::number(instances.size()),
             instances.mid(0, 5).join(Words::tr("、")));
}

inline QString noTableKept(qint64 number)
{
    return Words::tr("批次 %1 由旧版本创建，没有保存导入表，无法比较。").arg(number);
}

inline QString noSuchInstance(const QString& instance)
{
    return Words::tr("没有算法实例 %1。").arg(instance);
}

inline QString forbiddenChange(const QString& instance, const QString& before, const QString& after)
{
    return Words::tr("算法实例 %1 %2，不能改为%3。").arg(instance, before, after);
}

// Halting and approving.

inline QString haltOfAll(const QString& reason, const QString& by)
{
    return Words::tr("全部账号已暂停交易（%1）：%2").arg(by, reason);
}

inline QString haltOf(const QString& account, const QString& reason, const QString& by)
{
    return Words::tr("账号 %1 已暂停交易（%2）：%3").arg(account, by, reason);
}

inline QString noReason()
{
    return Words::tr("请说明原因。");
}

inline QString notHalted(const QString& account)
{
    return account == QLatin1String("*") ? Words::tr("没有对全部账号的暂停。")
                                         : Words::tr("账号 %1 没有暂停。").arg(account);
}

inline QString notWaiting(qint64 batch, const QString& state)
{
    return Words::tr("批次 %1 %2，不在等待复核。").arg(QString::number(batch), state);
}

inline QString ownBatch(qint64 batch)
{
    return Words::tr("批次 %1 由您创建，须由另一人复核。").arg(batch);
}

inline QString lapsedByDay(qint64 batch)
{
    return Words::tr("批次 %1 的交易日已结束，复核申请已失效。").arg(batch);
}

inline QString lapsedByChange(qint64 batch)
{
    return Words::tr("批次 %1 或其限额在申请复核后有改动，申请已失效；请重新创建。").arg(batch);
}

inline QString notYetApproved(qint64 batch, const QString& state)
{
    return Words::tr("批次 %1 %2，不能启动。").arg(QString::number(batch), state);
}

// The gateway.

inline QString accountsServed(const QString& holder)
{
    return Words::tr("这些账号已由另一个网关服务：%1。").arg(holder);
}

inline QString gatewayNeeded(qint64 count)
{
    return Words::tr("还有 %1 个实例待发送或未结束，不能撤销网关登记。").arg(count);
}

inline QString notUnknown(const QString& instance, const QString& state)
{
    return Words::tr("算法实例 %1 %2，不需要核对。").arg(instance, state);
}

// limits.csv.

inline QString negativeLimit(const QString& column, const QString& cell)
{
    return Words::tr("%1 不能为负数：%2").arg(column, cell);
}

// Consent.

inline QString refused(const QString& reasons)
{
    return Words::tr("不能创建：%1。").arg(reasons);
}

inline QString warningsOpen(const QString& warnings)
{
    return Words::tr("有警告未确认：%1。").arg(warnings);
}

inline QString amountNotTyped(const QString& amount)
{
    return Words::tr("总金额达到复核标准，请再次输入总金额 %1 元。").arg(amount);
}

inline QString importComplained()
{
    return Words::tr("导入时有提示，没有创建；如确认可以忽略，请加 --yes。");
}

inline QString notConfirmed()
{
    return Words::tr("批次未能确定，没有创建。");
}

} // namespace ledger::texts
