#pragma once

#include "tests/support/DialogFixture.h"

/// Prices rows that are made by hand, so that each holds exactly what its test is about.
class AmountsTest : public DialogFixture {
protected:
    using Cells = QMap<QString, QString>;

    /// A table record with these values by column title. The shown texts are others, so that reading one
    /// shows.
    RecordData record(const Cells& cells)
    {
        RecordData result;
        for (auto cell = cells.constBegin(); cell != cells.constEnd(); ++cell) {
            result[inspect().tableHead().indexOf(cell.key())] = {{"0"_s, "另文"_s}, {"256"_s, cell.value()}};
        }
        return result;
    }
    static Cells row(const QString& symbol, const QString& direction, const QString& quantity = "100"_s,
                     const QString& exchange = "SH"_s)
    {
        return {{"证券代码"_s, symbol},
                {"交易方向"_s, direction},
                {"委托数量"_s, quantity},
                {"市场"_s, exchange}};
    }
    void price(const QList<Cells>& rows)
    {
        RecordDataList records;
        for (const Cells& cells : rows) {
            records.append(record(cells));
        }
        host->journal().clear();
        inspect().calculateExpectAmount(records);
    }

    SolveyDecimalLineEdit& buyBox() { return child<SolveyDecimalLineEdit>("expectBuyLine"); }
    SolveyDecimalLineEdit& sellBox() { return child<SolveyDecimalLineEdit>("expectSellLine"); }
    QLabel& buyWarning() { return child<QLabel>("label_bWarning"); }
    QLabel& sellWarning() { return child<QLabel>("label_sWarning"); }

    void expectSums(double buy, double sell)
    {
        EXPECT_DOUBLE_EQ(buy, buyBox().value());
        EXPECT_DOUBLE_EQ(sell, sellBox().value());
    }
    /// Securities named on each side; "" where all were priced.
    void expectFailures(const QString& buy, const QString& sell)
    {
        EXPECT_EQ(Failed + buy, buyWarning().toolTip());
        EXPECT_EQ(Failed + sell, sellWarning().toolTip());
        EXPECT_EQ(buy.isEmpty(), buyWarning().isHidden());
        EXPECT_EQ(sell.isEmpty(), sellWarning().isHidden());
    }

    const QString Failed = "以下标的获取行情失败，未纳入预估金额计算："_s;
    const QString Red = "QDoubleSpinBox:!enabled{color:red;}"_s;
};
