#pragma once

#include "words/Words.h"

#include <QString>

/// What is said of a ledger on a server, each sentence once. %1 is its address.
namespace ledger::texts {

inline QString noServerDriver()
{
    return Words::tr("缺少 PostgreSQL 驱动（libqt5sql5-psql），不能使用服务器上的台账。");
}

inline QString unreachableServer(const QString& ledger)
{
    return Words::tr("台账服务器“%1”无法连接或拒绝登录；请检查网络、用户和密码文件。").arg(ledger);
}

inline QString lostServer(const QString& ledger)
{
    return Words::tr("与台账服务器“%1”的连接已断开；请稍后再试。").arg(ledger);
}

inline QString busyServer(const QString& ledger)
{
    return Words::tr("台账服务器“%1”正忙，请稍后再试。").arg(ledger);
}

inline QString fullServer(const QString& ledger)
{
    return Words::tr("台账服务器“%1”磁盘空间不足；本次操作没有保存，原有批次不受影响。").arg(ledger);
}

inline QString emptyServer(const QString& ledger)
{
    return Words::tr("“%1”中没有台账；请先运行 algodesk ledger init。").arg(ledger);
}

inline QString newerServer(const QString& ledger, qint64 version, qint64 known)
{
    return Words::tr("台账“%1”由更新版本的程序建立（版本 %2，本程序支持到 %3）；请升级程序后再打开。")
        .arg(ledger, QString::number(version), QString::number(known));
}

inline QString olderServer(const QString& ledger, qint64 version)
{
    return Words::tr("台账“%1”是旧版本（版本 %2）；请由管理员运行 algodesk ledger init 升级。")
        .arg(ledger, QString::number(version));
}

inline QString foreignServer(const QString& ledger)
{
    return Words::tr("“%1”中有其他程序的数据，未作任何改动；请另用一个空的数据库。").arg(ledger);
}

inline QString wrongEncoding(const QString& ledger)
{
    return Words::tr("数据库“%1”的编码不是 UTF8，不能存放台账。").arg(ledger);
}

inline QString unsoundServer(const QString& ledger, const QString& what)
{
    return Words::tr("台账“%1”内容不一致：%2；请保留并从备份恢复。").arg(ledger, what);
}

inline QString notPermitted(const QString& ledger)
{
    return Words::tr("您在台账“%1”中的角色不允许此操作。").arg(ledger);
}

inline QString historyStays(const QString& ledger)
{
    return Words::tr("台账“%1”拒绝改动已有记录。").arg(ledger);
}

inline QString aboveCeiling(const QString& ledger)
{
    return Words::tr("台账“%1”拒绝：超过风控在服务器上设定的上限。").arg(ledger);
}

inline QString haltedOnServer(const QString& ledger)
{
    return Words::tr("台账“%1”拒绝：账号已暂停交易。").arg(ledger);
}

inline QString secondPersonNeeded(const QString& ledger)
{
    return Words::tr("台账“%1”拒绝：须由另一人复核。").arg(ledger);
}

inline QString notWhole(const QString& ledger)
{
    return Words::tr("台账“%1”拒绝：批次不完整。").arg(ledger);
}

inline QString notAudited(const QString& ledger)
{
    return Words::tr("台账“%1”拒绝：改动没有相应的审计记录。").arg(ledger);
}

inline QString wrongClock(const QString& ledger)
{
    return Words::tr("台账“%1”拒绝：本机时钟与服务器相差过大；请校准。").arg(ledger);
}

inline QString failedServer(const QString& ledger, const QString& reason)
{
    return Words::tr("台账“%1”操作失败：%2").arg(ledger, reason);
}

inline QString backupOnServer(const QString& ledger)
{
    return Words::tr("台账“%1”在服务器上：请用 pg_dump 备份，或用 algodesk ledger copy 复制到文件。")
        .arg(ledger);
}

inline QString targetInUse(const QString& ledger)
{
    return Words::tr("台账“%1”不是空的，没有复制。").arg(ledger);
}

inline QString copyDiffers(const QString& ledger, const QString& table)
{
    return Words::tr("复制到“%1”的内容与原台账不一致（%2），已撤销。").arg(ledger, table);
}

inline QString unknownHolder()
{
    return Words::tr("另一个会话");
}

inline QString thisProgram()
{
    return Words::tr("本程序");
}

} // namespace ledger::texts
