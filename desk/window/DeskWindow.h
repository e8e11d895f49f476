#pragma once

#include "desk/models/OrderNotices.h"
#include "desk/window/DeskBooks.h"
#include "desk/window/HandOver.h"
#include "host/IZelSkin.h"

#include <QMainWindow>

class BatchesPage;
class DeskPrompts;
class EmbeddedHost;
class FilteredTable;
class GatewayPage;
class HaltButton;
class HelpWindow;
class ImportPage;
class InstancesPage;
class NoticeBar;
class QLabel;
class QTabWidget;
class QTimer;
class QuotesPage;

/// The desk: pages for the import, the instances, the batches and the quotes. While it lives it answers the
/// host's questions with real dialogs.
///
///     EmbeddedHost host(ReferenceData(tables), options); // options.home keeps the layout, quotes move
///     DeskWindow window(host, books);             // books.ledger keeps the batches
///     window.show();
///
/// GUI thread only. The host must outlive the window.
class DeskWindow : public QMainWindow, public IZelSkin {
    Q_OBJECT

public:
    enum Page { ImportPageIndex, InstancesPageIndex, BatchesPageIndex, QuotesPageIndex, GatewayPageIndex };

    DeskWindow(EmbeddedHost& host, const DeskBooks& books, QWidget* parent = nullptr);
    ~DeskWindow() override;

    ImportPage* importPage() const { return mImport; }
    InstancesPage* instancesPage() const { return mInstances; }
    BatchesPage* batchesPage() const { return mBatches; }
    QuotesPage* quotesPage() const { return mQuotes; }
    GatewayPage* gatewayPage() const { return mGateway; }
    QStringList pageTitles() const;
    void loadSkin(const QVariant& style) override;

public slots:
    void showPage(int page);
    /// Ctrl+Enter: confirms the batch that is in front; from another page only shows it.
    void confirm();
    /// Ctrl+E and Ctrl+F: of the list in front.
    void exportList();
    void focusFilter();
    /// F5: the expected amounts on the import page.
    void refresh();
    /// What others wrote into the ledger: shows it, and tells what is worth a notice.
    void follow();
    /// Which product this is, and whose parts are in it.
    void showAbout();
    void showHelp();
    void say(const QString& text);
    /// Remembered for the next session.
    void setSkin(const QString& name);
    /// "en" or "zh", empty for the system's: what the next start of the window speaks.
    void setLanguage(const QString& name);
    QString language() const;

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void makePages();
    void makeNotices();
    void makeStatusBar();
    FilteredTable* currentTable() const;
    QList<QPair<Page, FilteredTable*>> pageLists() const;
    void sayToo(const QString& text);
    void takeBatch(const HandOver& batch);
    void compareWithEarlier();
    void compareWith(qint64 batch);
    /// What the table changes against a batch; false where there is nothing to compare.
    bool showChanges(qint64 number);
    void watchLedger();
    void tellLost(const QString& error, int seconds);
    void tellRestored();
    void restoreLayout();
    void saveLayout();

    EmbeddedHost& mHost;
    DeskBooks mBooks;
    DeskPrompts* mPrompts;
    QTabWidget* mPages;
    ImportPage* mImport = nullptr;
    QuotesPage* mQuotes = nullptr;
    InstancesPage* mInstances = nullptr;
    BatchesPage* mBatches = nullptr;
    GatewayPage* mGateway = nullptr;
    NoticeBar* mNotice = nullptr;
    OrderNotices mNotices;
    QLabel* mQueued = nullptr;
    QLabel* mMessage = nullptr;
    QLabel* mRefreshed = nullptr;
    QLabel* mLost = nullptr;     ///< seen while the ledger cannot be read
    HelpWindow* mHelp = nullptr; ///< once it was asked for
    HaltButton* mHalt = nullptr;
    QTimer* mFollowing = nullptr;
};
