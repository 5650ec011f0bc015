#include "dialogs/ui/map_settings_window.h"

#include <QPushButton>
#include <utility>

#include "core/program_state.h"
#include "core/services.h"
#include "core/ui/list_controls.h"
#include "core/ui/scrolled_contents.h"
#include "dialogs/ui/setting_controls.h"
#include "ui_frm_con_2d.h"

namespace vantrace {

frmCON2D::frmCON2D(WindowHost& host, ProgramState& state, Services& services)
    : FormWindow(host, "frmCON2D"),
      m_state(state),
      m_services(services),
      m_ui(std::make_unique<Ui::frmCON2D>()) {
    constexpr int bigStep = 60;
    setWindowFlags(Qt::Dialog);
    m_ui->setupUi(this);
    makeTransparent(*m_ui->centre);
    closeOnEscape();
    setUpSlider(*m_ui->SLgroundTrackLen, groundTrackRange, bigStep);
    setUpSlider(*m_ui->SLMapUpdate, mapUpdateRange, bigStep);
    m_maps = std::make_unique<DropDownControl>(*m_ui->COMmap);
    m_horizons = std::make_unique<DropDownControl>(*m_ui->COMhormap);
    m_ui->SLgroundTrackLen->setFocus();
    onSlide(m_ui->SLgroundTrackLen, [this] { SLgroundTrackLen_Change(m_form, m_services); });
    onSlide(m_ui->SLMapUpdate, [this] { SLMapUpdate_Change(m_form, m_services); });
    onClick(m_ui->CHgroundtrack, [this] { CHgroundtrack_Click(m_form, m_services); });
    onClick(m_ui->CHfootprints, [this] { CHfootprints_Click(m_form, m_services); });
    onClick(m_ui->CHaltworld, [this] { CHaltworld_Click(m_form, m_services); });
    onClick(m_ui->CHshowinfopane, [this] { CHshowinfopane_Click(m_form, m_services); });
    onPick(m_ui->COMmap, [this] { COMmap_Click(m_form, m_services); });
    onPick(m_ui->COMhormap, [this] { COMhormap_Click(m_form, m_services); });
    connect(m_ui->closeButton, &QPushButton::clicked, this, &QWidget::close);
}

frmCON2D::~frmCON2D() = default;

void frmCON2D::formLoad() {
    Form_Load(m_form, m_state, m_services);
}

void frmCON2D::readControls() {
    m_form.SLgroundTrackLen = m_ui->SLgroundTrackLen->value();
    m_form.SLMapUpdate = m_ui->SLMapUpdate->value();
    m_form.CHgroundtrack = m_ui->CHgroundtrack->isChecked();
    m_form.CHfootprints = m_ui->CHfootprints->isChecked();
    m_form.CHaltworld = m_ui->CHaltworld->isChecked();
    m_form.CHshowinfopane = m_ui->CHshowinfopane->isChecked();
    m_maps->read(m_form.COMmap);
    m_horizons->read(m_form.COMhormap);
}

void frmCON2D::writeControls() {
    apply(m_form.skin);
    writeSlider(*m_ui->SLgroundTrackLen, m_form.SLgroundTrackLen);
    setText(*m_ui->LABgroundtrackLen, m_form.LABgroundtrackLen);
    writeSlider(*m_ui->SLMapUpdate, m_form.SLMapUpdate);
    setText(*m_ui->LABmapUpdate, m_form.LABmapUpdate);
    m_ui->CHgroundtrack->setChecked(m_form.CHgroundtrack);
    m_ui->CHfootprints->setChecked(m_form.CHfootprints);
    m_ui->CHaltworld->setChecked(m_form.CHaltworld);
    m_ui->CHshowinfopane->setChecked(m_form.CHshowinfopane);
    m_maps->write(m_form.COMmap);
    m_horizons->write(m_form.COMhormap);
    if (!std::exchange(m_isFitted, true)) growToContents(*this, *m_ui->centre);
}

}  // namespace vantrace
