#pragma once

#include "desk/batch/DraftBuilder.h"
#include "desk/check/DialogFaults.h"
#include "dialog/AlgoBatchImportParamSetting.h"

class QAbstractButton;
class QComboBox;
class QLabel;
class SolveyAccountComboBox;
class SolveyDecimalLineEdit;
class ZelTableView;

/// The widgets of an open dialog by their object names, and what they hold: the one place of the desk that
/// knows the names. The dialog must live longer; a name that it does not keep ends the program with that
/// name.
///
///     DialogProbe probe(dialog);
///     probe.importButton().click();
///     ledger::BatchDraft draft = batch::makeDraft(probe.content({path, sha256, user}));
class DialogProbe {
public:
    /// An expected amount and the sign beside it that some row has no price.
    struct Expected {
        SolveyDecimalLineEdit& box;
        QLabel& warning;
    };

    /// What the dialog does not know of its table.
    struct Origin {
        QString filePath;
        QString fileSha256; ///< taken at the import
        QString createdBy;
    };

    /// A label of the form and what it stands beside.
    struct Caption {
        QLabel& label;
        QWidget& control;
    };

    explicit DialogProbe(AlgoBatchImportParamSetting& dialog) : mDialog(dialog) {}

    ZelTableView& table() const;
    QComboBox& strategies() const;
    SolveyAccountComboBox& accounts() const;
    QAbstractButton& importButton() const;
    QAbstractButton& confirmButton() const;
    QAbstractButton& templateButton() const;
    QAbstractButton& cancelButton() const;
    QList<Caption> captions() const;
    Expected expectedBuy() const;
    Expected expectedSell() const;

    /// All that a draft needs.
    batch::DialogContent content(const Origin& origin) const;
    /// What the dialog may complain of, under the strategy and the account that it shows.
    DialogFaults faults() const;
    /// The table as it is shown.
    ledger::BatchTable shownTable() const;

private:
    template <typename Widget> Widget& part(const char* name) const;

    AlgoBatchImportParamSetting& mDialog;
};
