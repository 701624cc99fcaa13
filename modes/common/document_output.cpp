#include "common/document_output.h"

#include "core/base/mexception.h"
#include "document/docx.h"
#include "document/html.h"
#include "document/odt.h"
#include "document/pages.h"
#include "document/xlsx.h"
#include "paint/drawing_files.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QProgressDialog>
#include <QSaveFile>

#include <exception>

namespace
{

struct Format {
    const char16_t* filter;
    const char16_t* suffix;
};

constexpr Format formats[] = {
    {u"Документ PDF (*.pdf)", u"pdf"},
    {u"Документ Word (*.docx)", u"docx"},
    {u"Текст OpenDocument (*.odt)", u"odt"},
    {u"Книга Excel (*.xlsx)", u"xlsx"},
    {u"Страница HTML (*.html)", u"html"},
};

QByteArray bytesOf(const std::string& content)
{
    return QByteArray(content.data(), static_cast<int>(content.size()));
}

// Shown from half a second on; empty content: called off.
QByteArray pdfOf(QWidget* parent, const Document& document)
{
    QProgressDialog progress(QStringLiteral("Верстка страниц…"), QStringLiteral("Прервать"), 0, 0, parent);
    progress.setWindowTitle(QStringLiteral("Отчет"));
    progress.setWindowModality(Qt::WindowModal);
    constexpr int appearsAfter = 500; // ms
    progress.setMinimumDuration(appearsAfter);
    const auto goesOn = [&](std::size_t) {
        progress.setValue(0);
        QApplication::processEvents();
        return !progress.wasCanceled();
    };
    const std::vector<Drawing> pages = pagesOf(document, goesOn);
    return pages.empty() ? QByteArray() : toPdf(pages, {}, goesOn);
}

QByteArray contentOf(QWidget* parent, const Document& document, const QString& suffix)
{
    if (suffix == QStringLiteral("docx"))
        return bytesOf(toDocx(document));
    if (suffix == QStringLiteral("odt"))
        return bytesOf(toOdt(document));
    if (suffix == QStringLiteral("xlsx"))
        return bytesOf(toXlsx(document));
    if (suffix == QStringLiteral("html"))
        return bytesOf(toHtml(document));
    return pdfOf(parent, document);
}

void complain(QWidget* parent, const QString& text)
{
    QMessageBox::warning(parent, QStringLiteral("Отчет"), text);
}

} // namespace

QString saveDocument(QWidget* parent, const Document& document)
{
    QStringList filters;
    for (const Format& format : formats)
        filters.push_back(QString::fromUtf16(format.filter));
    QString chosen = filters.front();
    QString path = QFileDialog::getSaveFileName(parent,
        QStringLiteral("Сохранить отчет"),
        QString::fromStdWString(document.title),
        filters.join(QStringLiteral(";;")),
        &chosen);
    if (path.isEmpty())
        return {};
    if (QFileInfo(path).suffix().isEmpty())
        path += QLatin1Char('.') + QString::fromUtf16(formats[std::max(0, filters.indexOf(chosen))].suffix);
    try {
        const QByteArray content = contentOf(parent, document, QFileInfo(path).suffix().toLower());
        if (content.isEmpty())
            return {};
        QSaveFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.commit()) {
            complain(parent, QStringLiteral("Файл не записан: %1").arg(file.errorString()));
            return {};
        }
        return path;
    } catch (const MException& failure) {
        complain(parent, QString::fromStdWString(failure.message()));
    } catch (const std::exception& failure) {
        complain(
            parent, QStringLiteral("Отчет не составлен: %1").arg(QString::fromLocal8Bit(failure.what())));
    }
    return {};
}
