#include "desk/window/DeskWindow.h"

#include "desk/window/About.h"
#include "desk/window/AmountRefresher.h"
#include "desk/window/BatchCreator.h"
#include "desk/window/BatchesPage.h"
#include "desk/window/DeskMenus.h"
#include "desk/window/DeskPrompts.h"
#include "desk/window/DeskSettings.h"
#include "desk/window/FilteredTable.h"
#include "desk/window/GatewayPage.h"
#include "desk/window/HaltButton.h"
#include "desk/window/HelpWindow.h"
#include "desk/window/ImportPage.h"
#include "desk/window/InstancesPage.h"
#include "desk/window/LedgerWatch.h"
#include "desk/window/NoticeBar.h"
#include "desk/window/QuotesPage.h"
#include "embedded_host/EmbeddedHost.h"
#include "embedded_host/skin/SkinService.h"
#include "embedded_host/widgets/PlainToolTip.h"
#include "ledger/draft/BatchDiff.h"
#include "words/Words.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QScreen>
#include <QStatusBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTime>
#include <QTimer>
#include <QVBoxLayout>

namespace {

const QSize FirstSize(1280, 800);
constexpr double ShareOfScreen = 0.94; // a frame and a title bar stand around the window
const QString StyleSheetPath = QStringLiteral("desk/desk.css");
const QString LightSkin = QStringLiteral("light");

/// The local files of a drag; none when anything else is among them.
QStringList draggedFiles(const QMimeData* data)
{
    QStringList paths;
    const QList<QUrl> urls = data->urls();
    for (const QUrl& url : urls) {
        if (!QFileInfo(url.toLocalFile()).isFile()) {
            return {};
        }
        paths.append(url.toLocalFile());
    }
    return paths;
}

} // namespace

DeskWindow::DeskWindow(EmbeddedHost& host, const DeskBooks& books, QWidget* parent)
    : QMainWindow(parent), mHost(host), mBooks(books), mPrompts(new DeskPrompts(this)),
      mPages(new QTabWidget(this))
{
    host.setPrompts(mPrompts);
    setWindowTitle(Words::tr("算法交易台"));
    setAcceptDrops(true);
    makePages();
    new DeskMenus(*this);
    makeStatusBar();
    watchLedger();
    host.skins().addView(this, StyleSheetPath);
    restoreLayout();
    say(mBooks.ledgerError);
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
    mPages->tabBar()->setAccessibleName(Words::tr("页面"));
    makeNotices();

    mImport = new ImportPage(mHost, *mPrompts);
    connect(mImport, &ImportPage::confirmed, this, &DeskWindow::takeBatch);
    connect(mImport, &ImportPage::imported, this, &DeskWindow::compareWithEarlier);
    connect(mImport, &ImportPage::said, this, &DeskWindow::say);
    connect(mImport, &ImportPage::fileChanged, this, [this](const QString& path) {
        mNotice->offer(Words::tr("文件在磁盘上已改变：%1").arg(path), Words::tr("重新载入"),
                       [this] { mImport->reload(); });
    });
    connect(mImport, &ImportPage::mapped, this, [this](const QString& notice) {
        mNotice->offer(notice, Words::tr("重新询问"), [this] { mImport->mapColumns(); });
    });
    mPages->addTab(mImport, Words::tr("批量导入"));

    mInstances = new InstancesPage(mHost, mBooks, *mPrompts);
    connect(mInstances, &InstancesPage::said, this, &DeskWindow::say);
    mPages->addTab(mInstances, Words::tr("算法实例"));

    mBatches = new BatchesPage(mHost, mBooks, *mPrompts);
    connect(mBatches, &BatchesPage::said, this, &DeskWindow::say);
    connect(mBatches, &BatchesPage::changed, mInstances, &InstancesPage::reload);
    connect(mInstances, &InstancesPage::changed, mBatches, &BatchesPage::reload);
    connect(mImport, &ImportPage::imported, mBatches,
            [this] { mBatches->setComparable(!mImport->currentTable().rows.isEmpty()); });
    connect(mImport, &ImportPage::cleared, mBatches, [this] { mBatches->setComparable(false); });
    connect(mImport->frame(), &DialogFrame::closed, mBatches, [this] { mBatches->setComparable(false); });
    connect(mBatches, &BatchesPage::comparisonWanted, this, &DeskWindow::compareWith);
    connect(mBatches, &BatchesPage::instancesWanted, this, [this](qint64 batch) {
        mInstances->showBatch(batch);
        showPage(InstancesPageIndex);
    });
    mPages->addTab(mBatches, Words::tr("批次"));

    mQuotes = new QuotesPage(mHost, *mPrompts);
    connect(mQuotes->table(), &FilteredTable::said, this, &DeskWindow::say);
    mPages->addTab(mQuotes, Words::tr("行情"));

    mGateway = new GatewayPage(mHost, mBooks, *mPrompts);
    connect(mGateway, &GatewayPage::said, this, &DeskWindow::say);
    mPages->addTab(mGateway, Words::tr("网关"));
}

