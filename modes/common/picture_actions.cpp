#include "common/picture_actions.h"

#include <QAction>
#include <QClipboard>
#include <QFileDialog>
#include <QGuiApplication>
#include <QImage>
#include <QMessageBox>
#include <QPainter>
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
    const QString file = QFileDialog::getSaveFileName(
        drawing->window(), QStringLiteral("Сохранить рисунок"), fileName, QStringLiteral("Рисунок (*.png)"));
    if (file.isEmpty())
        return;
    if (!pictureOf(drawing, paint).save(file, "PNG"))
        QMessageBox::warning(drawing->window(),
            QStringLiteral("Сохранить рисунок"),
            QStringLiteral("Рисунок не записан: %1\nПроверьте, можно ли писать в эту папку.").arg(file));
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
    drawing->addActions({copy, save});
    drawing->setContextMenuPolicy(Qt::ActionsContextMenu);
}
