#include "common/export_dialog.h"

#include "common/drawing_output.h"
#include "common/table_document.h"
#include "common/table_view.h"
#include "common/typed_text.h"
#include "common/view_settings.h"
#include "core/base/mexception.h"
#include "document/document_file.h"
#include "document/pages.h"
#include "paint/drawing_files.h"
#include "paint/drawing_fonts.h"

#include <QAbstractProxyModel>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QToolButton>
#include <QUrl>

namespace
{

struct Format {
    const char16_t* name;
    const char16_t* suffix;
};

constexpr Format formats[] = {
    {u"Книга Excel (*.xlsx)", u"xlsx"},
    {u"Документ Word (*.docx)", u"docx"},
    {u"Документ OpenDocument (*.odt)", u"odt"},
    {u"Документ PDF (*.pdf)", u"pdf"},
    {u"Веб-страница (*.html)", u"html"},
    {u"Текст с разделителями (*.csv)", u"csv"},
};

// The hand of the clock while something is made.
class WaitCursor
{
public:
    WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

// Shown from half a second on. The number of pages is not known before they are set.
class PagesProgress
{
public:
    explicit PagesProgress(QWidget* parent)
        : dialog_(QStringLiteral("Вёрстка страниц…"), QStringLiteral("Прервать"), 0, 0, parent)
    {
        constexpr int appearsAfter = 500; // ms
        dialog_.setWindowTitle(QStringLiteral("Экспорт"));
        dialog_.setWindowModality(Qt::WindowModal);
        dialog_.setMinimumDuration(appearsAfter);
    }
    bool goesOn(std::size_t page)
    {
        dialog_.setLabelText(QStringLiteral("Вёрстка страниц: %1").arg(page));
        dialog_.setValue(static_cast<int>(page));
        QGuiApplication::processEvents();
        return !dialog_.wasCanceled();
    }

private:
    QProgressDialog dialog_;
};

} // namespace

ExportDialog::ExportDialog(ExportSource source, QWidget* parent)
    : QDialog(parent)
    , source_(std::move(source))
    , format_(new QComboBox(this))
    , file_(new QLineEdit(this))
    , frames_(new QCheckBox(QStringLiteral("Рамка и штамп на страницах"), this))
    , opens_(new QCheckBox(QStringLiteral("Открыть файл после сохранения"), this))
{
    setWindowTitle(QStringLiteral("Экспорт"));
    setMinimumWidth(560);
    for (const Format& format : formats)
        format_->addItem(QString::fromUtf16(format.name));
    const auto kept = viewSettings();
    format_->setCurrentIndex(
        qBound(0, kept->value(QStringLiteral("export/format")).toInt(), format_->count() - 1));
    opens_->setChecked(kept->value(QStringLiteral("export/opens"), false).toBool());

    const bool isUsual = source_.paper && source_.paper->office.hasFrame && !source_.isTable;
    frames_->setObjectName(QStringLiteral("frames"));
    frames_->setToolTip(QStringLiteral("Форма 5 на первом листе, форма 6 на следующих. Организация, "
                                       "исполнители и стадия — из настроек, страница «Документы»"));
    frames_->setChecked(kept->value(frameKey(), isUsual).toBool());
    frames_->setVisible(source_.paper.has_value());

    auto* form = new QFormLayout;
    form->setHorizontalSpacing(16);
    form->setVerticalSpacing(10);
    if (QWidget* rows = makeRows())
        form->addRow(QStringLiteral("Строки"), rows);
    form->addRow(QStringLiteral("Формат"), format_);
    form->addRow(QStringLiteral("Файл"), makeFile());
    if (source_.paper)
        form->addRow(QString(), frames_);
    form->addRow(QString(), opens_);
    followFormat();

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Save | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Save)->setText(QStringLiteral("Сохранить"));
    buttons->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("Отмена"));
    auto* printer = buttons->addButton(QStringLiteral("Печать…"), QDialogButtonBox::ActionRole);
    connect(printer, &QPushButton::clicked, this, &ExportDialog::print);
    connect(buttons, &QDialogButtonBox::accepted, this, &ExportDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &ExportDialog::reject);
    connect(format_, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &ExportDialog::followFormat);

    // Whoever types another ending means the format.
    connect(file_, &QLineEdit::textEdited, this, [this](const QString& text) {
        for (int format = 0; format < format_->count(); ++format)
            if (text.endsWith(
                    QLatin1Char('.') + QString::fromUtf16(formats[format].suffix), Qt::CaseInsensitive))
                format_->setCurrentIndex(format);
    });

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addSpacing(8);
    layout->addWidget(buttons);
    file_->setFocus();
}

