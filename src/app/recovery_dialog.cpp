#include "app/recovery_dialog.h"

#include "platform/files.h"

#include <QDateTime>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTableWidget>
#include <QVBoxLayout>

static QString pathText(const std::wstring& path)
{
    return QString::fromStdWString(systemPath(path));
}

static QString timeText(std::int64_t seconds)
{
    return QDateTime::fromSecsSinceEpoch(seconds).toString(QStringLiteral("dd.MM.yyyy hh:mm"));
}

static QString projectText(const RecoveredProject& copy)
{
    if (copy.isDamaged)
        return QStringLiteral("повреждён файл ") + QFileInfo(pathText(copy.path)).fileName();
    QStringList parts;
    for (const std::wstring& part : {copy.code, copy.name})
        if (!part.empty())
            parts << QString::fromStdWString(part);
    return parts.isEmpty() ? QStringLiteral("без названия") : parts.join(QStringLiteral(", "));
}

static QString savedText(const RecoveredProject& copy)
{
    if (copy.isDamaged)
        return {};
    return copy.saved == 0 ? QStringLiteral("не сохранялся") : timeText(copy.saved);
}

// Within the work folder, where it stands unless the settings have changed.
static QString placeText(const RecoveredProject& copy, const std::wstring& workFolder)
{
    const std::wstring start = workFolder + L'\\';
    return pathText(copy.place.starts_with(start) ? copy.place.substr(start.size()) : copy.place);
}

