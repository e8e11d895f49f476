// The host's widgets at their barest, on what Qt has.

#include "host/SolveyAccountComboBox.h"
#include "host/SolveyDecimalLineEdit.h"
#include "host/SolveyPushButton.h"
#include "host/ZelMessageBox.h"
#include "host/ZelTableView.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QStandardItemModel>
#include <QTextEdit>
#include <QVBoxLayout>

class ZelTableView::Private {
public:
    QStandardItemModel model;
    RecordDataList records;
};

ZelTableView::ZelTableView(QWidget* parent) : QTableView(parent), d(new Private)
{
    setModel(&d->model);
}
ZelTableView::~ZelTableView() = default;
void ZelTableView::setHeadList(const QList<QMap<QString, QVariant>>& headList)
{
    QStringList names;
    for (const QMap<QString, QVariant>& head : headList) {
        names.append(head.value(Head_DisplayRole).toString());
    }
    d->model.setColumnCount(names.size());
    d->model.setHorizontalHeaderLabels(names);
}
void ZelTableView::addRecordDataList(const RecordDataList& records)
{
    for (const RecordData& record : records) {
        QList<QStandardItem*> items;
        for (int column = 0; column < d->model.columnCount(); ++column) {
            items.append(new QStandardItem(record.value(column).value(QStringLiteral("0")).toString()));
        }
        d->model.appendRow(items);
    }
    d->records += records;
}
RecordDataList ZelTableView::getViewData() const
{
    return d->records;
}
void ZelTableView::clear()
{
    d->records.clear();
    d->model.setRowCount(0);
}
void ZelTableView::setItemSelectable(bool) {}
void ZelTableView::setCheckBoxShow(bool) {}
void ZelTableView::setViewSortable(bool) {}
void ZelTableView::setSerialNumberColumnPropety(ZelViewModel::SerialNumColumnOrder) {}
void ZelTableView::setColumnDefaultTextAlignment(Qt::Alignment) {}
void ZelTableView::setColumnDefaultWidth(int width)
{
    horizontalHeader()->setDefaultSectionSize(width);
}
void ZelTableView::setColumnShow(int column, bool show)
{
    setColumnHidden(column, !show);
}

class ZelMessageBox::Private {};

ZelMessageBox::ZelMessageBox(const QString& title, const QString& text, int type, QWidget* parent, int)
    : QDialog(parent)
{
    setWindowTitle(title);
    auto* message = new QTextEdit(this);
    message->setObjectName(QStringLiteral("textEdit_message"));
    message->setPlainText(text);
    message->setReadOnly(true);
    const bool isQuestion = type == 3;
    auto* buttons = new QDialogButtonBox(isQuestion ? QDialogButtonBox::Yes | QDialogButtonBox::No
                                                    : QDialogButtonBox::StandardButtons(QDialogButtonBox::Ok),
                                         this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept); // 1, the answer yes
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(message);
    layout->addWidget(buttons);
}
ZelMessageBox::~ZelMessageBox() = default;
int ZelMessageBox::exec()
{
    return showModally();
}
int ZelMessageBox::showModally()
{
    return QDialog::exec();
}
void ZelMessageBox::keyPressEvent(QKeyEvent* event)
{
    QDialog::keyPressEvent(event);
}

SolveyAccountComboBox::SolveyAccountComboBox(QWidget* parent, DisplayMode mode)
    : QComboBox(parent), mMode(mode)
{
}
SolveyAccountComboBox::~SolveyAccountComboBox() = default;
void SolveyAccountComboBox::SetAccountList(const QList<tagUserAccountInfo>& accounts)
{
    mAccounts = accounts;
    clear();
    for (const tagUserAccountInfo& account : accounts) {
        addItem(QStringLiteral("%1 (%2)").arg(account.name, account.tradingAccount), account.tradingAccount);
    }
}
void SolveyAccountComboBox::SetCurTradingAccount(const QString& account)
{
    const int index = findData(account);
    if (index >= 0) { // an unknown account changes nothing
        setCurrentIndex(index);
    }
}
QString SolveyAccountComboBox::GetCurTradingAccount() const
{
    return currentData().toString();
}
QString SolveyAccountComboBox::GetCurAccountAssetProp() const
{
    return currentIndex() < 0 ? QString() : mAccounts.at(currentIndex()).assetProp;
}

SolveyPushButton::SolveyPushButton(QWidget* parent) : QPushButton(parent) {}
SolveyPushButton::~SolveyPushButton() = default;

SolveyDecimalLineEdit::SolveyDecimalLineEdit(QWidget* parent) : QDoubleSpinBox(parent)
{
    setRange(-1e15, 1e15);
}
SolveyDecimalLineEdit::~SolveyDecimalLineEdit() = default;