QWidget* ExportDialog::makeRows()
{
    if (source_.shownRows == source_.allRows)
        return nullptr;
    auto* box = new QWidget(this);
    auto* layout = new QHBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(20);
    rows_ = new QButtonGroup(this);
    const QString texts[] = {QStringLiteral("показанные (%1)").arg(source_.shownRows),
        QStringLiteral("все (%1)").arg(source_.allRows)};
    for (int i = 0; i < 2; ++i) {
        auto* button = new QRadioButton(texts[i], box);
        button->setChecked(i == 0);
        rows_->addButton(button, i);
        layout->addWidget(button);
    }
    layout->addStretch(1);
    return box;
}

QWidget* ExportDialog::makeFile()
{
    const QString folder = lastFolder(QStringLiteral("export"));
    const QString name = QString::fromStdWString(fileNameOf(source_.name.toStdWString()));
    file_->setObjectName(QStringLiteral("file"));
    file_->setText(QDir::toNativeSeparators(folder + QLatin1Char('/') + name + QLatin1Char('.') + suffix()));
    auto* box = new QWidget(this);
    auto* layout = new QHBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(file_, 1);
    auto* button = new QToolButton(box);
    button->setText(QStringLiteral("Обзор…"));
    connect(button, &QToolButton::clicked, this, &ExportDialog::browse);
    layout->addWidget(button);
    return box;
}

QString ExportDialog::suffix() const
{
    return QString::fromUtf16(formats[format_->currentIndex()].suffix);
}

bool ExportDialog::isAll() const
{
    return !rows_ || rows_->checkedId() == 1;
}

QString ExportDialog::frameKey() const
{
    return source_.isTable ? QStringLiteral("export/tableFrames") : QStringLiteral("export/frames");
}

QString ExportDialog::file() const
{
    return QDir::fromNativeSeparators(file_->text().trimmed());
}

// Formats without pages have room for no picture and no frame.
Document ExportDialog::documentFor(bool isPaper) const
{
    Document document = source_.make(isAll());
    if (!source_.paper)
        return document;
    const OfficePaper& paper = *source_.paper;
    const bool hasFrames = isPaper && frames_->isChecked();
    if (!source_.isTable || hasFrames)
        addOffice(document, paper.office, isPaper ? paper.logo : std::optional<Drawing>());
    if (hasFrames)
        addFrames(document, paper.texts);
    return document;
}

void ExportDialog::followFormat()
{
    const QString chosen = suffix();
    frames_->setEnabled(
        chosen == QLatin1String("pdf") || chosen == QLatin1String("docx") || chosen == QLatin1String("odt"));
    QString path = file_->text();
    for (const Format& format : formats) {
        const QString end = QLatin1Char('.') + QString::fromUtf16(format.suffix);
        if (path.endsWith(end, Qt::CaseInsensitive))
            path.chop(end.size());
    }
    file_->setText(path + QLatin1Char('.') + suffix());
}

void ExportDialog::browse()
{
    QFileDialog::Options options;
    options.setFlag(QFileDialog::DontConfirmOverwrite); // asked when it is written
    const QString path = QFileDialog::getSaveFileName(
        this, windowTitle(), file_->text(), format_->currentText(), nullptr, options);
    if (path.isEmpty())
        return;
    file_->setText(QDir::toNativeSeparators(path));
    followFormat();
}