RecoveryDialog::RecoveryDialog(
    std::vector<RecoveredProject> copies, const std::wstring& workFolder, QWidget* parent)
    : QDialog(parent)
    , copies_(std::move(copies))
    , workFolder_(workFolder)
    , table_(makeTable())
    , details_(new QLabel(this))
{
    setWindowTitle(QStringLiteral("Восстановление проектов"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    auto* words = new QLabel(QStringLiteral("Программа завершилась, не закрыв эти проекты. Их последнее "
                                            "состояние осталось в копиях.\nВосстановленный проект откроется "
                                            "как обычно; файл проекта изменится, когда вы его сохраните."),
        this);
    words->setWordWrap(true);
    details_->setWordWrap(true);
    details_->setTextFormat(Qt::PlainText);
    details_->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto* buttons = new QDialogButtonBox(this);
    restore_ = buttons->addButton(QStringLiteral("&Восстановить"), QDialogButtonBox::AcceptRole);
    QPushButton* remove = buttons->addButton(QStringLiteral("&Удалить…"), QDialogButtonBox::DestructiveRole);
    QPushButton* later = buttons->addButton(QStringLiteral("&Позже"), QDialogButtonBox::RejectRole);
    restore_->setObjectName(QStringLiteral("restore"));
    remove->setObjectName(QStringLiteral("delete"));
    later->setObjectName(QStringLiteral("later"));
    restore_->setDefault(true);
    connect(restore_, &QPushButton::clicked, this, &RecoveryDialog::restoreCurrent);
    connect(remove, &QPushButton::clicked, this, &RecoveryDialog::deleteCurrent);
    connect(later, &QPushButton::clicked, this, &QDialog::reject);
    connect(table_, &QTableWidget::itemDoubleClicked, this, &RecoveryDialog::restoreCurrent);
    connect(table_, &QTableWidget::currentCellChanged, this, &RecoveryDialog::showCurrent);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(words);
    layout->addWidget(table_, 1);
    layout->addWidget(details_);
    layout->addWidget(buttons);
    table_->selectRow(0);
    table_->setFocus();
    showCurrent();
    fit();
}

QTableWidget* RecoveryDialog::makeTable()
{
    const QStringList titles{QStringLiteral("Проект"),
        QStringLiteral("Место сохранения"),
        QStringLiteral("Копия"),
        QStringLiteral("Сохранённый файл"),
        QStringLiteral("Кто работал")};
    auto* table = new QTableWidget(int(copies_.size()), titles.size(), this);
    table->setHorizontalHeaderLabels(titles);
    table->verticalHeader()->hide();
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setTabKeyNavigation(false);
    table->horizontalHeader()->setHighlightSections(false);
    table->horizontalHeader()->setStretchLastSection(true);
    table_ = table;
    for (int row = 0; row < table->rowCount(); ++row)
        fillRow(row);
    return table;
}

// The newer of the two states is bold.
void RecoveryDialog::fillRow(int row)
{
    enum Column { Project, Place, Copied, Saved, Who };
    const RecoveredProject& copy = copies_[std::size_t(row)];
    QStringList who;
    for (const std::wstring& part : {copy.user, copy.computer})
        if (!part.empty())
            who << QString::fromStdWString(part);
    const QString texts[] = {projectText(copy),
        placeText(copy, workFolder_),
        timeText(copy.copied) + (copy.isNewer() ? QStringLiteral(" (новее)") : QString()),
        savedText(copy) + (copy.saved > copy.copied ? QStringLiteral(" (новее)") : QString()),
        who.join(QStringLiteral(", "))};
    for (int column = Project; column <= Who; ++column) {
        auto* item = new QTableWidgetItem(texts[column]);
        QFont font = item->font();
        font.setBold((column == Copied && copy.isNewer()) || (column == Saved && copy.saved > copy.copied));
        item->setFont(font);
        if (copy.isDamaged)
            item->setForeground(QColor(176, 0, 32));
        table_->setItem(row, column, item);
    }
}

void RecoveryDialog::fit()
{
    constexpr int widestName = 320;
    table_->resizeColumnsToContents();
    table_->setColumnWidth(0, qMin(table_->columnWidth(0), widestName));
    table_->resizeRowsToContents();
    const int frame = 2 * table_->frameWidth() + table_->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    const QMargins margins = layout()->contentsMargins();
    const int wanted = table_->horizontalHeader()->length() + frame + margins.left() + margins.right();
    const QSize screen = QGuiApplication::primaryScreen()->availableSize();
    constexpr int usualHeight = 380;
    resize(qMin(wanted, screen.width() * 9 / 10), qMin(usualHeight, screen.height() * 9 / 10));
}

void RecoveryDialog::showCurrent()
{
    const int row = table_->currentRow();
    if (row < 0)
        return;
    const RecoveredProject& copy = copies_[std::size_t(row)];
    restore_->setEnabled(!copy.isDamaged);
    details_->setText(copy.isDamaged
            ? QStringLiteral("Копия %1 не читается; открыть её нельзя.").arg(pathText(copy.path))
            : QStringLiteral("Копия: %1\nПроект сохранится в %2")
                  .arg(pathText(copy.path), pathText(copy.place)));
}

void RecoveryDialog::restoreCurrent()
{
    const int row = table_->currentRow();
    if (row < 0 || copies_[std::size_t(row)].isDamaged)
        return;
    chosen_ = copies_[std::size_t(row)].path;
    accept();
}

void RecoveryDialog::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Delete)
        deleteCurrent();
    else
        QDialog::keyPressEvent(event);
}

void RecoveryDialog::deleteCurrent()
{
    const int row = table_->currentRow();
    if (row < 0)
        return;
    const RecoveredProject& copy = copies_[std::size_t(row)];
    QMessageBox box(QMessageBox::Warning,
        QStringLiteral("Удаление копии"),
        QStringLiteral("Удалить копию проекта «%1» от %2?\nВосстановить её потом будет нельзя.")
            .arg(projectText(copy), timeText(copy.copied)),
        QMessageBox::Yes | QMessageBox::Cancel,
        this);
    box.setTextFormat(Qt::PlainText);
    box.button(QMessageBox::Yes)->setText(QStringLiteral("Удалить"));
    box.button(QMessageBox::Cancel)->setText(QStringLiteral("Отмена"));
    box.setDefaultButton(QMessageBox::Cancel);
    if (box.exec() != QMessageBox::Yes)
        return;
    if (!deleteRecoveryCopy(copy.path)) {
        QMessageBox::warning(
            this, windowTitle(), QStringLiteral("Файл не удаляется:\n%1").arg(pathText(copy.path)));
        return;
    }
    copies_.erase(copies_.begin() + row);
    table_->removeRow(row);
    if (copies_.empty())
        reject();
    else
        showCurrent();
}
