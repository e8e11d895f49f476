#pragma once

#include "desk/window/DeskBooks.h"
#include "desk/window/DeskWindow.h"
#include "desk/window/FilteredTable.h"
#include "desk/window/ImportPage.h"
#include "embedded_host/EmbeddedHost.h"
#include "host/ZelTableView.h"
#include "tests/support/SmallMarket.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <functional>
#include <memory>

/// The real window on the real embedded host with the small market; its home is a folder of the test's own.
class DeskWindowFixture : public testing::Test {
protected:
    ~DeskWindowFixture() override;

    /// Opens the window with a ledger in the home; a test may set `books` before to have another.
    void open();
    void closeWindow();

    /// A csv file of the ordinary columns in the test's folder.
    QString writeFile(const QList<QStringList>& rows, const QString& name = "list.csv"_s);
    /// Rows as they stand, header first; no cell holds a comma.
    QString writeTable(const QList<QStringList>& rows, const QString& name);
    static QStringList row(const QString& code = "600000"_s, const QString& quantity = "1000"_s);
    /// Drops the file on the window, with a real drag and drop.
    void drop(const QString& path) { drop(QStringList{path}); }
    void drop(const QStringList& paths);

    /// As soon as a modal window is there, does something with it; fails the test where none comes up.
    void whenModal(const std::function<void(QWidget&)>& act);
    /// As soon as a modal window is there, presses one of its buttons.
    void answer(const QString& button);
    /// Presses 确定; where the test waits for no modal window, the batch is created, whatever is asked.
    void pressConfirm();
    /// The same of anything else that creates a batch.
    void agreeingTo(const std::function<void()>& act);
    template <typename Widget> Widget* child(const char* name)
    {
        return window->findChild<Widget*>(QString::fromLatin1(name));
    }
    ZelTableView* parameterTable() { return child<ZelTableView>("table_paramSettings"); }
    /// What the status bar says.
    QString message() { return child<QLabel>("label_message")->text(); }
    /// Cells of a column as shown.
    static QStringList shown(const FilteredTable& table, int column);

    /// Where a batch would be thrown away, the user means it.
    bool discards = true;

    QTemporaryDir home;
    QTemporaryDir folder;
    ReferenceTables tables = small_market::tables();
    DeskBooks books;
    std::unique_ptr<EmbeddedHost> host;
    std::unique_ptr<DeskWindow> window;

private:
    bool answerDiscard();

    int mAwaited = 0;
};
