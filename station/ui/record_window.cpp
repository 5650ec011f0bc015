#include "station/ui/record_window.h"

#include <QPushButton>

#include "core/program_state.h"
#include "core/services.h"
#include "ui_record.h"

namespace vantrace {

Record::Record(WindowHost& host, ProgramState& state, Services& services)
    : FormWindow(host, "Record"),
      m_state(state),
      m_services(services),
      m_ui(std::make_unique<Ui::Record>()),
      m_timer1(addTimer(QStringLiteral("Timer1"), [this] { Timer1_Timer(m_form, m_state, m_services); })) {
    setWindowFlags(Qt::Dialog);
    m_ui->setupUi(this);
    // It comes up while the user may be typing elsewhere: no key of his is to press a button.
    m_ui->centre->setFocus();
    onClick(m_ui->BUTstartstop, [this] { BUTstartstop_Click(m_form, m_state, m_services); });
    onClick(m_ui->BUTcancel, [this] { BUTcancel_Click(m_form, m_services); });
}

Record::~Record() = default;

void Record::StartRecording(std::string_view name) {
    handle([&] { vantrace::StartRecording(m_form, m_state, m_services, name); });
}

void Record::StopRecording() {
    handle([&] { vantrace::StopRecording(m_form, m_state, m_services); });
}

void Record::formLoad() {
    Form_Load(m_form, m_services);
}

void Record::formUnload() {
    Form_Unload(m_form, m_state, m_services);
}

void Record::writeControls() {
    apply(m_form.skin);
    setText(*m_ui->Countdown, m_form.Countdown);
    setText(*m_ui->Status, m_form.Status);
    m_ui->BUTstartstop->setText(QString::fromStdString(m_form.BUTstartstop));
    apply(*m_timer1, m_form.Timer1);
}

}  // namespace vantrace
