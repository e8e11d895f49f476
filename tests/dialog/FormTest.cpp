// The form: every control, layout and spacer by name, class, parent, text and size.

#include "dialog/AccountComboBox.h"
#include "tests/support/DialogFixture.h"
#include "ui_AlgoBatchImportParamSetting.h"

#include <QHBoxLayout>
#include <QMetaEnum>
#include <QVBoxLayout>

#include <functional>
#include <vector>

namespace {

constexpr int Any = QWIDGETSIZE_MAX;

struct WidgetRow {
    const char* name;
    const char* className;
    const char* parent;
    const char* text; ///< null where the class has none or the strategy gives it
    QSize least;
    QSize most;
};

const WidgetRow widgets[] = {
    {"wid_tittle", "QWidget", "AlgoBatchImportParamSetting", nullptr, {0, 25}, {Any, 25}},
    {"label", "QLabel", "wid_tittle", "账户名称 ", {0, 25}, {Any, 25}},
    {"combx_account", "SolveyAccountComboBox", "wid_tittle", nullptr, {160, 25}, {Any, 25}},
    {"label_2", "QLabel", "wid_tittle", "算法类型", {0, 0}, {Any, Any}},
    {"cbx_algoType", "QComboBox", "wid_tittle", nullptr, {160, 25}, {Any, 25}},
    {"btn_import", "SolveyPushButton", "wid_tittle", "导入算法", {0, 0}, {Any, Any}},
    {"pb_exportModules", "SolveyPushButton", "wid_tittle", "导出模板", {0, 0}, {Any, Any}},
    {"expectBuyLab", "QLabel", "wid_tittle", "预计买入金额:", {0, 0}, {Any, Any}},
    {"expectBuyLine", "SolveyDecimalLineEdit", "wid_tittle", nullptr, {110, 0}, {Any, Any}},
    {"label_bWarning", "QLabel", "wid_tittle", "", {24, 24}, {24, 24}},
    {"expectSellLab", "QLabel", "wid_tittle", "预计卖出金额:", {0, 0}, {Any, Any}},
    {"expectSellLine", "SolveyDecimalLineEdit", "wid_tittle", nullptr, {110, 0}, {Any, Any}},
    {"label_sWarning", "QLabel", "wid_tittle", "", {24, 24}, {24, 24}},
    {"table_paramSettings", "ZelTableView", "AlgoBatchImportParamSetting", nullptr, {0, 0}, {Any, Any}},
    {"widget", "QWidget", "AlgoBatchImportParamSetting", nullptr, {0, 0}, {Any, Any}},
    {"wid_createAndStart", "QWidget", "widget", nullptr, {0, 24}, {Any, 24}},
    {"checkbx_createdClose", "QCheckBox", "wid_createAndStart", "创建后关闭", {0, 0}, {Any, Any}},
    {"btn_ok", "SolveyPushButton", "AlgoBatchImportParamSetting", "确定", {0, 22}, {Any, 22}},
    {"btn_cancel", "SolveyPushButton", "AlgoBatchImportParamSetting", "取消", {0, 22}, {Any, 22}},
};

struct LayoutRow {
    const char* name;
    const char* className;
    const char* parent;
    int spacing;         ///< -1: the style's
    const char* margins; ///< null: the style's
    QStringList items;
};

const LayoutRow layouts[] = {
    {"verticalLayout",
     "QVBoxLayout",
     "AlgoBatchImportParamSetting",
     6,
     nullptr,
     {"horizontalLayout"_s, "table_paramSettings"_s, "widget"_s, "hLayout_btns"_s}},
    {"horizontalLayout", "QHBoxLayout", "verticalLayout", 3, nullptr, {"wid_tittle"_s}},
    {"horizontalLayout_4",
     "QHBoxLayout",
     "wid_tittle",
     -1,
     "0 0 0 0",
     {"label"_s, "combx_account"_s, "label_2"_s, "cbx_algoType"_s, "30x20 Fixed Minimum"_s, "btn_import"_s,
      "pb_exportModules"_s, "424x25 Expanding Minimum"_s, "expectBuyLab"_s, "expectBuyLine"_s,
      "label_bWarning"_s, "expectSellLab"_s, "expectSellLine"_s, "label_sWarning"_s}},
    {"horizontalLayout_3", "QHBoxLayout", "table_paramSettings", 0, "0 0 0 0", {}},
    {"verticalLayout_2", "QVBoxLayout", "widget", 0, "0 0 0 0", {"wid_createAndStart"_s}},
    {"horizontalLayout_5",
     "QHBoxLayout",
     "wid_createAndStart",
     -1,
     "0 6 0 0",
     {"checkbx_createdClose"_s, "40x20 Expanding Minimum"_s}},
    {"hLayout_btns",
     "QHBoxLayout",
     "verticalLayout",
     18,
     nullptr,
     {"40x20 Expanding Minimum"_s, "btn_ok"_s, "btn_cancel"_s, "40x20 Expanding Minimum"_s}},
};

QString policyName(QSizePolicy::Policy policy)
{
    return QString::fromLatin1(QMetaEnum::fromType<QSizePolicy::Policy>().valueToKey(policy));
}

/// The object name; of a spacer, its size and policies.
QString describe(QLayoutItem* item)
{
    if (item->widget() != nullptr) {
        return item->widget()->objectName();
    }
    if (item->layout() != nullptr) {
        return item->layout()->objectName();
    }
    const QSize size = item->sizeHint();
    const QSizePolicy policy = item->spacerItem()->sizePolicy();
    return "%1x%2 %3 %4"_s.arg(size.width())
        .arg(size.height())
        .arg(policyName(policy.horizontalPolicy()), policyName(policy.verticalPolicy()));
}

QString describe(const QMargins& margins)
{
    return "%1 %2 %3 %4"_s.arg(margins.left()).arg(margins.top()).arg(margins.right()).arg(margins.bottom());
}

class Form : public DialogFixture {
protected:
    void SetUp() override { construct(); }
};

} // namespace

