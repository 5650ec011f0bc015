#include "core/shell/ui/information_windows.h"

#include <QPushButton>

#include "core/services.h"
#include "ui_about.h"
#include "ui_splash.h"

namespace vantrace {

frmSplash::frmSplash(WindowHost& host, Services& services)
    : FormWindow(host, "frmSplash"), m_services(services), m_ui(std::make_unique<Ui::frmSplash>()) {
    setWindowFlags(Qt::SplashScreen);
    m_ui->setupUi(this);
}

frmSplash::~frmSplash() = default;

void frmSplash::formLoad() {
    Form_Load(m_form, m_services);
}

void frmSplash::formActivate() {
    Form_Activate(m_form, m_services);
}

void frmSplash::writeControls() {
    apply(m_form.skin);
    setText(*m_ui->lblVersion, m_form.lblVersion);
}

About::About(WindowHost& host, Services& services)
    : FormWindow(host, "About"), m_services(services), m_ui(std::make_unique<Ui::About>()) {
    setWindowFlags(Qt::Dialog);
    m_ui->setupUi(this);
    closeOnEscape();
    m_ui->BUTok->setFocus();
    setText(*m_ui->lblQt, std::string("Qt ") + qVersion());
    onClick(m_ui->BUTok, [this] { BUTok_Click(m_form, m_services); });
    onClick(m_ui->BUTsysinfo, [this] { BUTsysinfo_Click(m_form, m_services); });
}

About::~About() = default;

void About::formLoad() {
    Form_Load(m_form, m_services);
}

void About::writeControls() {
    apply(m_form.skin);
    setText(*m_ui->lblVersion, m_form.lblVersion);
    setText(*m_ui->lblEngine, m_form.lblEngine);
    m_ui->BUTsysinfo->setEnabled(m_form.isBUTsysinfoEnabled);
}

}  // namespace vantrace
