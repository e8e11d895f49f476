#include "host/IZelSkin.h"
#include "tests/support/DialogFixture.h"

#include <QMetaMethod>

#include <type_traits>

namespace {

using Dialog = AlgoBatchImportParamSetting;

struct Method {
    const char* signature;
    QMetaMethod::MethodType type;
    QMetaMethod::Access access;
};

const Method methods[] = {
    {"signalBtnOkClicked(bool)", QMetaMethod::Signal, QMetaMethod::Public},
    {"signalBtnCancelClicked()", QMetaMethod::Signal, QMetaMethod::Public},
    {"slotResetOkBtn()", QMetaMethod::Slot, QMetaMethod::Public},
    {"slotCbxAccountChanged()", QMetaMethod::Slot, QMetaMethod::Public},
    {"slotUpdateAmount()", QMetaMethod::Slot, QMetaMethod::Public},
    {"slotBtnImportClicked()", QMetaMethod::Slot, QMetaMethod::Private},
    {"slotBtnOkClicked()", QMetaMethod::Slot, QMetaMethod::Private},
    {"slotBtnCancelClicked()", QMetaMethod::Slot, QMetaMethod::Private},
    {"slotIsCreatedClose()", QMetaMethod::Slot, QMetaMethod::Private},
    {"slotBtnExportClicked()", QMetaMethod::Slot, QMetaMethod::Private},
    {"slotCbxAlgoTypeClicked()", QMetaMethod::Slot, QMetaMethod::Private},
};

} // namespace

TEST(MetaObject, ListsSignalsAndSlotsInTheirOrder)
{
    const QMetaObject& meta = Dialog::staticMetaObject;
    ASSERT_EQ(meta.methodCount() - meta.methodOffset(), int(std::size(methods)));
    for (int i = 0; i < int(std::size(methods)); ++i) {
        const QMetaMethod method = meta.method(meta.methodOffset() + i);
        EXPECT_STREQ(method.methodSignature().constData(), methods[i].signature) << i;
        EXPECT_EQ(method.methodType(), methods[i].type) << i;
        EXPECT_EQ(method.access(), methods[i].access) << i;
        EXPECT_STREQ(method.typeName(), "void") << i;
    }
}

TEST(MetaObject, NamesTheSignalsParameter)
{
    const QMetaObject& meta = Dialog::staticMetaObject;
    const QMetaMethod confirmed = meta.method(meta.indexOfSignal("signalBtnOkClicked(bool)"));
    ASSERT_EQ(confirmed.parameterNames().size(), 1);
    EXPECT_STREQ(confirmed.parameterNames().first().constData(), "createdClose");
}

TEST(MetaObject, TheDialogIsAWidgetThatWearsSkins)
{
    EXPECT_TRUE((std::is_base_of<QWidget, Dialog>::value));
    EXPECT_TRUE((std::is_base_of<IZelSkin, Dialog>::value));
    EXPECT_STREQ(Dialog::staticMetaObject.className(), "AlgoBatchImportParamSetting");
    EXPECT_STREQ(Dialog::staticMetaObject.superClass()->className(), "QWidget");
    EXPECT_EQ(FixedStrategy, 0);
    EXPECT_EQ(SelectableStrategy, 1);
}

TEST(MetaObject, NoSlotFollowsTheNamePatternOfAutomaticConnections)
{
    const QMetaObject& meta = Dialog::staticMetaObject;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        EXPECT_FALSE(meta.method(i).name().startsWith("on_")) << meta.method(i).name().constData();
    }
}
