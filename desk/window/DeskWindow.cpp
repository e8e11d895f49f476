#include "desk/window/DeskWindow.h"

#include "desk/ledger/BatchDiff.h"
#include "desk/window/AmountRefresher.h"
#include "desk/window/BatchCreator.h"
#include "desk/window/BatchesPage.h"
#include "desk/window/DeskPrompts.h"
#include "desk/window/DeskSettings.h"
#include "desk/window/FilteredTable.h"
#include "desk/window/ImportPage.h"
#include "desk/window/InstancesPage.h"
#include "desk/window/ProblemsPanel.h"
#include "desk/window/QuotesPage.h"
#include "embedded_host/EmbeddedHost.h"
#include "embedded_host/skin/SkinService.h"

#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QStatusBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTime>

namespace {

const QSize FirstSize(1280, 800);
const QString StyleSheetPath = QStringLiteral("desk/desk.css");
const QString LightSkin = QStringLiteral("light");
const QString DarkSkin = QStringLiteral("dark");

/// The one local file of a drag; empty when it is anything else.
QString draggedFile(const QMimeData* data)
{
    const QList<QUrl> urls = data->urls();
    const QString path = urls.size() == 1 ? urls.first().toLocalFile() : QString();
    return QFileInfo(path).isFile() ? path : QString();
}

} // namespace

DeskWindow::DeskWindow(EmbeddedHost& host, const DeskBooks& books, QWidget* parent)
    : QMainWindow(parent), mHost(host), mBooks(books), mPrompts(new DeskPrompts(this)),
      mPages(new QTabWidget(this))
{
    host.setPrompts(mPrompts);
    setWindowTitle(QStringLiteral("算法交易台"));
    setAcceptDrops(true);
    makePages();
    makeFileMenu();
    makeViewMenu();
    makeProblemMenu();
    makeStatusBar();
    host.skins().addView(this, StyleSheetPath);
    restoreLayout();
}

DeskWindow::~DeskWindow()
{
    if (mHost.prompts() == mPrompts) {
        mHost.setPrompts(nullptr);
    }
    qApp->setStyleSheet(QString());
}

void DeskWindow::makePages()
{
    mPages->setDocumentMode(true);
    mPages->tabBar()->setAccessibleName(QStringLiteral("页面"));
    setCentralWidget(mPages);

    mImport = new ImportPage(mHost, *mPrompts);
    connect(mImport, &ImportPage::confirmed, this, &DeskWindow::takeBatch);
    connect(mImport, &ImportPage::imported, this, &DeskWindow::compareWithEarlier);
    connect(mImport, &ImportPage::said, this, &DeskWindow::say);
    mPages->addTab(mImport, QStringLiteral("批量导入"));

    mInstances = new InstancesPage(mHost, mBooks, *mPrompts);
    connect(mInstances, &InstancesPage::said, this, &DeskWindow::say);
    mPages->addTab(mInstances, QStringLiteral("算法实例"));

    mBatches = new BatchesPage(mHost, mBooks, *mPrompts);
    connect(mBatches, &BatchesPage::said, this, &DeskWindow::say);
    connect(mBatches, &BatchesPage::changed, mInstances, &InstancesPage::reload);
    connect(mBatches, &BatchesPage::comparisonWanted, this, &DeskWindow::compareWith);
    connect(mBatches, &BatchesPage::instancesWanted, this, [this](qint64 batch) {
        mInstances->showBatch(batch);
        showPage(InstancesPageIndex);
    });
    mPages->addTab(mBatches, QStringLiteral("批次"));

    mQuotes = new QuotesPage(mHost, *mPrompts);
    connect(mQuotes->table(), &FilteredTable::said, this, &DeskWindow::say);
    mPages->addTab(mQuotes, QStringLiteral("行情"));
}

QAction* DeskWindow::addAction(QMenu* menu, const QString& text, const QKeySequence& key)
{
    QAction* action = menu->addAction(text);
    action->setShortcut(key);
    return action;
}

