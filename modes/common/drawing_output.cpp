#include "common/drawing_output.h"

#include "common/view_settings.h"
#include "core/base/mexception.h"
#include "drawing/sheet_files.h"
#include "drawing/svg.h"
#include "paint/drawing_files.h"
#include "paint/drawing_fonts.h"
#include "paint/drawing_painter.h"
#include "platform/files.h"

#include <QClipboard>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMessageBox>
#include <QMimeData>
#include <QPainter>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QProgressDialog>
#include <QPushButton>

#include <optional>

namespace
{

constexpr double dotsOfCopy = 150; // an inch

// Shown from half a second on.
class OutputProgress
{
public:
    OutputProgress(QWidget* parent, std::size_t pages)
        : dialog_(
            QStringLiteral("Вывод листов…"), QStringLiteral("Прервать"), 0, static_cast<int>(pages), parent)
    {
        constexpr int appearsAfter = 500; // ms
        dialog_.setWindowTitle(QStringLiteral("Чертёж"));
        dialog_.setWindowModality(Qt::WindowModal);
        dialog_.setMinimumDuration(appearsAfter);
    }
    bool goesOn(std::size_t page)
    {
        dialog_.setValue(static_cast<int>(page));
        return !dialog_.wasCanceled();
    }

private:
    QProgressDialog dialog_;
};

struct Format {
    const char16_t* filter;
    const char16_t* suffix;
};

constexpr Format formats[] = {
    {u"Документ PDF (*.pdf)", u"pdf"},
    {u"Чертёж AutoCAD R12 (*.dxf)", u"dxf"},
    {u"Векторный рисунок SVG (*.svg)", u"svg"},
    {u"Рисунок PNG, 300 точек на дюйм (*.png)", u"png"},
};

// Place and format; empty: the user went back.
QString askFile(QWidget* parent, const QString& fileName)
{
    QStringList filters;
    for (const Format& format : formats)
        filters.append(QString::fromUtf16(format.filter));
    QString chosen = filters.front();
    QString file = QFileDialog::getSaveFileName(parent,
        QStringLiteral("Сохранить чертёж"),
        proposedFile(fileName + QStringLiteral(".pdf")),
        filters.join(QStringLiteral(";;")),
        &chosen);
    if (file.isEmpty())
        return file;
    const QString suffix = QString::fromUtf16(formats[qMax(0, filters.indexOf(chosen))].suffix);
    const QString typed = QFileInfo(file).suffix().toLower();
    for (const Format& format : formats)
        if (typed == QString::fromUtf16(format.suffix) && (typed == suffix || typed != QLatin1String("pdf")))
            return file;
    if (typed == QLatin1String("pdf"))
        file.chop(4);
    return file + QLatin1Char('.') + suffix;
}

enum class Sheets { All, Shown, None };

Sheets askSheets(QWidget* parent, std::size_t count)
{
    QMessageBox box(QMessageBox::Question,
        QStringLiteral("Сохранить чертёж"),
        QStringLiteral("В этом формате каждый лист — отдельный файл. Листов: %1.").arg(count),
        QMessageBox::NoButton,
        parent);
    const QPushButton* all = box.addButton(QStringLiteral("Все листы"), QMessageBox::AcceptRole);
    const QPushButton* shown = box.addButton(QStringLiteral("Только этот лист"), QMessageBox::AcceptRole);
    box.addButton(QStringLiteral("Отмена"), QMessageBox::RejectRole);
    box.exec();
    return box.clickedButton() == all  ? Sheets::All
        : box.clickedButton() == shown ? Sheets::Shown
                                       : Sheets::None;
}

// The file dialog has asked about the one name that was typed, and not about those of the sheets.
bool mayReplace(QWidget* parent, const std::wstring& typed, const std::vector<std::wstring>& files)
{
    QStringList standing;
    for (const std::wstring& file : files)
        if (file != typed && fileExists(file))
            standing.append(QFileInfo(QString::fromStdWString(file)).fileName());
    if (standing.isEmpty())
        return true;
    QMessageBox box(QMessageBox::Warning,
        QStringLiteral("Сохранить чертёж"),
        QStringLiteral("В папке уже есть листы с такими именами: %1, первый — %2.\nЗаменить их?")
            .arg(standing.size())
            .arg(standing.front()),
        QMessageBox::NoButton,
        parent);
    const QPushButton* replace = box.addButton(QStringLiteral("Заменить"), QMessageBox::AcceptRole);
    box.setDefaultButton(box.addButton(QStringLiteral("Отмена"), QMessageBox::RejectRole));
    box.exec();
    return box.clickedButton() == replace;
}

void printPages(QPrinter& printer, const std::vector<Drawing>& pages, const Hatches& hatches)
{
    const int first = printer.fromPage() > 0 ? printer.fromPage() - 1 : 0;
    const int last = printer.toPage() > 0 ? qMin(printer.toPage(), static_cast<int>(pages.size()))
                                          : static_cast<int>(pages.size());
    QPainter painter;
    for (int page = first; page < last; ++page) {
        const Drawing& drawing = pages[static_cast<std::size_t>(page)];
        printer.setPageSize(
            QPageSize(QSizeF(qMin(drawing.width, drawing.height), qMax(drawing.width, drawing.height)),
                QPageSize::Millimeter,
                QString(),
                QPageSize::FuzzyMatch));
        printer.setPageOrientation(
            drawing.width > drawing.height ? QPageLayout::Landscape : QPageLayout::Portrait);
        if (page == first ? !painter.begin(&printer) : !printer.newPage())
            return;
        painter.save();
        painter.scale(printer.logicalDpiX() / 25.4, printer.logicalDpiY() / 25.4);
        paint(painter, drawing, hatches);
        painter.restore();
    }
}

} // namespace

