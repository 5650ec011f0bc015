#include "dialogs/ui/locations_window.h"

#include <QPushButton>

#include "core/program_state.h"
#include "core/services.h"
#include "core/ui/list_controls.h"
#include "ui_frm_con_locations.h"

namespace vantrace {

frmCONlocations::frmCONlocations(WindowHost& host, ProgramState& state, Services& services)
    : FormWindow(host, "frmCONlocations"),
      m_state(state),
      m_services(services),
      m_ui(std::make_unique<Ui::frmCONlocations>()) {
    setWindowFlags(Qt::Dialog);
    m_ui->setupUi(this);
    closeOnEscape();
    m_locations =
        std::make_unique<TickListControl>(*m_ui->ListLocations, [this](std::size_t row, bool isTicked) {
            handle([&] { ListLocations_ItemCheck(m_form, m_state, m_services, row, isTicked); });
        });
    m_ui->ListLocations->setFocus();
    onClick(m_ui->BUTaddlocations, [this] { BUTaddlocations_Click(m_form, m_state, m_services); });
    onClick(m_ui->BUTremovelocations, [this] { BUTremovelocations_Click(m_form, m_state, m_services); });
    connect(m_ui->closeButton, &QPushButton::clicked, this, &QWidget::close);
}

frmCONlocations::~frmCONlocations() = default;

void frmCONlocations::formLoad() {
    Form_Load(m_form, m_state, m_services);
}

void frmCONlocations::formUnload() {
    Form_Unload(m_form, m_state, m_services);
}

void frmCONlocations::readControls() {
    m_locations->read(m_form.ListLocations);
}

void frmCONlocations::writeControls() {
    apply(m_form.skin);
    m_locations->write(m_form.ListLocations);
}

}  // namespace vantrace
