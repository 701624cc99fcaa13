#include "common/notice_bar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

NoticeBar::NoticeBar(const QString& remedy, QWidget* parent)
    : QFrame(parent)
    , text_(new QLabel(this))
    , button_(new QPushButton(remedy, this))
{
    setStyleSheet(
        QStringLiteral("NoticeBar { background: #fff6da; border: 1px solid #e3cf8a; border-radius: 3px; } "
                       "QLabel { color: #5a4a10; }"));
    text_->setWordWrap(true);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 4, 4, 4);
    layout->addWidget(text_, 1);
    layout->addWidget(button_, 0, Qt::AlignVCenter);
    connect(button_, &QPushButton::clicked, this, &NoticeBar::remedyWanted);
    hide();
}

void NoticeBar::say(const QString& text)
{
    text_->setText(text);
    setVisible(!text.isEmpty());
}
