#include "core/shell/ui/main_window.h"

#include <QAction>
#include <QCoreApplication>
#include <QPushButton>

#include "core/program_state.h"
#include "core/services.h"
#include "core/shell/main_menu.h"
#include "core/shell/start_up.h"
#include "core/shell/view_dispatch.h"
#include "ui_main_window.h"

namespace vantrace {

Main::Main(WindowHost& host, ProgramState& state, Services& services)
    : FormWindow(host, "Main"),
      m_state(state),
      m_services(services),
      m_ui(std::make_unique<Ui::Main>()),
      m_timer1(addTimer(QStringLiteral("Timer1"), [this] { Timer1_Timer(m_form, m_services); })) {
    m_ui->setupUi(this);
    onClick(m_ui->BUTexit, [this] { BUTexit_Click(m_state, m_services); });
    connectMenu();
    // Not the exit: whoever presses a key has to mean it.
    centralWidget()->setFocusPolicy(Qt::ClickFocus);
    centralWidget()->setFocus();
}

Main::~Main() = default;

void Main::connectMenu() {
    for (QAction* const entry : findChildren<QAction*>()) {
        const std::string name = entry->objectName().toStdString();
        if (name.empty() || entry->menu() != nullptr) continue;
        onChosen(entry, [this, name] { runMenuEntry(name, m_state, m_services); });
    }
}

void Main::formLoad() {
    Form_Initialize(m_state, m_services);
    Form_Load(m_form, m_state, m_services);
}

void Main::formActivate() {
    Form_Activate(m_form, m_state, m_services);
}

bool Main::formQueryUnload() {
    if (!mayEnd(m_services)) return false;
    Form_QueryUnload(m_form, m_services);
    return true;
}

void Main::formUnload() {
    Form_Unload(m_form, m_state, m_services);
    QCoreApplication::quit();
}

void Main::writeControls() {
    apply(m_form.skin);
    setWindowTitle(QString::fromStdString(m_form.Caption));
    setText(*m_ui->Label2, m_form.Label2);
    setText(*m_ui->Dstatus, m_form.Dstatus);
    setText(*m_ui->Status2, m_form.Status2);
    setLongText(*m_ui->Status3, m_form.Status3);
    setText(*m_ui->Status4, m_form.Status4);
    setText(*m_ui->Status5, m_form.Status5);
    setText(*m_ui->lblSunRiseSet, m_form.lblSunRiseSet);
    setText(*m_ui->LABdatetime, m_form.LABdatetime);
    apply(*m_timer1, m_form.Timer1);
}

}  // namespace vantrace
