#include "paint/drawing_files.h"

#include "core/base/file_names.h"
#include "core/base/mexception.h"
#include "document/document_file.h"
#include "drawing/dxf.h"
#include "drawing/sheet_files.h"
#include "drawing/svg.h"
#include "paint/drawing_painter.h"

#include <QBuffer>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

static constexpr double millimetresPerInch = 25.4;

static void setPage(QPdfWriter& writer, const Drawing& drawing)
{
    const QPageSize size(
        QSizeF(drawing.width, drawing.height), QPageSize::Millimeter, QString(), QPageSize::ExactMatch);
    writer.setPageSize(size);
    writer.setPageMargins({0, 0, 0, 0});
}

QByteArray toPdf(const std::vector<Drawing>& pages, const Hatches& hatches, const GoesOn& goesOn)
{
    constexpr int dotsPerInch = 1200;
    if (pages.empty())
        throw MException(L"Нет ни одного листа, который можно вывести.");
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(dotsPerInch);
    writer.setTitle(QString::fromStdWString(pages.front().title));
    writer.setCreator(QStringLiteral("Tellurix"));
    setPage(writer, pages.front());
    QPainter painter;
    for (std::size_t page = 0; page < pages.size(); ++page) {
        if (goesOn && !goesOn(page))
            return {};
        if (page > 0) {
            setPage(writer, pages[page]);
            writer.newPage();
        } else if (!painter.begin(&writer)) {
            throw MException(L"Файл PDF не удалось создать.");
        }
        painter.save();
        painter.scale(dotsPerInch / millimetresPerInch, dotsPerInch / millimetresPerInch);
        paint(painter, pages[page], hatches);
        painter.restore();
    }
    painter.end();
    return bytes;
}

QImage toImage(const Drawing& drawing, const Hatches& hatches, double dotsPerInch)
{
    constexpr double longest = 30000;
    constexpr double most = 4e8;
    const double scale = dotsPerInch / millimetresPerInch;
    const double width = drawing.width * scale;
    const double height = drawing.height * scale;
    if (!(width >= 1 && height >= 1 && width <= longest && height <= longest && width * height <= most))
        throw MException(L"Рисунок такого размера не поместится в память: уменьшите число точек на дюйм.");
    QImage image(qRound(width), qRound(height), QImage::Format_RGB32);
    if (image.isNull())
        throw MException(L"На рисунок не хватило памяти: уменьшите число точек на дюйм.");
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.scale(scale, scale);
    paint(painter, drawing, hatches);
    painter.end();
    image.setDotsPerMeterX(qRound(scale * 1000));
    image.setDotsPerMeterY(qRound(scale * 1000));
    return image;
}

QByteArray toPng(const Drawing& drawing, const Hatches& hatches, double dotsPerInch)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!toImage(drawing, hatches, dotsPerInch).save(&buffer, "PNG"))
        throw MException(L"Рисунок PNG не удалось создать.");
    return bytes;
}

static void write(const std::wstring& path, const QByteArray& bytes)
{
    writeOfficeFile(path, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

static QByteArray sheetBytes(
    const std::wstring& suffix, const Drawing& drawing, const Hatches& hatches, double dotsPerInch)
{
    if (suffix == L"svg")
        return QByteArray::fromStdString(toSvg(drawing, hatches));
    if (suffix == L"dxf")
        return QByteArray::fromStdString(toDxf(drawing, hatches));
    if (suffix == L"png")
        return toPng(drawing, hatches, dotsPerInch);
    throw MException(L"Чертежи пишутся в файлы .pdf, .svg, .dxf и .png, а не «." + suffix + L"».");
}

std::size_t writeDrawings(const std::wstring& path,
    const std::vector<Drawing>& pages,
    const Hatches& hatches,
    const GoesOn& goesOn,
    double dotsPerInch)
{
    const std::wstring suffix = fileSuffix(path);
    if (pages.empty())
        throw MException(L"Нет ни одного листа, который можно вывести.");
    if (suffix == L"pdf") {
        const QByteArray bytes = toPdf(pages, hatches, goesOn);
        if (bytes.isEmpty())
            return 0;
        write(path, bytes);
        return 1;
    }
    const std::vector<std::wstring> files = sheetFiles(path, pages);
    for (std::size_t page = 0; page < pages.size(); ++page) {
        if (goesOn && !goesOn(page))
            return page;
        write(files[page], sheetBytes(suffix, pages[page], hatches, dotsPerInch));
    }
    return pages.size();
}
