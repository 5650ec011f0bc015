#include "station/ui/tracker_window.h"

#include <QComboBox>
#include <QPushButton>

#include "core/program_state.h"
#include "core/services.h"
#include "core/ui/wheel_guard.h"
#include "ui_frm_tracker.h"

namespace vantrace {

namespace {

QStringList itemsOf(const QComboBox& box) {
    QStringList items;
    for (int i = 0; i < box.count(); ++i) items << box.itemText(i);
    return items;
}

/// What the user is typing stays untouched, with its cursor, for as long as the form holds the same.
void write(QComboBox& box, const FrequencyCombo& form) {
    QStringList items;
    for (const std::string& item : form.items) items << QString::fromStdString(item);
    const QString text = QString::fromStdString(form.text);
    if (itemsOf(box) != items) {
        box.clear();
        box.addItems(items);
    }
    if (box.currentText() != text) box.setEditText(text);
}

}  // namespace

frmTracker::frmTracker(WindowHost& host, ProgramState& state, Services& services)
    : FormWindow(host, "frmTracker"),
      m_state(state),
      m_services(services),
      m_ui(std::make_unique<Ui::frmTracker>()),
      m_timer1(addTimer(QStringLiteral("Timer1"), [this] { Timer1_Timer(m_form, m_state, m_services); })) {
    setWindowFlags(Qt::Dialog);
    m_ui->setupUi(this);
    // Escape doesn't close this one: the antenna would stop in the middle of a pass, only because the user
    // gave up what he was typing.
    // What is typed isn't completed to a frequency of the list.
    m_ui->COMuplink->setCompleter(nullptr);
    m_ui->COMdownlink->setCompleter(nullptr);
    new WheelGuard(*m_ui->COMuplink);
    new WheelGuard(*m_ui->COMdownlink);
    m_ui->CHonOff->setFocus();
    onClick(m_ui->CHonOff, [this] { CHonOff_Click(m_form, m_services); });
    onClick(m_ui->BUTwisp, [this] { BUTwisp_Click(m_state, m_services); });
}

frmTracker::~frmTracker() = default;

void frmTracker::formLoad() {
    Form_Load(m_form, m_state, m_services);
}

void frmTracker::formUnload() {
    Form_Unload(m_form, m_state, m_services);
}

void frmTracker::readControls() {
    m_form.CHonOff = m_ui->CHonOff->isChecked();
    m_form.CHtrackMoon = m_ui->CHtrackMoon->isChecked();
    m_form.COMuplink.text = m_ui->COMuplink->currentText().toStdString();
    m_form.COMdownlink.text = m_ui->COMdownlink->currentText().toStdString();
}

void frmTracker::writeControls() {
    apply(m_form.skin);
    m_ui->CHonOff->setChecked(m_form.CHonOff);
    m_ui->CHtrackMoon->setChecked(m_form.CHtrackMoon);
    write(*m_ui->COMuplink, m_form.COMuplink);
    write(*m_ui->COMdownlink, m_form.COMdownlink);
    setLongText(*m_ui->lblSelSat, m_form.lblSelSat);
    setText(*m_ui->lblAz, m_form.lblAz);
    setText(*m_ui->lblEL, m_form.lblEL);
    setText(*m_ui->lblUplink, m_form.lblUplink);
    setText(*m_ui->lblDownlink, m_form.lblDownlink);
    const QString line = QString::fromStdString(m_form.Tracking);
    if (m_ui->Tracking->text() != line) {
        m_ui->Tracking->setText(line);
        // A line that is too long for its place shows its beginning.
        m_ui->Tracking->setCursorPosition(0);
    }
    apply(*m_timer1, m_form.Timer1);
}

}  // namespace vantrace
