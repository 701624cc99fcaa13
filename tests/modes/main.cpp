#include <QApplication>
#include <QTest>
#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    const int result = RUN_ALL_TESTS();
    // Animations whose line edit is gone end at their next turn, and are deleted then.
    QTest::qWait(100);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return result;
}
