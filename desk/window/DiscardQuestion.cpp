#include "desk/window/DiscardQuestion.h"

#include "words/Words.h"

#include <QMessageBox>
#include <QPushButton>

bool isDiscardWanted(const QString& what, QWidget* parent)
{
    QMessageBox box(QMessageBox::NoIcon, Words::tr("未提交的批次"), what, QMessageBox::NoButton, parent);
    box.setObjectName(QStringLiteral("question_discard"));
    box.setTextFormat(Qt::PlainText);
    QPushButton* discard = box.addButton(Words::tr("放弃(&D)"), QMessageBox::DestructiveRole);
    discard->setObjectName(QStringLiteral("button_discard"));
    QPushButton* keep = box.addButton(Words::tr("保留(&K)"), QMessageBox::RejectRole);
    keep->setObjectName(QStringLiteral("button_keep"));
    box.setDefaultButton(keep);
    box.setEscapeButton(keep);
    box.exec();
    return box.clickedButton() == discard;
}
