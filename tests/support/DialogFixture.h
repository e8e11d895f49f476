#pragma once

#include "dialog/AlgoBatchImportParamSetting.h"
#include "embedded_host/EmbeddedHost.h"
#include "embedded_host/RecordingPrompts.h"
#include "host/SolveyAccountComboBox.h"
#include "host/SolveyDecimalLineEdit.h"
#include "host/ZelTableView.h"
#include "tests/support/DialogInspector.h"
#include "tests/support/SmallMarket.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>

#include <memory>

/// The real dialog on the real embedded host, in memory, with the small market. A test may change `tables`
/// before it calls open().
class DialogFixture : public testing::Test {
protected:
    /// The login account, whose ini file stands beside the program, is the test's own.
    DialogFixture();
    ~DialogFixture() override;

    /// Makes the host (its journal records) and the dialog, loads a strategy and chooses an account.
    void open(const QString& strategy = QStringLiteral("AITWAP"),
              const QString& account = QStringLiteral("CASH1"), BatchInsType type = SelectableStrategy);
    /// Makes the host alone, without a dialog.
    void openHost();
    /// Makes the host and a dialog that has loaded no strategy.
    void construct(BatchInsType type = SelectableStrategy);
    /// Makes everything for a strategy of this code and document, in place of one that the small market has.
    void openDocument(const QVariantList& document, const QString& code = QStringLiteral("EXTRA"),
                      const QString& account = QStringLiteral("CASH1"));
    /// Loads another strategy into the open dialog, as the host would.
    void load(const QString& strategy);
    /// Likewise one that the catalogue does not have.
    void loadDocument(const QVariantList& document, const QString& code = QStringLiteral("AITWAP"));
    /// Chooses another algorithm type, as the user would.
    void chooseAlgoType(const QString& code);

    /// Writes rows as a UTF-8 csv file into a fresh folder; returns its path.
    QString writeCsv(const QList<QStringList>& rows, const QString& name = QStringLiteral("list.csv"));
    /// Writes bytes as they are.
    QString writeFile(const QByteArray& bytes, const QString& name);
    /// Presses 导入算法 with the file dialog answering `path`.
    void importFile(const QString& path);
    /// Header and rows as a csv file, imported.
    void importRows(const QList<QStringList>& rows);

    template <typename Widget> Widget& child(const char* name)
    {
        return *dialog->findChild<Widget*>(QString::fromLatin1(name));
    }
    QPushButton& button(const char* name) { return child<QPushButton>(name); }
    ZelTableView& table() { return child<ZelTableView>("table_paramSettings"); }
    QComboBox& algoTypes() { return child<QComboBox>("cbx_algoType"); }
    SolveyAccountComboBox& accounts() { return child<SolveyAccountComboBox>("combx_account"); }
    int rowCount() { return table().getViewData().size(); }
    QList<HostJournal::Call> callsOf(const char* operation);
    DialogInspector inspect() { return DialogInspector(*dialog); }

    /// Text of one cell of the table: "0" shown, "256" value.
    QString shown(int row, const QString& column);
    QString value(int row, const QString& column);
    /// The table row as it was recorded.
    QString cell(int row, const QString& column, const QString& role);
    /// The only leg, or the k-th, of one instance.
    QVariantMap leg(int instance, int k = 0);
    /// Text of the last message box; empty when none came up.
    QString lastBoxText() const;

    ReferenceTables tables = small_market::tables();
    EmbeddedHost::Options options;
    RecordingPrompts prompts;
    std::unique_ptr<EmbeddedHost> host;
    std::unique_ptr<AlgoBatchImportParamSetting> dialog;
    QTemporaryDir folder;

private:
    void removeWorkFolder();
    QString mWorkFolder; ///< of the login account
};