void copyDrawing(const Drawing& drawing, const Hatches& hatches)
{
    auto data = std::make_unique<QMimeData>();
    data->setData(QStringLiteral("image/svg+xml"), QByteArray::fromStdString(toSvg(drawing, hatches)));
    data->setImageData(toImage(drawing, hatches, dotsOfCopy));
    QGuiApplication::clipboard()->setMimeData(data.release());
}

QString saveDrawings(QWidget* parent,
    const std::vector<Drawing>& pages,
    int shown,
    const Hatches& hatches,
    const QString& fileName)
{
    const QString file = askFile(parent, fileName);
    if (file.isEmpty())
        return {};
    Sheets sheets = Sheets::All;
    if (pages.size() > 1 && !file.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive))
        sheets = askSheets(parent, pages.size());
    if (sheets == Sheets::None)
        return {};
    std::vector<Drawing> one;
    if (sheets == Sheets::Shown)
        one.push_back(pages[static_cast<std::size_t>(shown)]);
    const std::vector<Drawing>& chosen = one.empty() ? pages : one;
    const std::vector<std::wstring> files = sheetFiles(file.toStdWString(), chosen);
    if (!mayReplace(parent, file.toStdWString(), files))
        return {};
    try {
        OutputProgress progress(parent, chosen.size());
        const std::size_t written =
            writeDrawings(file.toStdWString(), chosen, hatches, [&progress](std::size_t page) {
                return progress.goesOn(page);
            });
        if (const QString missing = missingFonts(); !missing.isEmpty())
            QMessageBox::warning(parent, QStringLiteral("Сохранить чертёж"), missing);
        if (written > 0) {
            keepFolder(QStringLiteral("export"), file);
            return QString::fromStdWString(files.front());
        }
    } catch (const MException& failure) {
        QMessageBox::warning(
            parent, QStringLiteral("Сохранить чертёж"), QString::fromStdWString(failure.message()));
    }
    return {};
}

void printDrawings(QWidget* parent, const std::vector<Drawing>& pages, const Hatches& hatches)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setFullPage(true);
    printer.setDocName(QString::fromStdWString(pages.front().title));
    const bool isLandscape = pages.front().width > pages.front().height;
    printer.setPageOrientation(isLandscape ? QPageLayout::Landscape : QPageLayout::Portrait);
    QPrintPreviewDialog preview(&printer, parent);
    preview.setWindowTitle(QStringLiteral("Просмотр перед печатью"));
    preview.resize(900, 700);
    QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, parent, [&](QPrinter* target) {
        printPages(*target, pages, hatches);
    });
    preview.exec();
}
