#include "listCoords/head_panel.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

static const QString noticeStyle = QStringLiteral(
    "color: #8a2b16; background: #fdeee9; border: 1px solid #f0c4b6; border-radius: 3px; padding: 4px 8px;");

static QLineEdit* addLine(QGridLayout* layout, int column, const QString& caption, const QString& tip)
{
    auto* line = new QLineEdit;
    auto* label = new QLabel(caption);
    label->setBuddy(line);
    line->setToolTip(tip);
    layout->addWidget(label, 0, column);
    layout->addWidget(line, 0, column + 1);
    return line;
}

HeadPanel::HeadPanel(ISettings* settings, QWidget* parent)
    : QWidget(parent)
    , settings_(settings)
    , notice_(new QLabel(this))
    , nameButton_(new QPushButton(QStringLiteral("Назвать проект…"), this))
{
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    code_ = addLine(layout, 0, QStringLiteral("&Шифр:"), QStringLiteral("Шифр проекта в документах."));
    title_ = addLine(
        layout, 2, QStringLiteral("&Наименование:"), QStringLiteral("Наименование объекта в документах."));
    file_ = addLine(layout,
        4,
        QStringLiteral("&Файл:"),
        QStringLiteral(
            "Под этим именем проект сохраняется в папке «Проекты».\nЕсли имя сменить, прежний файл "
            "останется на старом месте."));
    layout->setColumnStretch(1, 2);
    layout->setColumnStretch(3, 5);
    layout->setColumnStretch(5, 3);
    layout->addWidget(notice_, 1, 0, 1, 5);
    layout->addWidget(nameButton_, 1, 5, Qt::AlignRight);
    notice_->setWordWrap(true);
    notice_->setStyleSheet(noticeStyle);
    for (QLineEdit* line : {code_, title_, file_}) {
        line->installEventFilter(this);
        connect(line, &QLineEdit::editingFinished, this, &HeadPanel::commit);
    }
    connect(nameButton_, &QPushButton::clicked, this, &HeadPanel::nameWanted);
    code_->setObjectName(QStringLiteral("projectCode"));
    title_->setObjectName(QStringLiteral("projectTitle"));
    file_->setObjectName(QStringLiteral("projectFile"));
    notice_->setObjectName(QStringLiteral("projectNotice"));
    showNothing();
}

HeadPanel::~HeadPanel()
{
    for (QLineEdit* line : {code_, title_, file_})
        line->disconnect(this);
}

void HeadPanel::showNothing()
{
    head_ = {};
    problem_.clear();
    fill();
    setEnabled(false);
    notice_->hide();
    nameButton_->hide();
}

void HeadPanel::showHead(const ProjectHead& head)
{
    const bool isNew = head.file != head_.file || !isEnabled();
    const QString typedFile = file_->text();
    setEnabled(true);
    head_ = head;
    if (isNew)
        problem_.clear();
    fill();
    if (!problem_.isEmpty())
        file_->setText(typedFile);
    showNotice();
}

static void setLine(QLineEdit* line, const std::wstring& text)
{
    if (const QString stored = QString::fromStdWString(text); line->text() != stored)
        line->setText(stored);
    // A long name is read from its beginning.
    if (!line->hasFocus())
        line->setCursorPosition(0);
    line->setModified(false);
}

void HeadPanel::fill()
{
    setLine(code_, head_.code);
    setLine(title_, head_.title);
    setLine(file_, head_.file);
}

void HeadPanel::showNotice()
{
    const bool unnamed = isUnnamed(head_);
    notice_->setText(!problem_.isEmpty()
            ? QStringLiteral("Имя файла не записано. ") + problem_
            : QStringLiteral(
                "Проект ещё не назван: он сохранится как TLXXXXX.TLX поверх другого неназванного."));
    notice_->setVisible(unnamed || !problem_.isEmpty());
    nameButton_->setVisible(unnamed);
}

void HeadPanel::commit()
{
    if (!isEnabled())
        return;
    ProjectHead after = head_;
    if (code_->isModified())
        after.code = code_->text().toStdWString();
    if (title_->isModified())
        after.title = title_->text().toStdWString();
    if (file_->isModified()) {
        const QString typed = withProjectSuffix(file_->text());
        problem_ = fileNameProblem(typed, head_, *settings_);
        file_->setModified(false);
        if (problem_.isEmpty()) {
            after.file = typed.toStdWString();
            file_->setText(typed);
        }
    }
    showNotice();
    if (after != head_)
        Q_EMIT edited(after);
}

bool HeadPanel::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        problem_.clear();
        fill();
        showNotice();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}
