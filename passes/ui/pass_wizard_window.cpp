#include "passes/ui/pass_wizard_window.h"

#include <QCloseEvent>
#include <QPushButton>
#include <QScreen>
#include <algorithm>
#include <utility>

#include "core/program_state.h"
#include "core/services.h"
#include "core/ui/scrolled_contents.h"
#include "platform/one_line.h"
#include "ui_pass_wizard.h"

namespace vantrace {

namespace {

/// Leaves the cursor of a field where it is, unless the text is another one.
void setFieldText(QLineEdit& field, const std::string& text) {
    const QString shown = QString::fromStdString(text);
    if (field.text() != shown) field.setText(shown);
}

/// A text that the field can't show to the last byte stays what it is until the user changes it.
void readField(const QLineEdit& field, std::string& text) {
    if (field.text() != QString::fromStdString(text)) {
        text = oneLine(field.text().toStdString());
    }
}

}  // namespace

PassWizard::PassWizard(WindowHost& host, ProgramState& state, Services& services)
    : FormWindow(host, "PassWizard"),
      m_state(state),
      m_services(services),
      m_ui(std::make_unique<Ui::PassWizard>()) {
    setWindowFlags(Qt::Dialog);
    m_ui->setupUi(this);
    makeTransparent(*m_ui->centre);
    closeOnEscape();
    m_groups = std::make_unique<DropDownControl>(*m_ui->COMgroup);
    m_satellites = std::make_unique<DropDownControl>(*m_ui->COMsatname);
    m_list = std::make_unique<NameListControl>(*m_ui->SatList);
    m_ui->Tname->setFocus();
    onPick(m_ui->COMgroup, [this] { COMgroup_Click(m_form, m_state, m_services); });
    onClick(m_ui->BUTadd, [this] { BUTadd_Click(m_form, m_services); });
    onClick(m_ui->BUTremove, [this] { BUTremove_Click(m_form, m_services); });
    onClick(m_ui->BUTSaveJob, [this] { BUTSaveJob_Click(m_form, m_state, m_services); });
    onClick(m_ui->BUTcancel, [this] { BUTcancel_Click(m_form, m_services); });
}

PassWizard::~PassWizard() = default;

void PassWizard::showJob(const JobToEdit& job) {
    handle([&] { vantrace::showJob(m_form, job); });
}

void PassWizard::formLoad() {
    Form_Load(m_form, m_state, m_services);
}

bool PassWizard::formQueryUnload() {
    return Form_QueryUnload(m_form, m_services);
}

void PassWizard::formUnload() {
    Form_Unload(m_form);
}

void PassWizard::closeEvent(QCloseEvent* event) {
    event->ignore();
    handle([this] { BUTcancel_Click(m_form, m_services); });
}

/// Where the form says, as far as that leaves the whole window on the screen.
void PassWizard::showEvent(QShowEvent* event) {
    FormWindow::showEvent(event);
    if (std::exchange(m_isPlaced, true) || !m_form.corner) return;
    const QRect room = screen()->availableGeometry();
    const auto within = [](int wanted, int least, int most) {
        return std::clamp(wanted, least, std::max(least, most));
    };
    move(within(m_form.corner->left, room.left(), room.right() - width()),
         within(m_form.corner->top, room.top(), room.bottom() - height()));
}

void PassWizard::readControls() {
    readField(*m_ui->Tname, m_form.Tname);
    readField(*m_ui->Tnumofdays, m_form.Tnumofdays);
    m_form.CHsave = m_ui->CHsave->isChecked();
    m_form.CHprint = m_ui->CHprint->isChecked();
    m_groups->read(m_form.COMgroup);
    m_satellites->read(m_form.COMsatname);
    m_list->read(m_form.SatList);
}

void PassWizard::writeControls() {
    apply(m_form.skin);
    setFieldText(*m_ui->Tname, m_form.Tname);
    setFieldText(*m_ui->Tnumofdays, m_form.Tnumofdays);
    m_ui->CHsave->setChecked(m_form.CHsave);
    m_ui->CHprint->setChecked(m_form.CHprint);
    m_groups->write(m_form.COMgroup);
    m_satellites->write(m_form.COMsatname);
    m_list->write(m_form.SatList);
    if (!std::exchange(m_isFitted, true)) growToContents(*this, *m_ui->centre);
}

}  // namespace vantrace
