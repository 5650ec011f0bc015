#include "dialogs/ui/groups_window.h"

#include <QPushButton>
#include <utility>

#include "core/program_state.h"
#include "core/services.h"
#include "core/texts.h"
#include "core/ui/list_controls.h"
#include "core/ui/scrolled_contents.h"
#include "dialogs/ui/setting_controls.h"
#include "ui_frm_con_groups.h"

namespace vantrace {

frmCONGroups::frmCONGroups(WindowHost& host, ProgramState& state, Services& services)
    : FormWindow(host, "frmCONGroups"),
      m_state(state),
      m_services(services),
      m_ui(std::make_unique<Ui::frmCONGroups>()) {
    setWindowFlags(Qt::Dialog);
    m_ui->setupUi(this);
    makeTransparent(*m_ui->centre);
    makeTransparent(*m_ui->detailsArea);
    closeOnEscape();
    m_groups = std::make_unique<NameListControl>(*m_ui->GroupList);
    m_satellites =
        std::make_unique<TickListControl>(*m_ui->SatelliteList, [this](std::size_t row, bool isTicked) {
            handle([&] { tickSatellite(m_form, m_state, m_services, row, isTicked); });
        });
    m_publicFiles = std::make_unique<DropDownControl>(*m_ui->COMCelestrak);
    m_ui->GroupList->setFocus();
    connectLists();
    onClick(m_ui->BUTaddCelestrak, [this] { BUTaddCelestrak_Click(m_form, m_state, m_services); });
    onClick(m_ui->BUTaddgroup, [this] { BUTaddgroup_Click(m_form, m_state, m_services); });
    onClick(m_ui->BUTdeletegroup, [this] { BUTdeletegroup_Click(m_form, m_state, m_services); });
    onClick(m_ui->BUTsel, [this] { BUTsel_Click(m_form, m_state, m_services); });
    onClick(m_ui->BUTdesel, [this] { BUTdesel_Click(m_form, m_state, m_services); });
    onClick(m_ui->BUTmakeprime, [this] { BUTmakeprime_Click(m_form, m_state, m_services); });
    onClick(m_ui->BUTfindInfo, [this] { BUTfindInfo_Click(m_form, m_state, m_services); });
    connect(m_ui->closeButton, &QPushButton::clicked, this, &QWidget::close);
}

frmCONGroups::~frmCONGroups() = default;

void frmCONGroups::connectLists() {
    m_ui->GroupList->onChosen = [this] { run(GroupList_Click); };
    ChoiceList& satellites = *m_ui->SatelliteList;
    satellites.onChosen = [this] { run(SatelliteList_Click); };
    satellites.onMouseDown = [this] { handle([this] { SatelliteList_MouseDown(m_form); }); };
    satellites.onMouseUp = [this] { handle([this] { SatelliteList_MouseUp(m_form); }); };
    // A key is the user's as well, but leaves behind what it found.
    satellites.onTickKeyDown = [this] {
        handle([this] { m_wasChecking = std::exchange(m_form.UserIsChecking, true); });
    };
    satellites.onTickKeyUp = [this] { handle([this] { m_form.UserIsChecking = m_wasChecking; }); };
    m_ui->Details->onClick = [this] { run(Details_Click); };
}

void frmCONGroups::run(Handler handler) {
    handle([this, handler] { handler(m_form, m_state, m_services); });
}

void frmCONGroups::formLoad() {
    Form_Load(m_form, m_state, m_services);
}

void frmCONGroups::formUnload() {
    Form_Unload(m_form, m_state, m_services);
}

void frmCONGroups::readControls() {
    m_groups->read(m_form.GroupList);
    m_satellites->read(m_form.SatelliteList);
    m_publicFiles->read(m_form.COMCelestrak);
}

void frmCONGroups::writeControls() {
    apply(m_form.skin);
    m_groups->write(m_form.GroupList);
    m_satellites->write(m_form.SatelliteList);
    m_publicFiles->write(m_form.COMCelestrak);
    const std::string details = replacedAll(m_form.Details, "\r\n", "\n");
    setText(*m_ui->Details, details);
    nameWithText(*m_ui->Details, m_ui->frameDetails->title(), details);
    const bool isClickable = m_form.Details.starts_with("You can st");
    m_ui->Details->setCursor(isClickable ? Qt::PointingHandCursor : Qt::ArrowCursor);
    if (!std::exchange(m_isFitted, true)) growToContents(*this, *m_ui->centre);
}

}  // namespace vantrace
