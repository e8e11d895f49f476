#pragma once

#include "host/ImportTable.h"

#include <QString>
#include <QStringList>

/// Strategies that rules name by their codes (compared case-sensitively). Those that the host's templates
/// know too stand in host/ImportTable.h.

/// Trade two securities against each other; each leg carries its own direction.
inline const QStringList AipairStrategyList = {QStringLiteral("AIPAIR"), QStringLiteral("AIPAIRBASIC"),
                                               QStringLiteral("AIPAIRPLUS")};

/// Carry an amount instead of a quantity, and take only collateral and financing orders on a credit account.
inline const QStringList CollateralOnlyStrategyList = {QStringLiteral("AITWAP7"), QStringLiteral("AIPOV7")};

/// Trade futures contracts.
inline const QStringList FuturesStrategyList = {
    QStringLiteral("AITWAP5"),       QStringLiteral("G-TWAP"), QStringLiteral("G-VWAP"),
    QStringLiteral("G-FuturesArbi"), QStringLiteral("G-Pair"), QStringLiteral("G-PairFuturesArbi")};

/// Chase a price limit: their legs carry the day's upper limit and the previous close.
inline const QStringList PriceLimitStrategyList = {
    QStringLiteral("PursueHighLimit"), QStringLiteral("PursueHighLimitB"),
    QStringLiteral("DoubleConditionOrder"), QStringLiteral("PursueHighLimitPLUS"),
    QStringLiteral("DoubleConditionOrderPLUS")};

/// Choose their style from a vocabulary of their own.
inline const QStringList QndStrategyList = {QStringLiteral("QND_TWAP"), QStringLiteral("QND_VWAP")};

/// Show what entrust property 6 means on each side.
inline const QStringList CreateStatusStrategyList = StartOnCreateStrategyList + QndStrategyList;

/// Have a template file of their own.
inline const QStringList SingleTemplateStrategyList = {QStringLiteral("AIPOV"),
                                                       QStringLiteral("AIPOVBASIC"),
                                                       QStringLiteral("AITWAPBASIC"),
                                                       QStringLiteral("AITWAP"),
                                                       QStringLiteral("AITWAP3"),
                                                       QStringLiteral("AIVWAPBASIC"),
                                                       QStringLiteral("AIVWAP"),
                                                       QStringLiteral("KF_TWAPPLUS"),
                                                       QStringLiteral("KF_VWAPPLUS"),
                                                       QStringLiteral("SUPERTWAP"),
                                                       QStringLiteral("SUPERVWAP"),
                                                       QStringLiteral("PursueHighLimit"),
                                                       QStringLiteral("DoubleConditionOrder"),
                                                       QStringLiteral("QND_TWAP"),
                                                       QStringLiteral("QND_VWAP")};

/// Accept Hong Kong securities.
inline const QStringList HongKongStrategyList = {
    QStringLiteral("AIPAIR"),      QStringLiteral("AIPAIRBASIC"), QStringLiteral("AIPAIRPLUS"),
    QStringLiteral("AINHG"),       QStringLiteral("AIVWAP3"),     QStringLiteral("AIVWAP"),
    QStringLiteral("AITWAP"),      QStringLiteral("AITWAP3"),     QStringLiteral("TWAP"),
    QStringLiteral("AIPOV"),       QStringLiteral("AITWAPBASIC"), QStringLiteral("AITWAPPLUS"),
    QStringLiteral("AIVWAPBASIC"), QStringLiteral("AIVWAPPLUS"),  QStringLiteral("AIPOVBASIC"),
    QStringLiteral("AIPOVPLUS"),   QStringLiteral("AIPOVZJC"),    QStringLiteral("AITWAPZJC"),
    QStringLiteral("AIVWAPZJC"),   QStringLiteral("VWAP"),        QStringLiteral("POV"),
    QStringLiteral("SUPERVWAP"),   QStringLiteral("SUPERTWAP")};
