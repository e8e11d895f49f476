#include "desk/window/DeskMenus.h"

#include "desk/window/DeskWindow.h"
#include "desk/window/FileGrid.h"
#include "desk/window/ImportPage.h"
#include "desk/window/ProblemFacets.h"
#include "desk/window/ProblemsPanel.h"
#include "embedded_host/skin/SkinService.h"
#include "words/Words.h"

#include <QActionGroup>
#include <QLocale>
#include <QMenuBar>

namespace {

const QString DarkSkin = QStringLiteral("dark");

} // namespace

DeskMenus::DeskMenus(DeskWindow& window) : QObject(&window), mWindow(window)
{
    makeFileMenu();
    makeEditMenu();
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
    QMenu* menu = mWindow.menuBar()->addMenu(Words::tr("文件(&F)"));
    add(menu, Words::tr("新建批量导入(&N)"), QKeySequence::New, [this, dialog] {
        mWindow.showPage(DeskWindow::ImportPageIndex);
        dialog->open();
    });
    add(menu, Words::tr("导入算法(&O)…"), QKeySequence::Open, [this, dialog] {
        mWindow.showPage(DeskWindow::ImportPageIndex);
        dialog->import();
    });
    makeRecentMenu(menu);
    add(menu, Words::tr("从剪贴板导入(&V)"), QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_V), [this] {
        mWindow.showPage(DeskWindow::ImportPageIndex);
        mWindow.importPage()->importClipboard();
    });
    add(menu, Words::tr("重新载入文件(&L)"), QKeySequence(Qt::CTRL + Qt::Key_R), [this] {
        mWindow.showPage(DeskWindow::ImportPageIndex);
        mWindow.importPage()->reload();
    });
    add(menu, Words::tr("导入多个文件(&I)…"), QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_O), [this] {
        mWindow.showPage(DeskWindow::ImportPageIndex);
        mWindow.importPage()->chooseFiles();
    });
    add(menu, Words::tr("列映射(&M)…"), QKeySequence(Qt::CTRL + Qt::Key_M), [this] {
        mWindow.showPage(DeskWindow::ImportPageIndex);
        mWindow.importPage()->mapColumns();
    });
    add(menu, Words::tr("选择算法(&T)…"), QKeySequence(Qt::CTRL + Qt::Key_T), [this, dialog] {
        mWindow.showPage(DeskWindow::ImportPageIndex);
        dialog->findStrategy();
    });
    add(menu, Words::tr("确定提交(&C)"), QKeySequence(Qt::CTRL + Qt::Key_Return),
        [this] { mWindow.confirm(); });
    menu->addSeparator();
    add(menu, Words::tr("导出当前列表(&E)…"), QKeySequence(Qt::CTRL + Qt::Key_E),
        [this] { mWindow.exportList(); });
    menu->addSeparator();
    add(menu, Words::tr("退出(&Q)"), QKeySequence::Quit, [this] { mWindow.close(); });
}

void DeskMenus::makeRecentMenu(QMenu* menu)
{
    QMenu* recent = menu->addMenu(Words::tr("最近的文件(&T)"));
    recent->setObjectName(QStringLiteral("menu_recent"));
    connect(recent, &QMenu::aboutToShow, this, [this, recent] {
        recent->clear();
        const QStringList paths = mWindow.importPage()->recentFiles();
        for (const QString& path : paths) {
            // A name may hold what a menu takes for a mnemonic.
            QAction* action =
                recent->addAction(QString(path).replace(QLatin1Char('&'), QStringLiteral("&&")));
            connect(action, &QAction::triggered, this, [this, path] {
                mWindow.showPage(DeskWindow::ImportPageIndex);
                mWindow.importPage()->frame()->importFile(path);
            });
        }
    });
    recent->addAction(Words::tr("（无）"))->setEnabled(false); // an empty menu is not opened
}

void DeskMenus::makeEditMenu()
{
    ImportPage* page = mWindow.importPage();
    FileGrid* grid = page->grid();
    QMenu* menu = mWindow.menuBar()->addMenu(Words::tr("编辑(&E)"));
    const auto onPage = [this](const std::function<void()>& act) {
        return [this, act] {
            mWindow.showPage(DeskWindow::ImportPageIndex);
            act();
        };
    };
    add(menu, Words::tr("撤销修改(&U)"), QKeySequence::Undo, onPage([grid] { grid->undo(); }));
    add(menu, Words::tr("重做修改(&R)"), QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_Z),
        onPage([grid] { grid->redo(); }));
    menu->addSeparator();
    add(menu, Words::tr("粘贴(&P)"), QKeySequence::Paste, onPage([page] { page->paste(); }));
    add(menu, Words::tr("全列替换(&H)…"), QKeySequence(Qt::CTRL + Qt::Key_H),
        onPage([grid] { grid->replaceInColumn(); }));
    add(menu, Words::tr("排除/恢复所选行(&X)"), QKeySequence(Qt::CTRL + Qt::Key_Minus),
        onPage([grid] { grid->toggleRows(); }));
}

