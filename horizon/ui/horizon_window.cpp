#include "horizon/ui/horizon_window.h"

#include <QAction>
#include <QTimer>

#include "core/program_state.h"
#include "core/services.h"
#include "core/ui/surface_view.h"
#include "core/ui/window_placement.h"
#include "ui_horizon.h"

namespace vantrace {

namespace {

constexpr int refreshDelayMs = 40;

}  // namespace

Horizon::Horizon(WindowHost& host, ProgramState& state, Services& services)
    : FormWindow(host, "Horizon"),
      m_view{m_form, m_surfaces, state, services},
      m_ui(std::make_unique<Ui::Horizon>()),
      m_timer1Sec(addTimer(QStringLiteral("Timer1Sec"), [this] { Timer1Sec_Timer(m_view); })),
      m_timer5sec(addTimer(QStringLiteral("Timer5sec"), [this] { Timer5sec_Timer(m_view); })),
      m_refresh(addTimer(QStringLiteral("refresh"), [this] { paintPanorama(m_view); })) {
    m_ui->setupUi(this);
    m_refresh->setSingleShot(true);
    connectMenus();
    m_ui->Final->onPressed = [this](Qt::MouseButton, QPointF place) {
        handle([&] { Final_MouseDown(m_view, place.x(), place.y()); });
    };
}

Horizon::~Horizon() = default;

void Horizon::connectMenus() {
    for (const QMenu* const menu : {m_ui->options, m_ui->controls}) {
        onMenu(*menu, [this](const std::string& entry) { runHorizonEntry(entry, m_view); });
    }
}

void Horizon::formLoad() {
    Form_Load(m_view);
}

void Horizon::formUnload() {
    Form_Unload(m_view);
}

void Horizon::resizeEvent(QResizeEvent* event) {
    FormWindow::resizeEvent(event);
    m_refresh->start(refreshDelayMs);
}

void Horizon::readControls() {
    m_form.innerWidth = m_ui->Final->width();
    m_form.innerHeight = m_ui->Final->height();
    m_form.devicePixelsPerPixel = surfaceDensity(*this);
    m_form.place = placeOf(*this);
}

void Horizon::writeControls() {
    apply(m_form.skin);
    if (m_shownPlacements != m_form.placements) {
        m_shownPlacements = m_form.placements;
        placeWindow(*this, m_form.place);
    }
    m_ui->Mnorth->setChecked(m_form.Mnorth.isChecked);
    m_ui->Msouth->setChecked(m_form.Msouth.isChecked);
    m_ui->Mposannounce->setChecked(m_form.Mposannounce.isChecked);
    if (m_shownFrames != m_form.frames) {
        m_shownFrames = m_form.frames;
        m_ui->Final->show(m_surfaces.Final);
    }
    apply(*m_timer1Sec, m_form.Timer1Sec);
    apply(*m_timer5sec, m_form.Timer5sec);
}

}  // namespace vantrace