TEST_F(Form, EveryControlHasItsNameClassParentTextAndSize)
{
    for (const WidgetRow& row : widgets) {
        const auto found = dialog->findChildren<QWidget*>(QString::fromLatin1(row.name));
        ASSERT_EQ(found.size(), 1) << row.name;
        const QWidget* control = found.first();
        EXPECT_STREQ(control->metaObject()->className(), row.className) << row.name;
        EXPECT_EQ(control->parent()->objectName(), QString::fromLatin1(row.parent)) << row.name;
        EXPECT_EQ(control->minimumSize(), row.least) << row.name;
        EXPECT_EQ(control->maximumSize(), row.most) << row.name;
        if (row.text != nullptr) {
            EXPECT_EQ(control->property("text").toString(), QString::fromUtf8(row.text)) << row.name;
        }
    }
}

TEST_F(Form, EveryLayoutHasItsPlaceSpacingMarginsAndItems)
{
    for (const LayoutRow& row : layouts) {
        const auto found = dialog->findChildren<QBoxLayout*>(QString::fromLatin1(row.name));
        ASSERT_EQ(found.size(), 1) << row.name;
        const QBoxLayout* layout = found.first();
        EXPECT_STREQ(layout->metaObject()->className(), row.className) << row.name;
        EXPECT_EQ(layout->parent()->objectName(), QString::fromLatin1(row.parent)) << row.name;
        if (row.spacing >= 0) {
            EXPECT_EQ(layout->spacing(), row.spacing) << row.name;
        }
        if (row.margins != nullptr) {
            EXPECT_EQ(describe(layout->contentsMargins()), QString::fromLatin1(row.margins)) << row.name;
        }
        QStringList items;
        for (int i = 0; i < layout->count(); ++i) {
            items.append(describe(layout->itemAt(i)));
        }
        EXPECT_EQ(items, row.items) << row.name;
    }
}

TEST_F(Form, TheTableTakesTheSpaceThatIsLeft)
{
    const auto* top = qobject_cast<QVBoxLayout*>(dialog->layout());
    ASSERT_NE(top, nullptr);
    const int stretches[] = {1, 10, 0, 1};
    for (int item = 0; item < 4; ++item) {
        EXPECT_EQ(top->stretch(item), stretches[item]) << item;
    }
    EXPECT_EQ(dialog->findChild<QLayout*>("horizontalLayout"_s)->sizeConstraint(),
              QLayout::SetDefaultConstraint);
}

TEST_F(Form, TheDialogHasItsNameSizeAndTitle)
{
    EXPECT_EQ(dialog->objectName(), "AlgoBatchImportParamSetting"_s);
    EXPECT_EQ(dialog->size(), QSize(1064, 438));
    EXPECT_EQ(dialog->windowTitle(), "Form"_s);
    EXPECT_EQ(dialog->windowFlags(), QWidget().windowFlags()) << "no further flags";
    EXPECT_EQ(dialog->parentWidget(), nullptr);
}