void DeskMenus::makeViewMenu()
{
    QMenu* menu = mWindow.menuBar()->addMenu(Words::tr("视图(&V)"));
    const QStringList titles = mWindow.pageTitles();
    for (int page = 0; page < titles.size(); ++page) {
        add(menu, titles.at(page), QKeySequence(QStringLiteral("Ctrl+%1").arg(page + 1)),
            [this, page] { mWindow.showPage(page); });
    }
    menu->addSeparator();
    add(menu, Words::tr("刷新预计金额(&R)"), QKeySequence(Qt::Key_F5), [this] { mWindow.refresh(); });
    add(menu, Words::tr("参数表/文件(&W)"), QKeySequence(Qt::Key_F6), [this] {
        mWindow.showPage(DeskWindow::ImportPageIndex);
        mWindow.importPage()->switchView();
    });
    add(menu, Words::tr("筛选(&F)"), QKeySequence::Find, [this] { mWindow.focusFilter(); });
    menu->addSeparator();
    makeSkinEntries(menu);
    menu->addSeparator();
    makeLanguageEntries(menu);
}

void DeskMenus::makeSkinEntries(QMenu* menu)
{
    auto* skins = new QActionGroup(this);
    for (const QString& name : SkinService::names()) {
        QAction* action = menu->addAction(name == DarkSkin ? Words::tr("深色") : Words::tr("浅色"));
        action->setCheckable(true);
        action->setData(name);
        action->setObjectName(QStringLiteral("action_skin_") + name);
        skins->addAction(action);
    }
    connect(skins, &QActionGroup::triggered, this,
            [this](QAction* action) { mWindow.setSkin(action->data().toString()); });
}

void DeskMenus::makeLanguageEntries(QMenu* menu)
{
    auto* languages = new QActionGroup(this);
    const QString chosen = mWindow.language();
    const QList<QPair<QString, QString>> entries = {
        {QString(), Words::tr("语言同系统")},
        {QStringLiteral("zh"), QLocale(QLocale::Chinese).nativeLanguageName()},
        {QStringLiteral("en"), QStringLiteral("English")}};
    for (const auto& entry : entries) {
        QAction* action = menu->addAction(entry.second);
        action->setCheckable(true);
        action->setChecked(entry.first == chosen);
        action->setData(entry.first);
        action->setObjectName(QStringLiteral("action_language_") + entry.first);
        languages->addAction(action);
    }
    connect(languages, &QActionGroup::triggered, this,
            [this](QAction* action) { mWindow.setLanguage(action->data().toString()); });
}

void DeskMenus::makeProblemMenu()
{
    ProblemsPanel* problems = mWindow.importPage()->problems();
    QMenu* menu = mWindow.menuBar()->addMenu(Words::tr("问题(&P)"));
    add(menu, Words::tr("下一个问题(&N)"), QKeySequence(Qt::Key_F8), [this, problems] {
        mWindow.showPage(DeskWindow::ImportPageIndex);
        problems->goToNext();
    });
    add(menu, Words::tr("上一个问题(&P)"), QKeySequence(Qt::SHIFT + Qt::Key_F8), [this, problems] {
        mWindow.showPage(DeskWindow::ImportPageIndex);
        problems->goToPrevious();
    });
    add(menu, Words::tr("到文件中修改(&E)"), QKeySequence(Qt::Key_F4), [this, problems] {
        mWindow.showPage(DeskWindow::ImportPageIndex);
        problems->goToPlace();
    });
    add(menu, Words::tr("只看错误(&O)"), QKeySequence(Qt::Key_F7), [this, problems] {
        mWindow.showPage(DeskWindow::ImportPageIndex);
        problems->facets()->toggleErrors();
    });
    menu->addSeparator();
    add(menu, Words::tr("排除问题行(&L)"), QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_L),
        [problems] { problems->leaveOutFaulty(); });
    add(menu, Words::tr("保存问题行(&S)…"), QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_S),
        [problems] { problems->saveRejects(); });
}

void DeskMenus::makeHelpMenu()
{
    QMenu* menu = mWindow.menuBar()->addMenu(Words::tr("帮助(&H)"));
    add(menu, Words::tr("填写说明(&H)"), QKeySequence::HelpContents, [this] { mWindow.showHelp(); });
    add(menu, Words::tr("关于算法交易台(&A)…"), QKeySequence(), [this] { mWindow.showAbout(); });
}
