#include "listCoords/questions.h"

#include <QMessageBox>
#include <QPushButton>

// The first few in full; nobody reads a list of a hundred.
static QString listed(const QStringList& names)
{
    constexpr int most = 5;
    const QString text = names.mid(0, most).join(QStringLiteral(", "));
    return names.size() <= most ? text : QStringLiteral("%1 и ещё %2").arg(text).arg(names.size() - most);
}

static QString quoted(const std::wstring& name)
{
    return QStringLiteral("«%1»").arg(QString::fromStdWString(name));
}

static QString deletion(const PointsChange& change)
{
    QStringList names;
    for (const std::wstring& name : change.removed)
        names.append(quoted(name));
    return (names.size() == 1 ? QStringLiteral("Удалить точку %1?") : QStringLiteral("Удалить точки %1?"))
        .arg(listed(names));
}

static QString renaming(const PointsChange& change)
{
    QStringList names;
    for (const auto& [from, to] : change.renamed)
        names.append(quoted(from) + QStringLiteral(" в ") + quoted(to));
    return (names.size() == 1 ? QStringLiteral("Переименовать точку %1?")
                              : QStringLiteral("Переименовать точки: %1?"))
        .arg(listed(names));
}

bool askAboutChange(const PointsChange& change, QWidget* parent)
{
    const bool deletes = !change.removed.empty();
    QStringList lines;
    for (const PointUse& use : change.uses)
        lines.append(QStringLiteral("%1: %2")
                         .arg(QString::fromWCharArray(use.where.data(), int(use.where.size())))
                         .arg(use.rows));
    QMessageBox box(parent);
    box.setIcon(QMessageBox::Question);
    box.setWindowTitle(QStringLiteral("Ведомость координат"));
    box.setText(deletes ? deletion(change) : renaming(change));
    box.setInformativeText((deletes ? QStringLiteral("Из проекта уйдут и записи других реестров.\n\n")
                                    : QStringLiteral("Новое имя получат и записи других реестров.\n\n"))
        + lines.join(QLatin1Char('\n')));
    QPushButton* go = box.addButton(
        deletes ? QStringLiteral("Удалить") : QStringLiteral("Переименовать"), QMessageBox::AcceptRole);
    QPushButton* leave = box.addButton(QStringLiteral("Отмена"), QMessageBox::RejectRole);
    box.setDefaultButton(deletes ? leave : go);
    box.setEscapeButton(leave);
    box.exec();
    return box.clickedButton() == go;
}