void DeskWindow::makeFileMenu()
{
    QMenu* menu = menuBar()->addMenu(QStringLiteral("文件(&F)"));
    connect(addAction(menu, QStringLiteral("新建批量导入(&N)"), QKeySequence::New), &QAction::triggered, this,
            [this] {
                showPage(ImportPageIndex);
                mImport->open();
            });
    connect(addAction(menu, QStringLiteral("导入算法(&O)…"), QKeySequence::Open), &QAction::triggered, this,
            [this] {
                showPage(ImportPageIndex);
                mImport->import();
            });
    connect(addAction(menu, QStringLiteral("确定提交(&C)"), QKeySequence(Qt::CTRL + Qt::Key_Return)),
            &QAction::triggered, mImport, &ImportPage::confirm);
    menu->addSeparator();
    connect(addAction(menu, QStringLiteral("导出当前列表(&E)…"), QKeySequence(Qt::CTRL + Qt::Key_E)),
            &QAction::triggered, this, [this] {
                if (FilteredTable* table = currentTable()) {
                    table->exportRows();
                }
            });
    menu->addSeparator();
    connect(addAction(menu, QStringLiteral("退出(&Q)"), QKeySequence::Quit), &QAction::triggered, this,
            &QWidget::close);
}

void DeskWindow::makeViewMenu()
{
    QMenu* menu = menuBar()->addMenu(QStringLiteral("视图(&V)"));
    for (int page = 0; page < mPages->count(); ++page) {
        connect(addAction(menu, mPages->tabText(page), QKeySequence(Qt::CTRL + Qt::Key_1 + page)),
                &QAction::triggered, this, [this, page] { showPage(page); });
    }
    menu->addSeparator();
    connect(addAction(menu, QStringLiteral("刷新预计金额(&R)"), QKeySequence(Qt::Key_F5)),
            &QAction::triggered, this, &DeskWindow::refresh);
    connect(addAction(menu, QStringLiteral("筛选(&F)"), QKeySequence::Find), &QAction::triggered, this,
            [this] {
                if (FilteredTable* table = currentTable()) {
                    table->filter()->setFocus(Qt::ShortcutFocusReason);
                    table->filter()->selectAll();
                }
            });
    menu->addSeparator();
    auto* skins = new QActionGroup(this);
    for (const QString& name : SkinService::names()) {
        QAction* action = menu->addAction(name == DarkSkin ? QStringLiteral("深色") : QStringLiteral("浅色"));
        action->setCheckable(true);
        action->setData(name);
        action->setObjectName(QStringLiteral("action_skin_") + name);
        skins->addAction(action);
    }
    connect(skins, &QActionGroup::triggered, this,
            [this](QAction* action) { setSkin(action->data().toString()); });
}

void DeskWindow::makeProblemMenu()
{
    ProblemsPanel* problems = mImport->problems();
    QMenu* menu = menuBar()->addMenu(QStringLiteral("问题(&P)"));
    connect(addAction(menu, QStringLiteral("下一个问题(&N)"), QKeySequence(Qt::Key_F8)), &QAction::triggered,
            this, [this, problems] {
                showPage(ImportPageIndex);
                problems->goToNext();
            });
    connect(addAction(menu, QStringLiteral("上一个问题(&P)"), QKeySequence(Qt::SHIFT + Qt::Key_F8)),
            &QAction::triggered, this, [this, problems] {
                showPage(ImportPageIndex);
                problems->goToPrevious();
            });
    connect(
        addAction(menu, QStringLiteral("保存问题行(&S)…"), QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_S)),
        &QAction::triggered, problems, &ProblemsPanel::saveRejects);
}

void DeskWindow::makeStatusBar()
{
    mMessage = new QLabel(this);
    mMessage->setTextFormat(Qt::PlainText);
    mMessage->setAccessibleName(QStringLiteral("消息"));
    auto* user = new QLabel(QStringLiteral("用户 %1").arg(mHost.options().loginAccount), this);
    user->setTextFormat(Qt::PlainText);
    statusBar()->addWidget(mMessage, 1);
    mRefreshed = new QLabel(this);
    mRefreshed->setAccessibleName(QStringLiteral("预计金额刷新时间"));
    statusBar()->addPermanentWidget(mRefreshed);
    statusBar()->addPermanentWidget(user);
    statusBar()->setSizeGripEnabled(false);
    connect(mImport->amounts(), &AmountRefresher::refreshed, this, [this] {
        mRefreshed->setText(QStringLiteral("预计金额刷新于 %1")
                                .arg(QTime::currentTime().toString(QStringLiteral("HH:mm:ss"))));
    });
}

