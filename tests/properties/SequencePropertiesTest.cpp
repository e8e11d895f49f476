#include "tests/properties/RandomImports.h"

#include <QPointer>
#include <QSignalSpy>

/// Users press what they like, in any order.
class SequenceProperties : public RandomImports {
protected:
    void step()
    {
        switch (below(9)) {
        case 0:
            return load(oneOf<QString>({"AITWAP"_s, "AILOCK"_s, "KF_TWAPPLUS"_s, "AITWAP7"_s, "NONE"_s}));
        case 1:
            return importRows(randomTable(below(6)).sheet.rows());
        case 2:
            return importFile(oneOf<QString>({QString(), folder.filePath("nowhere.csv"_s)}));
        case 3:
            return accounts().SetCurTradingAccount(
                oneOf<QString>({"CASH1"_s, "NOHK"_s, "FUT1"_s, "ODD"_s, "?"_s}));
        case 4:
            return button("btn_ok").click();
        case 5:
            return button("btn_cancel").click();
        case 6:
            return algoTypes().setCurrentIndex(below(algoTypes().count() + 1) - 1);
        case 7:
            return dialog->slotResetOkBtn();
        default:
            dialog->setVisible(chance(50));
            return dialog->slotUpdateAmount();
        }
    }
    /// The way to a signal, where every row happens to be good.
    void importAndConfirm()
    {
        accounts().SetCurTradingAccount("CASH1"_s);
        importRows(randomTable(1 + below(4)).sheet.rows());
        button("btn_ok").click();
    }
    /// Instances outlive the rows that showed them, where an import ends early; rows never outlive instances.
    void expectConsistent()
    {
        EXPECT_TRUE(rowCount() == 0 || rowCount() == dialog->getWidgetData().size());
        const RecordDataList rows = table().getViewData();
        for (const RecordData& row : rows) {
            for (auto cell = row.constBegin(); cell != row.constEnd(); ++cell) {
                EXPECT_LT(cell.key(), table().headNames().size());
            }
        }
    }
};

TEST_F(SequenceProperties, NoOrderOfPressesBreaksTheDialog)
{
    for (unsigned n = 700; n < 700 + Cases; ++n) {
        SCOPED_TRACE("seed " + std::to_string(n));
        seed(n);
        openRandomStrategy();
        for (int i = 0; i < 25; ++i) {
            step();
            expectConsistent();
        }
    }
}

TEST_F(SequenceProperties, EverySignalOfSuccessComesFromADisabledOk)
{
    int signalCount = 0;
    for (unsigned n = 800; n < 800 + Cases; ++n) {
        SCOPED_TRACE("seed " + std::to_string(n));
        seed(n);
        openRandomStrategy();
        QSignalSpy confirmed(dialog.get(), &AlgoBatchImportParamSetting::signalBtnOkClicked);
        for (int i = 0; i < 6; ++i) {
            const int before = confirmed.count();
            if (i == 0 || chance(25)) {
                importAndConfirm();
            } else {
                step();
            }
            if (confirmed.count() > before) {
                button("btn_ok").click();
                EXPECT_EQ(before + 1, confirmed.count());
                EXPECT_FALSE(button("btn_ok").isEnabled());
                EXPECT_FALSE(dialog->getWidgetData().isEmpty());
            }
        }
        signalCount += confirmed.count();
    }
    EXPECT_GT(signalCount, 10);
}

TEST_F(SequenceProperties, ADialogMayGoBetweenAnyTwoPresses)
{
    for (unsigned n = 900; n < 900 + Cases; ++n) {
        SCOPED_TRACE("seed " + std::to_string(n));
        seed(n);
        openRandomStrategy();
        const int steps = below(6);
        for (int i = 0; i < steps; ++i) {
            step();
        }
        QPointer<QWidget> viewport = table().viewport();
        dialog.reset();
        EXPECT_TRUE(viewport.isNull()) << "its widgets go with it";
    }
}

TEST_F(SequenceProperties, LoadingAStrategyForgetsTheFormerBatch)
{
    for (unsigned n = 1000; n < 1000 + Cases; ++n) {
        SCOPED_TRACE("seed " + std::to_string(n));
        seed(n);
        openRandomStrategy();
        importRows(randomTable(1 + below(4)).sheet.rows());
        load(oneOf<QString>({"AITWAP"_s, "AILOCK"_s, "RANDOM"_s}));
        EXPECT_EQ(0, rowCount());
        EXPECT_TRUE(dialog->getWidgetData().isEmpty());
        EXPECT_EQ("CASH1"_s, accounts().GetCurTradingAccount());
        EXPECT_EQ(0.0, child<SolveyDecimalLineEdit>("expectBuyLine").value());
        EXPECT_TRUE(child<QLabel>("label_bWarning").isHidden());
    }
}