void DeskWindow::makeNotices()
{
    mNotice = new NoticeBar(this);
    connect(mNotice, &NoticeBar::batchWanted, this, [this](qint64 batch) {
        mInstances->showBatch(batch);
        showPage(InstancesPageIndex);
    });
    auto* centre = new QWidget(this);
    auto* column = new QVBoxLayout(centre);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(mNotice);
    column->addWidget(mPages, 1);
    setCentralWidget(centre);
}

void DeskWindow::makeStatusBar()
{
    mMessage = new QLabel(this);
    mMessage->setObjectName(QStringLiteral("label_message"));
    mMessage->setTextFormat(Qt::PlainText);
    auto* user = new QLabel(Words::tr("用户 %1").arg(mHost.options().loginAccount), this);
    user->setTextFormat(Qt::PlainText);
    statusBar()->addWidget(mMessage, 1);
    mQueued = new QLabel(this);
    mQueued->setObjectName(QStringLiteral("label_queued"));
    statusBar()->addPermanentWidget(mQueued);
    mRefreshed = new QLabel(this);
    mRefreshed->setObjectName(QStringLiteral("label_refreshed"));
    statusBar()->addPermanentWidget(mRefreshed);
    mLost = new QLabel(this);
    mLost->setObjectName(QStringLiteral("label_ledgerLost"));
    mLost->setTextFormat(Qt::PlainText);
    mLost->hide();
    statusBar()->addPermanentWidget(mLost);
    statusBar()->addPermanentWidget(user);
    mHalt = new HaltButton(mBooks, this);
    connect(mHalt, &HaltButton::said, this, &DeskWindow::say);
    statusBar()->addPermanentWidget(mHalt);
    statusBar()->setSizeGripEnabled(false);
    connect(mImport->amounts(), &AmountRefresher::refreshed, this, [this] {
        mRefreshed->setText(
            Words::tr("预计金额刷新于 %1").arg(QTime::currentTime().toString(QStringLiteral("HH:mm:ss"))));
    });
    connect(mImport, &ImportPage::cleared, mRefreshed, &QLabel::clear);
}

/// A burst of changes is shown once.
void DeskWindow::watchLedger()
{
    constexpr int BurstMs = 300;
    mFollowing = new QTimer(this);
    mFollowing->setSingleShot(true);
    mFollowing->setInterval(BurstMs);
    connect(mFollowing, &QTimer::timeout, this, &DeskWindow::follow);
    if (mBooks.address.path.isEmpty() && mBooks.address.hosts.isEmpty()) {
        return;
    }
    auto* watch = new LedgerWatch(mBooks.address, this);
    connect(watch, &LedgerWatch::changed, mFollowing, [this] {
        if (!mFollowing->isActive()) {
            mFollowing->start();
        }
    });
    connect(watch, &LedgerWatch::lost, this, &DeskWindow::tellLost);
    connect(watch, &LedgerWatch::restored, this, &DeskWindow::tellRestored);
}

/// What is on screen stays there.
void DeskWindow::tellLost(const QString& error, int seconds)
{
    mLost->setText(Words::tr("台账暂不可用，%1 秒后重试；画面可能不是最新").arg(seconds));
    mLost->setToolTip(plainToolTip(error));
    mLost->show();
}

/// A ledger that was out of reach when the window came up is opened now.
void DeskWindow::tellRestored()
{
    mLost->hide();
    if (!mBooks.ledger) {
        const auto opened = ledger::Ledger::open(mBooks.address);
        mBooks.ledger = opened.value;
        mBooks.ledgerError = opened.error;
        mInstances->showBatch(std::nullopt);
    }
    say(mBooks.ledger ? Words::tr("台账已恢复") : mBooks.ledgerError);
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
            {QuotesPageIndex, mQuotes->table()},
            {GatewayPageIndex, mGateway->table()}};
}

