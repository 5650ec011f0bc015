#include "internet/ui/updates_window.h"

#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <utility>

#include "core/program_state.h"
#include "core/services.h"
#include "core/ui/scrolled_contents.h"
#include "internet/clock_sync.h"
#include "internet/database_update.h"
#include "internet/element_update.h"
#include "ui_frm_con_updates.h"

namespace vantrace {

namespace {

/// Leaves the cursor of a field where it is, unless the text is another one.
void setFieldText(QLineEdit& field, const std::string& text) {
    const QString shown = QString::fromStdString(text);
    if (field.text() != shown) field.setText(shown);
}

}  // namespace

frmCONUpdates::frmCONUpdates(WindowHost& host, ProgramState& state, Services& services)
    : FormWindow(host, "frmCONUpdates"),
      m_state(state),
      m_services(services),
      m_ui(std::make_unique<Ui::frmCONUpdates>()) {
    setWindowFlags(Qt::Dialog);
    m_ui->setupUi(this);
    makeTransparent(*m_ui->centre);
    closeOnEscape();
    m_ui->BUTupdateKeps->setFocus();
    onJob(m_ui->BUTupdateKeps, [this] { BUTupdateKeps_Click(m_form, m_state, m_services); });
    onJob(m_ui->BUTsyncClock, [this] { BUTsyncClock_Click(m_form, m_state, m_services); });
    onJob(m_ui->BUTupdateDB, [this] { BUTupdateDB_Click(m_form, m_state, m_services); });
    onClick(m_ui->closeButton, [this] { m_services.windows.unload("frmCONUpdates"); });
    // The fields of the proxy follow the choice.
    connect(m_ui->OPproxyON_1, &QRadioButton::toggled, this, [this] { handle([] {}); });
}

frmCONUpdates::~frmCONUpdates() = default;

void frmCONUpdates::onJob(QPushButton* button, const std::function<void()>& handler) {
    connect(button, &QPushButton::clicked, this, [this, handler, button = QPointer(button)] {
        handle(handler);
        // The focus went on when the job took the button away. The window may be gone by now.
        if (button) button->setFocus();
    });
}

void frmCONUpdates::formLoad() {
    Form_Load(m_form, m_services);
}

void frmCONUpdates::formUnload() {
    Form_Unload(m_form, m_services);
}

void frmCONUpdates::readControls() {
    m_form.OPproxyON = {m_ui->OPproxyON_0->isChecked(), m_ui->OPproxyON_1->isChecked()};
    m_form.txtProxyHost = m_ui->txtProxyHost->text().toStdString();
    m_form.txtProxyPort = m_ui->txtProxyPort->text().toStdString();
    m_form.txtProxyUser = m_ui->txtProxyUser->text().toStdString();
    m_form.txtProxyPass = m_ui->txtProxyPass->text().toStdString();
}

void frmCONUpdates::writeControls() {
    apply(m_form.skin);
    {
        // Nobody chose; and the fields that would be read with a choice aren't written yet.
        const QSignalBlocker quiet(m_ui->OPproxyON_1);
        (m_form.OPproxyON[1] ? m_ui->OPproxyON_1 : m_ui->OPproxyON_0)->setChecked(true);
    }
    setFieldText(*m_ui->txtProxyHost, m_form.txtProxyHost);
    setFieldText(*m_ui->txtProxyPort, m_form.txtProxyPort);
    setFieldText(*m_ui->txtProxyUser, m_form.txtProxyUser);
    setFieldText(*m_ui->txtProxyPass, m_form.txtProxyPass);
    for (QWidget* const widget :
         {static_cast<QWidget*>(m_ui->txtProxyHost), static_cast<QWidget*>(m_ui->txtProxyPort),
          static_cast<QWidget*>(m_ui->txtProxyUser), static_cast<QWidget*>(m_ui->txtProxyPass),
          static_cast<QWidget*>(m_ui->captionHost), static_cast<QWidget*>(m_ui->captionPort),
          static_cast<QWidget*>(m_ui->captionUser), static_cast<QWidget*>(m_ui->captionPass)}) {
        widget->setEnabled(m_form.OPproxyON[1]);
    }
    for (QPushButton* const button : {m_ui->BUTupdateKeps, m_ui->BUTsyncClock, m_ui->BUTupdateDB}) {
        button->setEnabled(!m_form.isWorking);
    }
    writeStatus();
    if (!std::exchange(m_isFitted, true)) growToContents(*this, *m_ui->centre);
}

/// The newest line is in sight, unless nothing is new.
void frmCONUpdates::writeStatus() {
    QString text = QString::fromStdString(m_form.txtStatus);
    text.remove(u'\r');
    if (m_ui->txtStatus->toPlainText() == text) return;
    m_ui->txtStatus->setPlainText(text);
    m_ui->txtStatus->moveCursor(QTextCursor::End);
    // A line that is wrapped is in sight with its last part.
    QScrollBar& bar = *m_ui->txtStatus->verticalScrollBar();
    bar.setValue(bar.maximum());
}

}  // namespace vantrace