TEST_F(Form, LivesInTheParentThatItIsGiven)
{
    QWidget parent;
    auto* embedded = new AlgoBatchImportParamSetting(&parent, FixedStrategy);
    EXPECT_EQ(embedded->parentWidget(), &parent);
    EXPECT_FALSE(embedded->isWindow());
}

TEST_F(Form, TheTableAndThenTheCheckBoxPanelAreRaised)
{
    QStringList panels;
    for (const QObject* object : dialog->children()) {
        if (object->isWidgetType()) {
            panels.append(object->objectName());
        }
    }
    ASSERT_GE(panels.size(), 2);
    EXPECT_EQ(panels.mid(panels.size() - 2), (QStringList{"table_paramSettings"_s, "widget"_s}));
}

TEST_F(Form, AnAccountIsShownByNameAndAccount)
{
    open();
    EXPECT_EQ(accounts().currentText(), "账户CASH1 (CASH1)"_s);
    EXPECT_NE(dynamic_cast<const AccountComboBox*>(&accounts()), nullptr)
        << "by the mode that it was constructed with, not by the host's default";
}

TEST_F(Form, TheFormObjectHoldsItsItemsInOrderUnderTheirNames)
{
    Ui::AlgoBatchImportParamSetting* form = inspect().form();
    const std::vector<std::pair<const void*, QObject*>> items = {
        {&form->verticalLayout, form->verticalLayout},
        {&form->horizontalLayout, form->horizontalLayout},
        {&form->wid_tittle, form->wid_tittle},
        {&form->horizontalLayout_4, form->horizontalLayout_4},
        {&form->label, form->label},
        {&form->combx_account, form->combx_account},
        {&form->label_2, form->label_2},
        {&form->cbx_algoType, form->cbx_algoType},
        {&form->horizontalSpacer, nullptr},
        {&form->btn_import, form->btn_import},
        {&form->pb_exportModules, form->pb_exportModules},
        {&form->horizontalSpacer_2, nullptr},
        {&form->expectBuyLab, form->expectBuyLab},
        {&form->expectBuyLine, form->expectBuyLine},
        {&form->label_bWarning, form->label_bWarning},
        {&form->expectSellLab, form->expectSellLab},
        {&form->expectSellLine, form->expectSellLine},
        {&form->label_sWarning, form->label_sWarning},
        {&form->table_paramSettings, form->table_paramSettings},
        {&form->horizontalLayout_3, form->horizontalLayout_3},
        {&form->widget, form->widget},
        {&form->verticalLayout_2, form->verticalLayout_2},
        {&form->wid_createAndStart, form->wid_createAndStart},
        {&form->horizontalLayout_5, form->horizontalLayout_5},
        {&form->checkbx_createdClose, form->checkbx_createdClose},
        {&form->horizontalSpacer_3, nullptr},
        {&form->hLayout_btns, form->hLayout_btns},
        {&form->horizontalSpacer_4, nullptr},
        {&form->btn_ok, form->btn_ok},
        {&form->btn_cancel, form->btn_cancel},
        {&form->horizontalSpacer_5, nullptr}};
    const auto* base = reinterpret_cast<const char*>(form);
    for (std::size_t i = 0; i < items.size(); ++i) {
        EXPECT_EQ(static_cast<const char*>(items[i].first) - base, std::ptrdiff_t(i * sizeof(void*))) << i;
    }
    EXPECT_EQ(sizeof(*form), items.size() * sizeof(void*)) << "one pointer an item and nothing else";
    EXPECT_EQ(form->btn_ok, &button("btn_ok"));
    EXPECT_EQ(form->table_paramSettings, &table());
}

TEST_F(Form, TheFormObjectStaysAllocatedWhenTheDialogIsGone)
{
    Ui::AlgoBatchImportParamSetting* form = inspect().form();
    const QLayout* first = form->verticalLayout;
    const SolveyPushButton* last = form->btn_cancel;
    dialog.reset();
    // Were it freed, a sanitizer would stop here, and the allocator would have written over its first words.
    EXPECT_EQ(form->verticalLayout, first);
    EXPECT_EQ(form->btn_cancel, last);
    delete form; // nobody else does
}