FilteredTable* DeskWindow::currentTable() const
{
    const QWidget* page = mPages->currentWidget();
    for (FilteredTable* table : page->findChildren<FilteredTable*>()) {
        if (table->isVisible()) {
            return table;
        }
    }
    return nullptr;
}

QList<QPair<DeskWindow::Page, FilteredTable*>> DeskWindow::pageLists() const
{
    return {{InstancesPageIndex, mInstances->table()},
            {BatchesPageIndex, mBatches->table()},
            {QuotesPageIndex, mQuotes->table()}};
}

void DeskWindow::loadSkin(const QVariant& style)
{
    if (style.isValid()) {
        qApp->setStyleSheet(style.toString()); // message boxes and file dialogs are no children of the window
    }
}

void DeskWindow::showPage(int page)
{
    mPages->setCurrentIndex(page);
}

void DeskWindow::refresh()
{
    mImport->amounts()->refreshNow();
}

void DeskWindow::say(const QString& text)
{
    mMessage->setText(text);
    mMessage->setToolTip(text.toHtmlEscaped());
}

void DeskWindow::takeBatch(const HandOver& batch)
{
    if (!mBooks.ledger && mBooks.ledgerError.isEmpty()) {
        mImport->finish(batch, true);
        say(QStringLiteral("已提交 %1 个实例的参数").arg(batch.content.parameterMaps.size()));
        return;
    }
    const std::optional<ledger::Batch> created = BatchCreator(mBooks, this).create(batch);
    mImport->finish(batch, created.has_value());
    if (!created) {
        say(QStringLiteral("未创建，批次保持原样"));
        return;
    }
    mInstances->showBatch(std::nullopt);
    mBatches->reload();
    say(QStringLiteral("批次 %1：已创建 %2 个实例").arg(created->number).arg(created->rowCount));
}

// An edited file is imported again under its old name.
void DeskWindow::compareWithEarlier()
{
    if (!mBooks.ledger || mImport->currentTable().rows.isEmpty()) {
        return;
    }
    const QString strategy = mImport->dialog()->getStrategy().name();
    const QList<ledger::Batch> batches = mBooks.ledger->batches().value;
    for (auto batch = batches.crbegin(); batch != batches.crend(); ++batch) {
        if (batch->strategy == strategy && batch->fileName == mImport->fileName()) {
            compareWith(batch->number);
            return;
        }
    }
}

void DeskWindow::compareWith(qint64 batch)
{
    const ledger::BatchTable now = mImport->currentTable();
    const ledger::Outcome<ledger::BatchTable> before = mBooks.ledger->tableOf(batch);
    if (!before.ok() || now.rows.isEmpty()) {
        say(before.ok() ? QStringLiteral("先在“批量导入”中导入要比较的文件") : before.error);
        return;
    }
    mImport->showDiff(ledger::compareTables(before.value, now), batch);
    showPage(ImportPageIndex);
}

void DeskWindow::setSkin(const QString& name)
{
    mHost.skins().setSkin(name);
    DeskSettings(mHost).setSkin(mHost.skins().skin());
}

void DeskWindow::restoreLayout()
{
    DeskSettings settings(mHost);
    resize(FirstSize);
    restoreGeometry(settings.geometry());
    showPage(settings.page());
    for (const auto& list : pageLists()) {
        list.second->restoreColumns(settings.columns(list.first));
    }
    setSkin(settings.skin().isEmpty() ? LightSkin : settings.skin());
    if (auto* action = findChild<QAction*>(QStringLiteral("action_skin_") + mHost.skins().skin())) {
        action->setChecked(true);
    }
}

void DeskWindow::saveLayout()
{
    DeskSettings settings(mHost);
    settings.setGeometry(saveGeometry());
    settings.setPage(mPages->currentIndex());
    for (const auto& list : pageLists()) {
        settings.setColumns(list.first, list.second->columnState());
    }
    mImport->saveLayout();
}

void DeskWindow::closeEvent(QCloseEvent* event)
{
    saveLayout();
    QMainWindow::closeEvent(event);
}

void DeskWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!draggedFile(event->mimeData()).isEmpty()) {
        event->acceptProposedAction();
    }
}

void DeskWindow::dropEvent(QDropEvent* event)
{
    const QString path = draggedFile(event->mimeData());
    if (path.isEmpty()) {
        return;
    }
    event->acceptProposedAction();
    showPage(ImportPageIndex);
    mImport->importFile(path);
}
