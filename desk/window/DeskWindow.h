#pragma once

#include "desk/window/HandOver.h"
#include "host/IZelSkin.h"

#include <QMainWindow>

class DeskPrompts;
class EmbeddedHost;
class FilteredTable;
class ImportPage;
class QLabel;
class QTabWidget;
class QuotesPage;
class TextTable;

/// The desk: pages for the import, the instances, the batches and the quotes. While it lives it answers the
/// host's questions with real dialogs.
///
///     EmbeddedHost host(ReferenceData(tables), options); // options.home keeps the layout, quotes move
///     DeskWindow window(host);
///     window.show();
///
/// GUI thread only. The host must outlive the window.
class DeskWindow : public QMainWindow, public IZelSkin {
    Q_OBJECT

public:
    enum Page { ImportPageIndex, InstancesPageIndex, BatchesPageIndex, QuotesPageIndex };

    explicit DeskWindow(EmbeddedHost& host, QWidget* parent = nullptr);
    ~DeskWindow() override;

    ImportPage* importPage() const { return mImport; }
    void loadSkin(const QVariant& style) override;

public slots:
    void showPage(int page);
    /// F5: the expected amounts on the import page.
    void refresh();
    void say(const QString& text);

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void makePages();
    void makeFileMenu();
    void makeViewMenu();
    void makeProblemMenu();
    void makeStatusBar();
    QAction* addAction(QMenu* menu, const QString& text, const QKeySequence& key);
    FilteredTable* currentTable() const;
    void takeBatch(const HandOver& batch);
    void setSkin(const QString& name);
    void restoreLayout();
    void saveLayout();

    EmbeddedHost& mHost;
    DeskPrompts* mPrompts;
    QTabWidget* mPages;
    ImportPage* mImport = nullptr;
    QuotesPage* mQuotes = nullptr;
    TextTable* mInstancesModel = nullptr;
    FilteredTable* mInstances = nullptr;
    QLabel* mMessage = nullptr;
};
