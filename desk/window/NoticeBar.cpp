#include "desk/window/NoticeBar.h"

#include "words/Words.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVariant>

NoticeBar::NoticeBar(QWidget* parent) : QFrame(parent), mText(new QLabel(this)), mAct(new QPushButton(this))
{
    setObjectName(QStringLiteral("notice"));
    mText->setObjectName(QStringLiteral("label_notice"));
    mText->setTextFormat(Qt::PlainText);
    mAct->setObjectName(QStringLiteral("button_noticeBatch"));
    mAct->setToolTip(Words::tr("列出该批次的实例"));
    auto* close = new QPushButton(Words::tr("知道了"), this);
    close->setToolTip(Words::tr("收起这条通知"));
    close->setObjectName(QStringLiteral("button_noticeClose"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(10, 4, 10, 4);
    row->addWidget(mText, 1);
    row->addWidget(mAct);
    row->addWidget(close);
    connect(mAct, &QPushButton::clicked, this, [this] {
        hide();
        mDo();
    });
    connect(close, &QPushButton::clicked, this, &QWidget::hide);
    hide();
}

void NoticeBar::tell(const QString& text, qint64 batch, bool isWarning)
{
    mText->setText(text);
    mAct->setText(Words::tr("查看实例"));
    mAct->setToolTip(mAct->text());
    mDo = [this, batch] { emit batchWanted(batch); };
    bring(isWarning ? QStringLiteral("warning") : QStringLiteral("done"));
}

void NoticeBar::offer(const QString& text, const QString& button, const std::function<void()>& act)
{
    mText->setText(text);
    mAct->setText(button);
    mAct->setToolTip(mAct->text());
    mDo = act;
    bring(QStringLiteral("warning"));
}

void NoticeBar::bring(const QString& kind)
{
    setProperty("kind", kind);
    style()->unpolish(this);
    style()->polish(this);
    show();
}

QString NoticeBar::text() const
{
    return isHidden() ? QString() : mText->text();
}
