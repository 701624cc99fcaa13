#include "common/empty_state.h"

#include "common/sheet_page.h"

#include <QGraphicsOpacityEffect>
#include <QIcon>
#include <QLabel>
#include <QVBoxLayout>

static constexpr int pictureSize = 48;
static constexpr double paleness = 0.55;

static QIcon pictureNamed(const QString& file)
{
    QIcon icon(QStringLiteral(":/images/") + file);
    icon.addFile(QStringLiteral(":/images/96/") + file);
    return icon;
}

EmptyState::EmptyState(const QString& picture, QWidget* parent)
    : QWidget(parent)
    , heading_(new QLabel(this))
    , whatToDo_(new QLabel(this))
{
    auto* image = new QLabel(this);
    image->setPixmap(pictureNamed(picture).pixmap(pictureSize, pictureSize));
    auto* pale = new QGraphicsOpacityEffect(image);
    pale->setOpacity(paleness);
    image->setGraphicsEffect(pale);
    QFont larger = heading_->font();
    larger.setPointSizeF(larger.pointSizeF() * 1.25);
    heading_->setFont(larger);
    whatToDo_->setPalette(quietPalette(whatToDo_->palette()));

    auto* column = new QVBoxLayout(this);
    column->addStretch(2);
    column->addWidget(image, 0, Qt::AlignCenter);
    for (QLabel* label : {heading_, whatToDo_}) {
        label->setAlignment(Qt::AlignCenter);
        label->setWordWrap(true);
        column->addWidget(label);
    }
    column->addStretch(3);
}

void EmptyState::say(const QString& heading, const QString& whatToDo)
{
    heading_->setText(heading);
    whatToDo_->setText(whatToDo);
}
