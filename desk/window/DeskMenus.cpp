#include "desk/window/DeskMenus.h"

#include "desk/window/DeskWindow.h"
#include "desk/window/ImportPage.h"
#include "desk/window/ProblemsPanel.h"
#include "embedded_host/skin/SkinService.h"

#include <QActionGroup>
#include <QMenuBar>

namespace {

const QString DarkSkin = QStringLiteral("dark");

} // namespace

DeskMenus::DeskMenus(DeskWindow& window) : QObject(&window), mWindow(window)
{
    makeFileMenu();
    makeViewMenu();
    makeProblemMenu();
    makeHelpMenu();
}

void DeskMenus::add(QMenu* menu, const QString& text, const QKeySequence& key,
                    const std::function<void()>& act)
{
    QAction* action = menu->addAction(text);
    action->setShortcut(key);
    connect(action, &QAction::triggered, act);
}

void DeskMenus::makeFileMenu()
{
    DialogFrame* dialog = mWindow.importPage()->frame();
    QMenu* menu = mWindow.menuBar()->addMenu(QStringLiteral("文件(&F)"));
    add(menu, QStringLiteral("新建批量导入(&N)"), QKeySequence::New, [this, dialog] {
        mWindow.showPage(DeskWindow::ImportPageIndex);
        dialog->open();
    });
    add(menu, QStringLiteral("导入算法(&O)…"), QKeySequence::Open, [this, dialog] {
        mWindow.showPage(DeskWindow::ImportPageIndex);
        dialog->import();
    });
    add(menu, QStringLiteral("确定提交(&C)"), QKeySequence(Qt::CTRL + Qt::Key_Return),
        [this] { mWindow.confirm(); });
    menu->addSeparator();
    add(menu, QStringLiteral("导出当前列表(&E)…"), QKeySequence(Qt::CTRL + Qt::Key_E),
        [this] { mWindow.exportList(); });
    menu->addSeparator();
    add(menu, QStringLiteral("退出(&Q)"), QKeySequence::Quit, [this] { mWindow.close(); });
}

void DeskMenus::makeViewMenu()
{
    QMenu* menu = mWindow.menuBar()->addMenu(QStringLiteral("视图(&V)"));
    const QStringList titles = mWindow.pageTitles();
    for (int page = 0; page < titles.size(); ++page) {
        add(menu, titles.at(page), QKeySequence(QStringLiteral("Ctrl+%1").arg(page + 1)),
            [this, page] { mWindow.showPage(page); });
    }
    menu->addSeparator();
    add(menu, QStringLiteral("刷新预计金额(&R)"), QKeySequence(Qt::Key_F5), [this] { mWindow.refresh(); });
    add(menu, QStringLiteral("筛选(&F)"), QKeySequence::Find, [this] { mWindow.focusFilter(); });
    menu->addSeparator();
    makeSkinEntries(menu);
}

void DeskMenus::makeSkinEntries(QMenu* menu)
{
    auto* skins = new QActionGroup(this);
    for (const QString& name : SkinService::names()) {
        QAction* action = menu->addAction(name == DarkSkin ? QStringLiteral("深色") : QStringLiteral("浅色"));
        action->setCheckable(true);
        action->setData(name);
        action->setObjectName(QStringLiteral("action_skin_") + name);
        skins->addAction(action);
    }
    connect(skins, &QActionGroup::triggered, this,
            [this](QAction* action) { mWindow.setSkin(action->data().toString()); });
}

void DeskMenus::makeProblemMenu()
{
    ProblemsPanel* problems = mWindow.importPage()->problems();
    QMenu* menu = mWindow.menuBar()->addMenu(QStringLiteral("问题(&P)"));
    add(menu, QStringLiteral("下一个问题(&N)"), QKeySequence(Qt::Key_F8), [this, problems] {
        mWindow.showPage(DeskWindow::ImportPageIndex);
        problems->goToNext();
    });
    add(menu, QStringLiteral("上一个问题(&P)"), QKeySequence(Qt::SHIFT + Qt::Key_F8), [this, problems] {
        mWindow.showPage(DeskWindow::ImportPageIndex);
        problems->goToPrevious();
    });
    add(menu, QStringLiteral("保存问题行(&S)…"), QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_S),
        [problems] { problems->saveRejects(); });
}

void DeskMenus::makeHelpMenu()
{
    QMenu* menu = mWindow.menuBar()->addMenu(QStringLiteral("帮助(&H)"));
    add(menu, QStringLiteral("关于算法交易台(&A)…"), QKeySequence(), [this] { mWindow.showAbout(); });
}
