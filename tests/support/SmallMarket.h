#pragma once

#include "embedded_host/reference_data/ReferenceData.h"

#include <QString>
#include <QStringList>
#include <QVariantList>
#include <QVariantMap>

/// A market small enough to hold in the head: one security of every class that rules tell apart.
///
/// | symbol       | what                                    | last   | max    |
/// |--------------|-----------------------------------------|--------|--------|
/// | 600000.SH    | stock, lots of 100                      | 10     | 11     |
/// | 000001.SZ    | stock, lots of 100                      | 20     | 22     |
/// | 688001.SH    | STAR board, from 200, no step           | 30     | 33     |
/// | 430001.BJ    | Beijing, from 100, no step              | 5      | 6.5    |
/// | 510300.SH    | fund, three decimals                    | 4      | 4.4    |
/// | 204001.SH    | bond repurchase                         | 1.5    |        |
/// | 131810.SZ    | display factor 100                      | 50     | 55     |
/// | 00700.HK     | HK main board, both connects            | 300    |        |
/// | 08001.HK     | HK growth board, only the SH connect    | 2      |        |
/// | 00939.HK     | H share                                 | 5      |        |
/// | 00001.HK     | HK, no exchange at all                  | 40     |        |
/// | IF2412.CFE   | futures, multiplier 300, one decimal    | 3500   | 3800   |
/// | 600999.SH    | no quote                                |        |        |
/// | 600998.SH    | no exchange                             | 10     | 11     |
///
/// Accounts: CASH1 (every market), NOHK (SH, SZ), CREDIT1 (SH, SZ, BJ), FUT1 (CFE), ODD (another account
/// type, no node).
namespace small_market {

/// Markets, securities, accounts, quotes and rates, and strategies of the documents below.
ReferenceTables tables();

// Parameter entries, as a document lists them.
QVariantMap entry(const QString& name, const QString& ui, const QVariantMap& more = {});
QVariantMap line(const QString& name, const QVariantMap& more = {});
QVariantMap dateTime(const QString& name, const QVariantMap& more = {});
/// Options are "value=display".
QVariantMap combo(const QString& name, const QStringList& options, const QVariantMap& more = {});
QVariantMap table(const QVariantList& columns);
/// `required` and the default of a parameter that a file may lack.
QVariantMap optional(const QString& defaultValue, const QString& defaultShown);
QString toJson(const QVariantList& document);

/// Code and quantity as table columns; direction, entrust property, limit, times, style and remark as
/// parameters.
QVariantList ordinaryDocument();
/// Like the ordinary one with futures directions.
QVariantList futuresDocument();
/// Direction, entrust property and limit as table columns, for two legs.
QVariantList pairedDocument();
/// 委托金额 in place of the quantity.
QVariantList amountDocument();
/// 封单金额 in place of the quantity.
QVariantList sealingDocument();

/// The columns of a file for the ordinary document, and a good row of it.
QStringList ordinaryHeader();
QStringList ordinaryRow(const QString& code = QStringLiteral("600000"),
                        const QString& market = QStringLiteral("SH"),
                        const QString& quantity = QStringLiteral("1000"),
                        const QString& direction = QStringLiteral("1"));

} // namespace small_market
