#include "desk/window/ReplaceDialog.h"

#include "words/Words.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

ReplaceDialog::ReplaceDialog(const QString& title, const QMap<QString, int>& values, const QString& current,
                             QWidget* parent)
    : QDialog(parent), mValues(values), mBefore(new QComboBox(this)), mAfter(new QLineEdit(this)),
      mCount(new QLabel(this))
{
    setWindowTitle(Words::tr("全列替换：%1").arg(title));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    mBefore->setObjectName(QStringLiteral("combo_before"));
    mAfter->setObjectName(QStringLiteral("edit_after"));
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
        mBefore->addItem(value.key().isEmpty() ? Words::tr("（空）") : value.key(), value.key());
    }
    mBefore->setCurrentIndex(qMax(0, mBefore->findData(current)));
    mCount->setProperty("role", QStringLiteral("caption"));
    auto* form = new QFormLayout(this);
    form->addRow(Words::tr("把(&F)"), mBefore);
    form->addRow(Words::tr("改为(&T)"), mAfter);
    form->addRow(QString(), mCount);
    auto* buttons = new QDialogButtonBox(this);
    mReplace = buttons->addButton(Words::tr("替换(&R)"), QDialogButtonBox::AcceptRole);
    mReplace->setObjectName(QStringLiteral("button_replaceAll"));
    mReplace->setDefault(true);
    buttons->addButton(Words::tr("取消"), QDialogButtonBox::RejectRole)
        ->setObjectName(QStringLiteral("button_cancel"));
    form->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(mBefore, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &ReplaceDialog::showCount);
    connect(mAfter, &QLineEdit::textChanged, this, &ReplaceDialog::showCount);
    showCount();
    mAfter->setFocus();
}

QString ReplaceDialog::before() const
{
    return mBefore->currentData().toString();
}

QString ReplaceDialog::after() const
{
    return mAfter->text();
}

void ReplaceDialog::showCount()
{
    mCount->setText(Words::tr("%1 行").arg(mValues.value(before())));
    mReplace->setEnabled(mBefore->count() > 0 && before() != after());
}
