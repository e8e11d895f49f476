#include "desk/window/NoticeBar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVariant>

NoticeBar::NoticeBar(QWidget* parent) : QFrame(parent), mText(new QLabel(this))
{
    setObjectName(QStringLiteral("notice"));
    mText->setObjectName(QStringLiteral("label_notice"));
    mText->setTextFormat(Qt::PlainText);
    auto* look = new QPushButton(QStringLiteral("查看实例"), this);
    look->setObjectName(QStringLiteral("button_noticeBatch"));
    auto* close = new QPushButton(QStringLiteral("知道了"), this);
    close->setObjectName(QStringLiteral("button_noticeClose"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(10, 4, 10, 4);
    row->addWidget(mText, 1);
    row->addWidget(look);
    row->addWidget(close);
    connect(look, &QPushButton::clicked, this, [this] {
        hide();
        emit batchWanted(mBatch);
    });
    connect(close, &QPushButton::clicked, this, &QWidget::hide);
    hide();
}

void NoticeBar::tell(const QString& text, qint64 batch, bool isWarning)
{
    mText->setText(text);
    mBatch = batch;
    setProperty("kind", isWarning ? QStringLiteral("warning") : QStringLiteral("done"));
    style()->unpolish(this);
    style()->polish(this);
    show();
}

QString NoticeBar::text() const
{
    return isHidden() ? QString() : mText->text();
}
