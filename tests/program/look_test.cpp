#include "app/visual_style.h"
#include "program/program_test.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QHeaderView>
#include <QLabel>
#include <QMenuBar>
#include <QStyleFactory>
#include <QTabBar>
#include <QTabWidget>
#include <QTextDocument>
#include <QToolBar>

namespace
{

std::string nameOf(const QWidget& widget)
{
    return std::string(widget.metaObject()->className()) + " \"" + widget.objectName().toStdString() + '"';
}

// Every screen, in every style, in a window of a small notebook.
class Look : public ProgramTest
{
protected:
    void forEveryScreen(const std::function<void()>& look)
    {
        openFromCommandLine(controller(), project(QStringLiteral("PORTADOWN")).toLocal8Bit().constData());
        const QStringList styles = QStyleFactory::keys();
        for (const QString& style : styles) {
            applyVisualStyle(style);
            shell.mainWindow->showNormal();
            shell.mainWindow->resize(1366, 720);
            for (const ModeRow& row : modeRows) {
                if (row.moduleFile.empty() || row.mode == ModeSetup || row.mode == ModeSectionEditor
                    || row.mode == ModeProjects)
                    continue;
                controller().changeMode(row.mode);
                auto* tabs = screen(row.mode)->findChild<QTabWidget*>();
                for (int tab = 0; tab < (tabs ? tabs->count() : 1); ++tab) {
                    if (tabs)
                        tabs->setCurrentIndex(tab);
                    // A screen reads its data in one turn of the loop and is laid out in the next.
                    for (int turn = 0; turn < 3; ++turn)
                        QCoreApplication::processEvents();
                    SCOPED_TRACE(style.toStdString() + ", mode " + std::to_string(row.mode) + ", tab "
                        + std::to_string(tab));
                    look();
                }
            }
        }
        applyVisualStyle(QStringLiteral("Fusion"));
    }

    static void expectRoomForTitles(const QHeaderView& header)
    {
        for (int section = 0; header.orientation() == Qt::Horizontal && section < header.count(); ++section) {
            EXPECT_TRUE(header.isSectionHidden(section)
                || header.sectionSize(section) >= header.sectionSizeHint(section))
                << nameOf(*header.parentWidget()) << ", column " << section << ": "
                << header.sectionSize(section) << " of " << header.sectionSizeHint(section);
        }
    }

    // Screens behind the one on top count as visible to the toolkit.
    bool isSeen(const QWidget& widget)
    {
        const MdiChild* current = controller().findSubWindow(shell.controller->currentMode());
        const auto* area = shell.mainWindow->centralWidget();
        return widget.isVisible()
            && (!area->isAncestorOf(&widget) || (current && current->isAncestorOf(&widget)));
    }

    template <class Widget>
    QList<Widget*> seen()
    {
        QList<Widget*> found = shell.mainWindow->findChildren<Widget*>();
        found.erase(
            std::remove_if(found.begin(), found.end(), [this](const Widget* each) { return !isSeen(*each); }),
            found.end());
        return found;
    }
};

} // namespace

TEST_F(Look, TextsHaveRoomAndBarsDoNotFold)
{
    forEveryScreen([this] {
        for (const QToolBar* bar : seen<QToolBar>()) {
            const auto* more = bar->findChild<QWidget*>(QStringLiteral("qt_toolbar_ext_button"));
            EXPECT_FALSE(more && more->isVisible()) << bar->windowTitle().toStdString();
        }
        for (const QLabel* label : seen<QLabel>()) {
            if (label->text().isEmpty() || Qt::mightBeRichText(label->text()))
                continue;
            const QSize needed = label->wordWrap() ? QSize(0, label->heightForWidth(label->width()))
                                                   : label->minimumSizeHint();
            EXPECT_LE(needed.width(), label->width()) << label->text().toStdString();
            EXPECT_LE(needed.height(), label->height() + 1) << label->text().toStdString();
        }
        for (const QAbstractButton* button : seen<QAbstractButton>()) {
            EXPECT_TRUE(button->text().isEmpty() || button->width() >= button->minimumSizeHint().width())
                << button->text().toStdString();
        }
        for (const QTabBar* bar : seen<QTabBar>())
            EXPECT_LE(bar->tabRect(bar->count() - 1).right(), bar->width()) << nameOf(*bar);
        for (const QHeaderView* header : seen<QHeaderView>())
            expectRoomForTitles(*header);
    });
}

TEST_F(Look, ControlsHaveNames)
{
    forEveryScreen([this] {
        for (QWidget* widget : seen<QWidget>()) {
            if ((widget->focusPolicy() & Qt::TabFocus) == 0 || !widget->isEnabled() || widget->focusProxy())
                continue;
            // The frame of a screen has no title of its own, or the window would show it beside its own.
            if (dynamic_cast<MdiChild*>(widget))
                continue;
            QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(widget);
            EXPECT_TRUE(spoken && !spoken->text(QAccessible::Name).isEmpty()) << nameOf(*widget);
        }
    });
}
