#include "platform/qt/painting_wait.h"

#include <QApplication>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QShortcut>
#include <QTest>
#include <QTimer>
#include <atomic>
#include <thread>

#include "tests/support/testing.h"

namespace vantrace {
namespace {

using namespace std::chrono_literals;

/// Counts what happens in it.
class Window final : public QWidget {
  public:
    Window() {
        m_button.setGeometry(0, 0, 100, 30);
        m_text.setGeometry(0, 40, 100, 30);
        QObject::connect(&m_button, &QPushButton::clicked, [this] { ++clicks; });
        QObject::connect(new QShortcut(QKeySequence(Qt::Key_F5), this), &QShortcut::activated,
                         [this] { ++shortcuts; });
        resize(200, 100);
        show();
        activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(this));
    }
    /// All that a user can do.
    void use() {
        QTest::mouseClick(&m_button, Qt::LeftButton);
        QTest::mouseClick(windowHandle(), Qt::LeftButton, {}, {10, 10});
        QTest::keyClicks(&m_text, "typed");
        QTest::keyClick(windowHandle(), Qt::Key_F5);
        QTest::keyClick(windowHandle(), Qt::Key_Space);
        close();
    }
    QString text() const { return m_text.text(); }

    int clicks = 0;
    int shortcuts = 0;
    int paintings = 0;
    int closings = 0;
    int activations = 0;

  protected:
    void paintEvent(QPaintEvent*) override { ++paintings; }
    void closeEvent(QCloseEvent* event) override {
        ++closings;
        event->accept();
    }
    bool event(QEvent* event) override {
        if (event->type() == QEvent::WindowActivate) ++activations;
        return QWidget::event(event);
    }

  private:
    QPushButton m_button{"Go", this};
    QLineEdit m_text{this};
};

/// Waits so long, and has this thread do something in the middle of it.
void waitWith(std::chrono::milliseconds span, const std::function<void()>& inside) {
    PaintingWait wait;
    QMetaObject::invokeMethod(qApp, inside, Qt::QueuedConnection);
    std::thread other([&] {
        std::this_thread::sleep_for(span);
        wait.finish();
    });
    EXPECT_TRUE(wait.waitFor(10s));
    other.join();
}

TEST(PaintingWait, WindowsArePaintedAndInputIsThrownAway) {
    Window window;
    QApplication::processEvents();
    window.paintings = 0;
    bool wasUsed = false;
    waitWith(150ms, [&] {
        window.update();
        window.use();
        wasUsed = true;
    });
    EXPECT_TRUE(wasUsed);
    EXPECT_GT(window.paintings, 0);
    QTest::qWait(50);
    EXPECT_EQ(window.clicks + window.shortcuts + window.closings, 0) << "nor is it done afterwards";
    EXPECT_EQ(window.text(), "");
    window.use();
    EXPECT_GT(window.clicks, 0) << "the same does something otherwise";
    EXPECT_GT(window.shortcuts, 0);
    EXPECT_GT(window.closings, 0);
    EXPECT_EQ(window.text(), "typed");
}

TEST(PaintingWait, TimersAreHeldAndGoOnAfterwards) {
    int ticks = 0;
    int single = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++ticks; });
    timer.start(5);
    QTimer::singleShot(1, [&] { ++single; });
    const auto start = std::chrono::steady_clock::now();
    waitWith(150ms, [] {});
    EXPECT_LT(std::chrono::steady_clock::now() - start, 2s);
    EXPECT_EQ(ticks + single, 0);
    QTest::qWait(100);
    EXPECT_GT(ticks, 1);
    EXPECT_EQ(single, 1);
}

TEST(PaintingWait, TheFocusAndTheEndOfTheProgramAreToldAfterwards) {
    Window window;
    QApplication::processEvents();
    window.activations = 0;
    bool isEnding = false;
    const auto connection = QObject::connect(qApp, &QCoreApplication::aboutToQuit, [&] { isEnding = true; });
    waitWith(100ms, [&] {
        QEvent activation(QEvent::WindowActivate);
        QCoreApplication::sendEvent(&window, &activation);
        QCoreApplication::postEvent(qApp, new QEvent(QEvent::Quit));
    });
    EXPECT_EQ(window.activations, 0);
    QTimer tooLate;
    QObject::connect(&tooLate, &QTimer::timeout, [] { QCoreApplication::exit(1); });
    tooLate.start(5000);
    EXPECT_EQ(QCoreApplication::exec(), 0) << "the quit comes as soon as the program listens again";
    EXPECT_TRUE(isEnding);
    EXPECT_EQ(window.activations, 1);
    QObject::disconnect(connection);
}

TEST(PaintingWait, WaitsNestAndEndInAnyOrder) {
    Window window;
    PaintingWait outer;
    bool wasInside = false;
    QMetaObject::invokeMethod(
        qApp,
        [&] {
            PaintingWait inner;
            outer.finish();
            EXPECT_FALSE(inner.waitFor(50ms));
            window.use();
            wasInside = true;
        },
        Qt::QueuedConnection);
    EXPECT_TRUE(outer.waitFor(10s));
    EXPECT_TRUE(wasInside);
    EXPECT_EQ(window.clicks, 0);
}

TEST(PaintingWait, TheLimitEndsAWaitOnAnyThread) {
    PaintingWait here;
    EXPECT_FALSE(here.waitFor(30ms));
    std::thread([] {
        PaintingWait there;
        EXPECT_FALSE(there.waitFor(30ms));
        there.finish();
        EXPECT_TRUE(there.waitFor(0ms));
    }).join();
}

}  // namespace
}  // namespace vantrace
