#pragma once

#include "common/sheet_screen.h"
#include "core/facade/mode_libraries.h"
#include "core/facade/tellurix_controller.h"
#include "modules/icreate_widget.h"
#include "modules/tx_widget.h"

#include <QApplication>
#include <QLabel>
#include <QLibrary>
#include <QLineEdit>
#include <QTabWidget>
#include <QTableView>
#include <QTest>

#include <memory>

// The modules whose screens show sheets and nothing else.
struct SheetModule {
    const char* file;
    TX_Modes mode;
};
inline constexpr SheetModule sheetModules[] = {
    {"section19.dll", ModeSection},
    {"consolidated19.dll", ModeConsolidated},
};
// Those whose screens have pages, without records that the shell adds or deletes.
inline constexpr SheetModule pagedModules[] = {
    {"subsidence19.dll", ModeSubsidence},
    {"chemistry19.dll", ModeChemistry},
};

// Such a screen as the shell makes it, over the real facade.
class SheetHost
{
public:
    SheetHost(const SheetModule& module, DBProject* project)
        : controller(settings.get(), project)
        , library_(modeLibraryPath(QLatin1String(module.file)))
    {
        const TX_Modes mode = module.mode;
        QWidget* made = nullptr;
        if (mode == ModeSection) {
            using Create = QWidget* (*)(const TX_Modes*, ITellurixController*, ICreateWidget*);
            if (const auto create = reinterpret_cast<Create>(library_.resolve("createWidget")))
                made = create(&mode, &controller, nullptr);
        } else {
            using Create = QWidget* (*)(const TX_Modes*, ITellurixController*);
            if (const auto create = reinterpret_cast<Create>(library_.resolve("createWidget")))
                made = create(&mode, &controller);
        }
        screen.reset(dynamic_cast<TXWidget*>(made));
        if (!screen)
            qFatal("%s: %s", module.file, qPrintable(library_.errorString()));
        show();
    }
    // The same of sheets that no module shows alone.
    SheetHost(const std::vector<Table>& sheets, TX_Modes mode, DBProject* project)
        : controller(settings.get(), project)
        , screen(new SheetScreen(mode, &controller, sheets))
    {
        show();
    }

    QLineEdit* filter() const { return screen->findChild<QLineEdit*>(QStringLiteral("filter")); }
    std::string count() const
    {
        look();
        const auto* label = screen->findChild<QLabel*>(QStringLiteral("count"));
        return label ? label->text().toStdString() : "no count in view";
    }
    QTableView* table(const char* name) const
    {
        look();
        return screen->findChild<QTableView*>(QLatin1String(name));
    }
    // Everything that the labels in view say.
    std::string labels() const
    {
        look();
        QStringList texts;
        for (const QLabel* label : screen->findChildren<QLabel*>())
            if (label->isVisible())
                texts += label->text();
        return texts.join(QLatin1Char('\n')).toStdString();
    }

    Reference<Settings> settings = makeReference<Settings>();
    TellurixController controller;

private:
    void show() const
    {
        screen->resize(1100, 600);
        screen->show();
        QApplication::setActiveWindow(screen.get());
    }
    // What a screen puts off, it puts off until it is painted at most.
    static void look() { QCoreApplication::sendPostedEvents(); }

    QLibrary library_;

public:
    std::unique_ptr<TXWidget> screen;
};
