#include "toys/toy_screen.h"

#include <QMetaMethod>
#include <QVariant>

#include <stdexcept>

ToyScreen::ToyScreen(const QString& given)
{
    setProperty("given", given);
    setProperty("storable", true);
    const QMetaMethod slot = staticMetaObject.method(staticMetaObject.indexOfSlot("note()"));
    const QMetaObject& bus = TXWidget::staticMetaObject;
    for (int index = bus.methodOffset(); index < bus.methodCount(); ++index)
        connect(this, bus.method(index), this, slot);
    // The last connection gives the answer.
    connect(this, &TXWidget::signalUpdateDB, this, [this] { return property("storable").toBool(); });
}

void ToyScreen::note()
{
    const QString signal = QString::fromLatin1(metaObject()->method(senderSignalIndex()).name());
    setProperty("log", property("log").toStringList() << signal);
    if (property("throwsOn").toString() == signal)
        throw std::runtime_error("toy");
}
