#include "core/ui/form_window.h"

#include <QAbstractButton>
#include <QAction>
#include <QCloseEvent>
#include <QComboBox>
#include <QIcon>
#include <QLineEdit>
#include <QScreen>
#include <QShortcut>
#include <QSlider>
#include <QTimer>
#include <utility>

#include "core/skin.h"
#include "core/ui/skin_style.h"
#include "core/ui/svg_picture.h"

namespace vantrace {

namespace {

/// Counts up for as long as it lives.
class Counted {
  public:
    explicit Counted(int& count) : m_count(count) { ++m_count; }
    ~Counted() { --m_count; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;

  private:
    int& m_count;
};

/// Does something at the end of its life.
class Finally {
  public:
    explicit Finally(std::function<void()> action) : m_action(std::move(action)) {}
    ~Finally() { m_action(); }
    Finally(const Finally&) = delete;
    Finally& operator=(const Finally&) = delete;

  private:
    std::function<void()> m_action;
};

}  // namespace

FormWindow::FormWindow(WindowHost& host, std::string name) : m_host(host), m_name(std::move(name)) {
    providePictures();
    setWindowIcon(QIcon(QStringLiteral(":/art/vantrace.svg")));
}

void FormWindow::load() {
    run([this] { formLoad(); });
}

void FormWindow::activate() {
    run([this] { formActivate(); });
}

bool FormWindow::queryUnload() {
    bool mayGo = true;
    run([&] { mayGo = formQueryUnload(); });
    return mayGo;
}

void FormWindow::retire() {
    m_isRetired = true;
    for (QTimer* const timer : findChildren<QTimer*>()) timer->stop();
}

void FormWindow::unload() {
    run([this] { formUnload(); });
}

void FormWindow::show() {
    // What was typed since the last handler is kept.
    if (m_wasShown && m_running == 0 && !m_isRetired) readControls();
    writeControls();
    if (!std::exchange(m_wasShown, true)) fitToScreen();
    setWindowState(windowState() & ~Qt::WindowMinimized);
    QMainWindow::show();
    raise();
    activateWindow();
}

void FormWindow::hide() {
    QMainWindow::hide();
}

bool FormWindow::isOnScreen() const {
    return isVisible();
}

bool FormWindow::hasFocus() const {
    return isActiveWindow();
}

void FormWindow::beforeYield() {
    if (m_running > 0) writeControls();
}

void FormWindow::afterYield() {
    if (m_running > 0 && !m_isRetired) readControls();
}

void FormWindow::handle(const std::function<void()>& handler) {
    m_host.handle(m_name, [&] {
        if (!m_isRetired) run(handler);
    });
}

void FormWindow::handleTick(const std::function<void()>& tick) {
    m_host.handleTick(m_name, [&] {
        if (!m_isRetired) run(tick);
    });
}

void FormWindow::onClick(QAbstractButton* button, const std::function<void()>& handler) {
    connect(button, &QAbstractButton::clicked, this, [this, handler] { handle(handler); });
}

void FormWindow::onPick(QComboBox* box, const std::function<void()>& handler) {
    connect(box, &QComboBox::activated, this, [this, handler] { handle(handler); });
}

void FormWindow::onSlide(QSlider* slider, const std::function<void()>& handler) {
    connect(slider, &QSlider::valueChanged, this, [this, handler] { handle(handler); });
}

void FormWindow::onEdit(QLineEdit* field, const std::function<void()>& handler) {
    connect(field, &QLineEdit::textEdited, this, [this, handler] { handle(handler); });
}

void FormWindow::onChosen(QAction* entry, const std::function<void()>& handler) {
    connect(entry, &QAction::triggered, this, [this, handler] { handle(handler); });
}

void FormWindow::onMenu(const QWidget& menu, const std::function<void(const std::string& entry)>& handler) {
    for (QAction* const entry : menu.actions()) {
        if (entry->isSeparator()) continue;
        onChosen(entry, [handler, name = entry->objectName().toStdString()] { handler(name); });
    }
}

QTimer* FormWindow::addTimer(const QString& name, const std::function<void()>& tick) {
    auto* const timer = new QTimer(this);
    timer->setObjectName(name);
    timer->setTimerType(Qt::CoarseTimer);
    connect(timer, &QTimer::timeout, this, [this, tick, isTicking = false]() mutable {
        if (isTicking) return;
        isTicking = true;
        handleTick(tick);
        isTicking = false;
    });
    return timer;
}

void FormWindow::apply(QTimer& timer, const TimerState& state) {
    if (!state.isEnabled) {
        timer.stop();
    } else if (!timer.isActive() || timer.interval() != state.intervalMs) {
        timer.start(state.intervalMs);
    }
}

void FormWindow::apply(const Skin& skin) {
    if (m_isStyled && m_hasSkin == skin.isApplied) return;
    m_isStyled = true;
    m_hasSkin = skin.isApplied;
    applySkinStyle(*this, skin);
}

void FormWindow::closeOnEscape() {
    connect(new QShortcut(QKeySequence::Cancel, this), &QShortcut::activated, this, &QWidget::close);
}

void FormWindow::setText(QLabel& label, const std::string& text) {
    label.setTextFormat(Qt::PlainText);
    label.setText(QString::fromStdString(text));
}

void FormWindow::setLongText(QLabel& label, const std::string& text) {
    setText(label, text);
    label.setToolTip(QStringLiteral("<qt>%1</qt>").arg(QString::fromStdString(text).toHtmlEscaped()));
}

void FormWindow::closeEvent(QCloseEvent* event) {
    // The registry takes the window off the screen, or leaves it.
    event->ignore();
    handle([this] { m_host.registry().unload(m_name); });
}

bool FormWindow::event(QEvent* event) {
    const bool isTaken = QMainWindow::event(event);
    if (event->type() == QEvent::WindowActivate && !m_isRetired) {
        m_host.handle(m_name, [this] { m_host.registry().focusCame(m_name); });
    }
    return isTaken;
}

void FormWindow::fitToScreen() {
    constexpr int frame = 40;
    const QSize room = screen()->availableSize() - QSize(frame, frame);
    if (width() > room.width() || height() > room.height()) resize(size().boundedTo(room));
}

void FormWindow::run(const std::function<void()>& handler) {
    const WindowHost::Busy busy(m_host);
    // Also when the handler throws: the controls show what the struct holds.
    const Finally write([this] {
        if (!m_isRetired) writeControls();
    });
    const Counted running(m_running);
    if (!m_isRetired) readControls();
    handler();
}

}  // namespace vantrace
