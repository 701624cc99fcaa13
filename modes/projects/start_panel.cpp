#include "projects/start_panel.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>

static constexpr int iconSize = 32;
static constexpr int logoWidth = 480;
static constexpr int spacing = 16;

// The picture of the start, a frame around it, as sharp as the display is.
static QPixmap logo(double density)
{
    QPixmap picture(QStringLiteral(":/images/logo.png"));
    if (picture.isNull())
        return picture;
    // Its lowest strip is left free for the words of the start.
    constexpr double drawnPart = 0.89;
    picture = picture.copy(0, 0, picture.width(), int(picture.height() * drawnPart));
    picture = picture.scaledToWidth(int(logoWidth * density), Qt::SmoothTransformation);
    QPainter painter(&picture);
    painter.setPen(QColor(0xc4, 0xcc, 0xd4));
    painter.drawRect(0, 0, picture.width() - 1, picture.height() - 1);
    painter.end();
    picture.setDevicePixelRatio(density);
    return picture;
}

StartPanel::StartPanel(QWidget* parent)
    : QWidget(parent)
    , words_(new QLabel(this))
{
    auto* picture = new QLabel(this);
    picture->setPixmap(logo(devicePixelRatioF()));
    auto* heading = new QLabel(QStringLiteral("Начните с проекта"), this);
    QFont large = heading->font();
    large.setPointSizeF(large.pointSizeF() * 1.6);
    large.setBold(true);
    heading->setFont(large);
    words_->setObjectName(QStringLiteral("words"));
    words_->setAlignment(Qt::AlignCenter);
    words_->setWordWrap(true);

    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(spacing);
    buttons->addStretch(1);
    addButton(buttons,
        "startNew",
        QStringLiteral("&Новый проект"),
        QStringLiteral("Создать проект и ввести первые точки"),
        "listCoord.png");
    addButton(buttons,
        "startOpen",
        QStringLiteral("&Открыть файл…"),
        QStringLiteral("Открыть файл проекта (*.TLX)"),
        "open.png");
    example_ = addButton(buttons,
        "startExample",
        QStringLiteral("Открыть &пример…"),
        QStringLiteral("Посмотреть программу на готовом проекте"),
        "section.png");
    buttons->addStretch(1);

    auto* column = new QVBoxLayout(this);
    column->setSpacing(spacing);
    column->addStretch(2);
    column->addWidget(picture, 0, Qt::AlignCenter);
    column->addWidget(heading, 0, Qt::AlignCenter);
    column->addWidget(words_);
    column->addLayout(buttons);
    column->addStretch(3);

    const auto named = [this](
                           const char* name) { return findChild<QPushButton*>(QString::fromLatin1(name)); };
    connect(named("startNew"), &QPushButton::clicked, this, &StartPanel::newProject);
    connect(named("startOpen"), &QPushButton::clicked, this, &StartPanel::openFile);
    connect(example_, &QPushButton::clicked, this, &StartPanel::openExample);
    setFocusProxy(named("startNew"));
}

QPushButton* StartPanel::addButton(
    QBoxLayout* row, const char* name, const QString& text, const QString& tip, const char* icon)
{
    auto* button =
        new QPushButton(QIcon(QStringLiteral(":/images/") + QString::fromLatin1(icon)), text, this);
    button->setObjectName(QString::fromLatin1(name));
    button->setToolTip(tip);
    button->setIconSize({iconSize, iconSize});
    button->setMinimumSize(button->sizeHint().width() + 2 * spacing, iconSize + spacing);
    button->setAutoDefault(true);
    row->addWidget(button);
    return button;
}

void StartPanel::setWords(const QString& words)
{
    words_->setText(words);
}

void StartPanel::showExamples(bool hasExamples)
{
    example_->setVisible(hasExamples);
}
