#include "common/picture_actions.h"

#include "common/view_settings.h"

#include <QAction>
#include <QClipboard>
#include <QFileDialog>
#include <QGuiApplication>
#include <QImage>
#include <QMessageBox>
#include <QPainter>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QWidget>

static constexpr double density = 2;

using Paint = std::function<void(QPainter& painter)>;

static QImage pictureOf(QWidget* drawing, const Paint& paint)
{
    QImage picture(drawing->size() * density, QImage::Format_RGB32);
    picture.setDevicePixelRatio(density);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    paint(painter);
    return picture;
}

static void savePicture(QWidget* drawing, const QString& fileName, const Paint& paint)
{
    const QString file = QFileDialog::getSaveFileName(drawing->window(),
        QStringLiteral("Сохранить рисунок"),
        proposedFile(fileName),
        QStringLiteral("Рисунок (*.png)"));
    if (file.isEmpty())
        return;
    if (pictureOf(drawing, paint).save(file, "PNG"))
        keepFolder(QStringLiteral("export"), file);
    else
        QMessageBox::warning(drawing->window(),
            QStringLiteral("Сохранить рисунок"),
            QStringLiteral("Рисунок не записан: %1\nПроверьте, можно ли писать в эту папку.").arg(file));
}

// As large as the sheet allows, in its upper part.
static void printPicture(QWidget* drawing, const Paint& paint)
{
    QPrinter printer(QPrinter::HighResolution);
    QPrintPreviewDialog preview(&printer, drawing->window());
    QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, drawing, [&](QPrinter* paper) {
        QPainter painter(paper);
        const QRect page = painter.viewport();
        const double scale = qMin(double(page.width()) / qMax(1, drawing->width()),
            double(page.height()) / qMax(1, drawing->height()));
        painter.scale(scale, scale);
        paint(painter);
    });
    preview.exec();
}

void addPictureActions(QWidget* drawing, const QString& fileName, const Paint& paint)
{
    auto* copy = new QAction(QStringLiteral("Копировать рисунок"), drawing);
    auto* save = new QAction(QStringLiteral("Сохранить рисунок…"), drawing);
    if (drawing->focusPolicy() != Qt::NoFocus) {
        copy->setShortcut(QKeySequence::Copy);
        copy->setShortcutContext(Qt::WidgetShortcut);
    }
    QObject::connect(copy, &QAction::triggered, drawing, [drawing, paint] {
        QGuiApplication::clipboard()->setImage(pictureOf(drawing, paint));
    });
    QObject::connect(save, &QAction::triggered, drawing, [drawing, fileName, paint] {
        savePicture(drawing, fileName, paint);
    });
    auto* print = new QAction(QStringLiteral("Печать…"), drawing);
    QObject::connect(print, &QAction::triggered, drawing, [drawing, paint] { printPicture(drawing, paint); });
    drawing->addActions({copy, save, print});
    drawing->setContextMenuPolicy(Qt::ActionsContextMenu);
}