bool ExportDialog::write(const QString& path)
{
    ExportRemarks remarks;
    const Document document =
        documentFor(suffix() != QLatin1String("xlsx") && suffix() != QLatin1String("csv"));
    if (suffix() == QLatin1String("pdf")) {
        PagesProgress progress(this);
        const auto goesOn = [&progress](std::size_t page) { return progress.goesOn(page); };
        const std::vector<Drawing> pages = pagesOf(document, goesOn);
        if (pages.empty())
            return false;
        const QByteArray pdf = toPdf(pages, source_.hatches, goesOn);
        if (pdf.isEmpty())
            return false;
        writeOfficeFile(path.toStdWString(), {pdf.constData(), static_cast<std::size_t>(pdf.size())});
        if (const QString missing = missingFonts(); !missing.isEmpty())
            remarks.push_back(missing.toStdWString());
    } else {
        const WaitCursor wait;
        const OfficeOptions options{&source_.hatches, &remarks};
        const auto format = documentFormatOf(L"x." + suffix().toStdWString()).value_or(DocumentFormat::Xlsx);
        writeOfficeFile(path.toStdWString(),
            format == DocumentFormat::Csv ? toCsv(document, options, copiesDecimalComma())
                                          : documentBytes(document, format, options));
    }
    if (!remarks.empty()) {
        QStringList lines;
        for (const std::wstring& remark : remarks)
            lines.append(QString::fromStdWString(remark));
        constexpr int most = 12;
        if (lines.size() > most)
            lines = lines.mid(0, most) + QStringList(QStringLiteral("… и ещё %1").arg(lines.size() - most));
        QMessageBox::information(this, windowTitle(), lines.join(QLatin1Char('\n')));
    }
    return true;
}

void ExportDialog::accept()
{
    followFormat();
    const QString path = file();
    const QFileInfo info(path);
    if (info.completeBaseName().isEmpty() || !info.dir().exists()) {
        QMessageBox::warning(this,
            windowTitle(),
            QStringLiteral("Такой папки нет:\n%1").arg(QDir::toNativeSeparators(info.path())));
        return;
    }
    if (info.exists()
        && QMessageBox::question(
               this, windowTitle(), QStringLiteral("Файл «%1» уже есть. Заменить его?").arg(info.fileName()))
            != QMessageBox::Yes)
        return;
    try {
        if (!write(path))
            return;
    } catch (const MException& failure) {
        QMessageBox::warning(this, windowTitle(), QString::fromStdWString(failure.message()));
        return;
    }
    keepFolder(QStringLiteral("export"), path);
    const auto kept = viewSettings();
    kept->setValue(QStringLiteral("export/format"), format_->currentIndex());
    kept->setValue(QStringLiteral("export/opens"), opens_->isChecked());
    if (frames_->isEnabled())
        kept->setValue(frameKey(), frames_->isChecked());
    if (opens_->isChecked() && !QDesktopServices::openUrl(QUrl::fromLocalFile(info.absoluteFilePath())))
        QMessageBox::information(this,
            windowTitle(),
            QStringLiteral("Файл сохранён, но открыть его нечем:\n%1").arg(info.absoluteFilePath()));
    QDialog::accept();
}

void ExportDialog::print()
{
    PagesProgress progress(this);
    const std::vector<Drawing> pages =
        pagesOf(documentFor(true), [&progress](std::size_t page) { return progress.goesOn(page); });
    if (!pages.empty())
        printDrawings(this, pages, source_.hatches);
}

void exportTable(TableView& table, const QString& title)
{
    ExportSource source;
    source.name = title;
    const auto* proxy = dynamic_cast<const QAbstractProxyModel*>(table.model());
    const QAbstractItemModel& shown = *table.model();
    const QAbstractItemModel& all = proxy ? *proxy->sourceModel() : shown;
    source.shownRows = recordCount(shown);
    source.allRows = qMax(recordCount(all), source.shownRows);
    source.make = [&](bool isAll) {
        return tableDocument(tableBlockOf(table, isAll ? all : shown, title), QString());
    };
    source.isTable = true;
    if (ITellurixController* controller = controllerOf(&table))
        source.paper = officePaper(*controller);
    ExportDialog(std::move(source), table.window()).exec();
}

QString exportDocument(
    QWidget* parent, ITellurixController& controller, const Document& document, const Hatches& hatches)
{
    ExportSource source;
    source.paper = officePaper(controller);
    source.name = QString::fromStdWString(document.title);
    source.make = [&document](bool) { return document; };
    source.hatches = hatches;
    ExportDialog dialog(std::move(source), parent);
    return dialog.exec() == QDialog::Accepted ? dialog.file() : QString();
}