QStringList DeskWindow::pageTitles() const
{
    QStringList titles;
    for (int page = 0; page < mPages->count(); ++page) {
        titles.append(mPages->tabText(page));
    }
    return titles;
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

// One chord must not create a batch that the user does not see.
void DeskWindow::confirm()
{
    if (mPages->currentIndex() == ImportPageIndex) {
        mImport->confirm();
    } else {
        showPage(ImportPageIndex);
        say(Words::tr("请先核对批次，再提交"));
    }
}

void DeskWindow::exportList()
{
    if (FilteredTable* table = currentTable()) {
        table->exportRows();
    }
}

void DeskWindow::focusFilter()
{
    if (FilteredTable* table = currentTable()) {
        table->filter()->setFocus(Qt::ShortcutFocusReason);
        table->filter()->selectAll();
    }
}

void DeskWindow::refresh()
{
    mImport->amounts()->refreshNow();
}

void DeskWindow::follow()
{
    if (!mBooks.ledger) {
        return;
    }
    mHalt->refresh();
    mBatches->reload();
    if (mInstances->isVisible()) {
        mInstances->reload();
    }
    if (mGateway->isVisible()) {
        mGateway->refresh();
    }
    const Outcome<qint64> queued = mBooks.ledger->countIn(ledger::InstanceState::Queued);
    mQueued->setText(queued.value > 0 ? Words::tr("%1 待发送").arg(queued.value) : QString());
    const QList<OrderNotices::Notice> notices = mNotices.take(mBatches->counts());
    for (const OrderNotices::Notice& notice : notices) {
        mNotice->tell(notice.text, notice.batch, notice.isWarning);
        QApplication::alert(this);
    }
}

void DeskWindow::showHelp()
{
    if (mHelp == nullptr) {
        mHelp = new HelpWindow(this);
    }
    mHelp->show();
    mHelp->raise();
    mHelp->activateWindow();
}

void DeskWindow::showAbout()
{
    QMessageBox box(QMessageBox::NoIcon, Words::tr("关于算法交易台"), aboutText(), QMessageBox::Ok, this);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

void DeskWindow::say(const QString& text)
{
    mMessage->setText(text);
    mMessage->setToolTip(plainToolTip(text));
}

void DeskWindow::sayToo(const QString& text)
{
    if (!text.isEmpty()) {
        say(mMessage->text() + QStringLiteral(" · ") + text);
    }
}

void DeskWindow::takeBatch(const HandOver& batch)
{
    const std::optional<BatchCreator::Created> created =
        BatchCreator(
            mBooks, mHost.referenceData(), [this](int row) { mImport->showRow(row); },
            [this](const verdict::Judgement& judgement) { mImport->showJudgement(judgement); }, this)
            .create(batch);
    HandOver told = batch;
    for (int i = created ? created->leftOut.size() - 1 : -1; i >= 0; --i) {
        told.content.parameterMaps.removeAt(created->leftOut.at(i) - 1);
    }
    mImport->finish(told, created.has_value());
    if (!created) {
        say(Words::tr("未创建，批次保持原样"));
        return;
    }
    mInstances->showBatch(std::nullopt);
    mBatches->reload();
    const QString fault = mBatches->error().isEmpty() ? mInstances->error() : mBatches->error();
    say(Words::tr("批次 %1：已创建 %2 个实例").arg(created->batch.number).arg(created->batch.rowCount));
    if (created->replaced) {
        sayToo(Words::tr("批次 %1 已撤回").arg(*created->replaced));
    }
    if (!created->leftOut.isEmpty()) {
        sayToo(Words::tr("%1 行台账中已有，没有再创建").arg(created->leftOut.size()));
    }
    sayToo(fault);
}

// An edited file is imported again under its old name. What was taken back is no batch to compare with.
void DeskWindow::compareWithEarlier()
{
    if (!mBooks.ledger || mImport->currentTable().rows.isEmpty()) {
        return;
    }
    const batch::DialogContent now = mImport->content();
    const Outcome<QList<ledger::Batch>> batches = mBooks.ledger->batchesBefore(std::nullopt, 1000);
    sayToo(batches.error);
    for (auto batch = batches.value.cbegin(); batch != batches.value.cend(); ++batch) {
        if (batch->strategy == now.strategy && batch->account == now.account &&
            batch->fileName == mImport->fileName() && batch->state != ledger::BatchState::Withdrawn) {
            showChanges(batch->number);
            return;
        }
    }
}

void DeskWindow::compareWith(qint64 batch)
{
    if (showChanges(batch)) {
        showPage(ImportPageIndex);
    }
}

bool DeskWindow::showChanges(qint64 number)
{
    const ledger::BatchTable now = mImport->currentTable();
    const Outcome<ledger::BatchTable> before = mBooks.ledger->tableOf(number);
    const Outcome<ledger::Batch> batch = mBooks.ledger->batch(number);
    if (!before.ok() || !batch.ok() || now.rows.isEmpty()) {
        const QString error = before.error + batch.error;
        say(error.isEmpty() ? Words::tr("先在“批量导入”中导入要比较的文件") : error);
        return false;
    }
    mImport->showDiff(ledger::compareTables(before.value, now, batch::orderColumns()), batch.value);
    return true;
}

void DeskWindow::setLanguage(const QString& name)
{
    DeskSettings(mHost).setLanguage(name);
    say(Words::tr("下次打开窗口时使用所选语言"));
}

QString DeskWindow::language() const
{
    return DeskSettings(mHost).language();
}

void DeskWindow::setSkin(const QString& name)
{
    mHost.skins().setSkin(name);
    DeskSettings(mHost).setSkin(mHost.skins().skin());
}

void DeskWindow::restoreLayout()
{
    DeskSettings settings(mHost);
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    resize(FirstSize.boundedTo(screen.size() * ShareOfScreen));
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
    if (!mImport->mayThrowAway()) {
        event->ignore();
        return;
    }
    saveLayout();
    QMainWindow::closeEvent(event);
}

void DeskWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!draggedFiles(event->mimeData()).isEmpty()) {
        event->acceptProposedAction();
    }
}

void DeskWindow::dropEvent(QDropEvent* event)
{
    const QStringList paths = draggedFiles(event->mimeData());
    if (paths.isEmpty()) {
        return;
    }
    event->acceptProposedAction();
    showPage(ImportPageIndex);
    mImport->importFiles(paths);
}
