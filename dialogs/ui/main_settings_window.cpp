#include "dialogs/ui/main_settings_window.h"

#include <QPushButton>
#include <utility>

#include "core/program_state.h"
#include "core/services.h"
#include "core/ui/list_controls.h"
#include "core/ui/scrolled_contents.h"
#include "dialogs/ui/setting_controls.h"
#include "ui_frm_con_main.h"

namespace vantrace {

frmCONmain::frmCONmain(WindowHost& host, ProgramState& state, Services& services)
    : FormWindow(host, "frmCONmain"),
      m_state(state),
      m_services(services),
      m_ui(std::make_unique<Ui::frmCONmain>()) {
    constexpr int bigSpeedStep = 10;
    constexpr int bigElevationStep = 5;
    setWindowFlags(Qt::Dialog);
    m_ui->setupUi(this);
    makeTransparent(*m_ui->centre);
    closeOnEscape();
    setUpSlider(*m_ui->SLspeechspeed, speechSpeedRange, bigSpeedStep);
    setUpSlider(*m_ui->SLminEl, minElRange, bigElevationStep);
    m_voices = std::make_unique<DropDownControl>(*m_ui->VoiceSelect);
    // The boxes below stay where they are, whichever of them are shown.
    QSizePolicy headingPolicy = m_ui->Label10->sizePolicy();
    headingPolicy.setRetainSizeWhenHidden(true);
    m_ui->Label10->setSizePolicy(headingPolicy);
    m_ui->Tlocation->setFocus();
    connectPlace();
    connectOthers();
}

frmCONmain::~frmCONmain() = default;

void frmCONmain::connectPlace() {
    onEdit(m_ui->Tlocation, [this] { Tlocation_Change(m_form, m_services); });
    onEdit(m_ui->Theight, [this] { Theight_Change(m_form, m_services); });
    onClick(m_ui->OPdecDeg, [this] { OPdecDeg_Click(m_form, m_services); });
    onClick(m_ui->OPnonDecDeg, [this] { OPnonDecDeg_Click(m_form, m_services); });
    onClick(m_ui->BUTeditTZ, [this] { BUTeditTZ_Click(m_services); });
}

void frmCONmain::connectOthers() {
    onClick(m_ui->CHspeechpack, [this] { CHspeechpack_Click(m_form, m_services); });
    onPick(m_ui->VoiceSelect, [this] { VoiceSelect_Click(m_form, m_services); });
    onSlide(m_ui->SLspeechspeed, [this] { SLspeechspeed_Change(m_form, m_services); });
    onClick(m_ui->CHrecwxsat, [this] { CHrecwxsat_Click(m_form, m_services); });
    onClick(m_ui->CHrecPrimary, [this] { CHrecPrimary_Click(m_form, m_services); });
    onSlide(m_ui->SLminEl, [this] { SLminEl_Change(m_form, m_services); });
    onClick(m_ui->BUTwxWavDir, [this] { BUTwxWavDir_Click(m_form, m_services); });
    onClick(m_ui->Chchangeres, [this] { Chchangeres_Click(m_form, m_services); });
    onClick(m_ui->CHcomp, [this] { CHcomp_Click(m_form, m_state, m_services); });
    onClick(m_ui->CHskin, [this] { CHskin_Click(m_form, m_services); });
    connect(m_ui->closeButton, &QPushButton::clicked, this, &QWidget::close);
}

void frmCONmain::formLoad() {
    Form_Load(m_form, m_state, m_services);
}

bool frmCONmain::formQueryUnload() {
    return Form_QueryUnload(m_form, m_services);
}

void frmCONmain::formUnload() {
    Form_Unload(m_form, m_state, m_services);
}

void frmCONmain::forEachField(const std::function<void(QLineEdit&, std::string&)>& action) {
    action(*m_ui->Tlocation, m_form.Tlocation);
    action(*m_ui->Tlatitude, m_form.Tlatitude);
    action(*m_ui->Tlongitude, m_form.Tlongitude);
    action(*m_ui->Tlatdeg, m_form.Tlatdeg);
    action(*m_ui->Tlatmin, m_form.Tlatmin);
    action(*m_ui->Tlatsec, m_form.Tlatsec);
    action(*m_ui->Tlondeg, m_form.Tlondeg);
    action(*m_ui->Tlonmin, m_form.Tlonmin);
    action(*m_ui->Tlonsec, m_form.Tlonsec);
    action(*m_ui->Theight, m_form.Theight);
}

void frmCONmain::readControls() {
    forEachField(readField);
    m_form.CHspeechpack = m_ui->CHspeechpack->isChecked();
    m_voices->read(m_form.VoiceSelect);
    m_form.SLspeechspeed = m_ui->SLspeechspeed->value();
    m_form.CHrecwxsat = m_ui->CHrecwxsat->isChecked();
    m_form.CHrecPrimary = m_ui->CHrecPrimary->isChecked();
    m_form.SLminEl = m_ui->SLminEl->value();
    m_form.Chchangeres = m_ui->Chchangeres->isChecked();
    m_form.CHcomp = m_ui->CHcomp->isChecked();
    m_form.CHskin = m_ui->CHskin->isChecked();
}

void frmCONmain::writeControls() {
    apply(m_form.skin);
    forEachField(writeField);
    showCoordinates();
    m_ui->CHspeechpack->setChecked(m_form.CHspeechpack);
    m_voices->write(m_form.VoiceSelect);
    writeSlider(*m_ui->SLspeechspeed, m_form.SLspeechspeed);
    m_ui->SLspeechspeed->setToolTip(QString::fromStdString(m_form.SLspeechspeedTip));
    setText(*m_ui->LAspeechspeed, m_form.LAspeechspeed);
    m_ui->CHrecwxsat->setChecked(m_form.CHrecwxsat);
    m_ui->CHrecPrimary->setChecked(m_form.CHrecPrimary);
    writeSlider(*m_ui->SLminEl, m_form.SLminEl);
    setText(*m_ui->LAminEl, m_form.LAminEl);
    setLongText(*m_ui->LAWxWavDir, m_form.LAWxWavDir);
    nameWithText(*m_ui->LAWxWavDir, m_ui->captionWavDir->text(), m_form.LAWxWavDir);
    m_ui->Chchangeres->setChecked(m_form.Chchangeres);
    m_ui->CHcomp->setChecked(m_form.CHcomp);
    m_ui->CHskin->setChecked(m_form.CHskin);
    if (!std::exchange(m_isFitted, true)) growToContents(*this, *m_ui->centre);
}

void frmCONmain::showCoordinates() {
    (m_form.OPnonDecDeg ? m_ui->OPnonDecDeg : m_ui->OPdecDeg)->setChecked(true);
    for (QWidget* const control :
         std::initializer_list<QWidget*>{m_ui->Label1, m_ui->Tlatitude, m_ui->Label2, m_ui->Tlongitude}) {
        control->setVisible(m_form.OPdecDeg);
    }
    for (QWidget* const control : std::initializer_list<QWidget*>{
             m_ui->Label9, m_ui->Tlatdeg, m_ui->Tlatmin, m_ui->Tlatsec, m_ui->Label8, m_ui->Tlondeg,
             m_ui->Tlonmin, m_ui->Tlonsec, m_ui->Label10}) {
        control->setVisible(m_form.OPnonDecDeg);
    }
}

}  // namespace vantrace
