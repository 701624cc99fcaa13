#include "common/picture_actions.h"

#include <QAction>
#include <QClipboard>
#include <QFileDialog>
#include <QGuiApplication>
#include <QImage>
#include <QMessageBox>
#include <QWidget>

static constexpr double density = 2;

static QImage pictureOf(QWidget* drawing)
{
    QImage picture(drawing->size() * density, QImage::Format_RGB32);
    picture.setDevicePixelRatio(density);
    picture.fill(Qt::white);
    drawing->render(&picture);
    return picture;
}

static void savePicture(QWidget* drawing, const QString& fileName)
{
    const QString file = QFileDialog::getSaveFileName(
        drawing->window(), QStringLiteral("Сохранить рисунок"), fileName, QStringLiteral("Рисунок (*.png)"));
    if (file.isEmpty())
        return;
    if (!pictureOf(drawing).save(file, "PNG"))
        QMessageBox::warning(drawing->window(),
            QStringLiteral("Сохранить рисунок"),
            QStringLiteral("Рисунок не записан: %1\nПроверьте, можно ли писать в эту папку.").arg(file));
}

void addPictureActions(QWidget* drawing, const char* fileName)
{
    const QString name = QString::fromUtf8(fileName);
    auto* copy = new QAction(QStringLiteral("Копировать рисунок"), drawing);
    copy->setShortcut(QKeySequence::Copy);
    auto* save = new QAction(QStringLiteral("Сохранить рисунок…"), drawing);
    for (QAction* action : {copy, save})
        action->setShortcutContext(Qt::WidgetShortcut);
    QObject::connect(copy, &QAction::triggered, drawing, [drawing] {
        QGuiApplication::clipboard()->setImage(pictureOf(drawing));
    });
    QObject::connect(save, &QAction::triggered, drawing, [drawing, name] { savePicture(drawing, name); });
    drawing->addActions({copy, save});
    drawing->setContextMenuPolicy(Qt::ActionsContextMenu);
}
