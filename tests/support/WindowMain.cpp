#include <QAccessible>
#include <QGuiApplication>

#include <gtest/gtest.h>

// Runs tests that need an event loop and fonts, without a display.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    const QGuiApplication application(argc, argv);
    QAccessible::setActive(true); // as with a screen reader, which changes what controls say of themselves
    ::testing::InitGoogleTest(&argc, argv);
    const int result = RUN_ALL_TESTS();
    // Objects that the last test left for the event loop to delete would look like a leak.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    return result;
}
