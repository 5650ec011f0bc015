#include "mapview/ui/world_view_window.h"

#include <QAction>
#include <QEvent>
#include <QMenu>
#include <QTextCursor>
#include <QTimer>

#include "core/program_state.h"
#include "core/services.h"
#include "core/ui/row_model.h"
#include "core/ui/surface_view.h"
#include "core/ui/window_placement.h"
#include "mapview/satellite_choice.h"
#include "mapview/ui/pane_controls.h"
#include "mapview/world_view.h"
#include "mapview/world_view_menu.h"
#include "ui_world_view.h"

namespace vantrace {

namespace {

constexpr int refreshDelayMs = 40;
constexpr std::array paneHeadings = {"Sun's Information", "Moon's Information", "Time Tracking Mode",
                                     "Notes and Passes"};
constexpr Colour headingColour = 0xFFFFFF;

/// The buttons of a mouse as the map numbers them.
int buttonNumber(Qt::MouseButton button) {
    if (button == Qt::RightButton) return 2;
    return button == Qt::MiddleButton ? 4 : 1;
}

/// The name as the text of an entry, which has its own meaning for an ampersand.
QString entryText(const std::string& name) {
    return QString::fromStdString(name).replace(QLatin1Char('&'), QLatin1String("&&"));
}

}  // namespace

WorldView::WorldView(WindowHost& host, MapState& map, ProgramState& state, Services& services)
    : FormWindow(host, "WorldView"),
      m_world{m_form, map, m_surfaces, state, services},
      m_ui(std::make_unique<Ui::WorldView>()),
      m_timer1(addTimer(QStringLiteral("Timer1"), [this] { Timer1_Timer(m_world); })),
      m_timer2(addTimer(QStringLiteral("Timer2"), [this] { Timer2_Timer(m_world); })),
      m_refresh(addTimer(QStringLiteral("refresh"), [this] {
          // The first frame is the clock's, which has placed the satellites.
          if (m_form.Timer1.isEnabled && m_form.frames > 0) paintFrame(m_world);
      })) {
    m_ui->setupUi(this);
    m_refresh->setSingleShot(true);
    nameLines();
    connectMenus();
    connectPane();
    m_ui->inside->installEventFilter(this);
    // Whoever presses a key has to mean it.
    m_ui->inside->setFocusPolicy(Qt::ClickFocus);
    m_ui->inside->setFocus();
    m_ui->Final->onPressed = [this](Qt::MouseButton button, QPointF place) {
        handle([&] { Final_MouseDown(m_world, buttonNumber(button), place.x(), place.y()); });
    };
}

WorldView::~WorldView() = default;

void WorldView::nameLines() {
    for (std::size_t i = 0; i < RemoteStat.size(); ++i) {
        RemoteStat[i] = m_ui->inside->findChild<PaneLine*>(QStringLiteral("RemoteStat_%1").arg(i));
        RemoteStat[i]->setColour(remoteStatColour(i));
    }
    for (std::size_t i = 0; i < paneHeadings.size(); ++i) {
        auto* const heading = m_ui->inside->findChild<PaneLine*>(QStringLiteral("InfoPaneLabels_%1").arg(i));
        heading->setColour(headingColour);
        heading->setHeading(QString::fromLatin1(paneHeadings[i]));
    }
    m_ui->IPtext->setFont(paneFont());
    QFont columns = paneFont();
    columns.setFamily(QStringLiteral("DejaVu Sans Mono"));
    m_ui->txtQuickETA->setFont(columns);
    // Names are padded to their column; the tab after them is the gap to the next.
    constexpr int nameLetters = 15;
    m_ui->txtQuickETA->setTabStopDistance(QFontMetricsF(columns).horizontalAdvance(QLatin1Char('0')) *
                                          nameLetters);
    m_ui->txtQuickETA->document()->setDocumentMargin(3);
}

void WorldView::connectMenus() {
    for (const QMenu* const menu : {m_ui->M2, m_ui->M3}) {
        onMenu(*menu, [this](const std::string& entry) { runMapEntry(entry, m_world); });
    }
}

void WorldView::connectPane() {
    onClick(m_ui->BUTexpand, [this] { BUTexpand_Click(m_world); });
    onClick(m_ui->BUTtime_0, [this] { BUTtime_Click(m_world, 0); });
    onClick(m_ui->BUTtime_1, [this] { BUTtime_Click(m_world, 1); });
    onClick(m_ui->BUTimode_0, [this] { BUTimode_Click(m_world, 0); });
    onClick(m_ui->BUTimode_1, [this] { BUTimode_Click(m_world, 1); });
    onSlide(m_ui->SliderWarp, [this] { SliderWarp_Change(m_world); });
}

void WorldView::formLoad() {
    Form_Load(m_world);
}

void WorldView::formActivate() {
    Form_Activate(m_world);
}

void WorldView::formUnload() {
    Form_Unload(m_world);
}

bool WorldView::eventFilter(QObject* object, QEvent* event) {
    if (object == m_ui->inside && event->type() == QEvent::Resize) {
        handle([this] { Form_Resize(m_world); });
        if (isVisible()) m_refresh->start(refreshDelayMs);
    }
    return FormWindow::eventFilter(object, event);
}

void WorldView::readControls() {
    m_form.innerWidth = m_ui->inside->width();
    m_form.innerHeight = m_ui->inside->height();
    m_form.devicePixelsPerPixel = surfaceDensity(*this);
    m_form.SliderWarp = static_cast<std::int16_t>(m_ui->SliderWarp->value());
    m_form.place = placeOf(*this);
}

void WorldView::writeControls() {
    apply(m_form.skin);
    if (m_shownPlacements != m_form.placements) {
        m_shownPlacements = m_form.placements;
        placeWindow(*this, m_form.place);
    }
    writeLayout();
    writePane();
    writeComingPasses();
    writeMenus();
    if (m_shownFrames != m_form.frames) {
        m_shownFrames = m_form.frames;
        m_ui->Final->show(m_surfaces.Final);
    }
    apply(*m_timer1, m_form.Timer1);
    apply(*m_timer2, m_form.Timer2);
}

void WorldView::writeLayout() {
    if (m_shownLayout == m_form.layout && m_isPaneShownOpen == m_form.ShowInfoPaneNow) return;
    m_shownLayout = m_form.layout;
    m_isPaneShownOpen = m_form.ShowInfoPaneNow;
    const auto place = [](QWidget* control, const QRect& area) {
        if (control->geometry() != area) control->setGeometry(area);
    };
    place(m_ui->Final, {0, 0, m_form.layout.Final.width, m_form.layout.Final.height});
    place(m_ui->BUTexpand,
          {m_form.layout.expandLeft, 0, m_ui->BUTexpand->width(), m_form.layout.expandHeight});
    m_ui->BUTexpand->setOpen(m_form.ShowInfoPaneNow);
    const int left = m_form.layout.paneLeft;
    place(m_ui->paneBack, {left, 0, m_ui->paneBack->width(), m_form.layout.expandHeight});
    for (QWidget* const control :
         m_ui->inside->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (control == m_ui->Final || control == m_ui->BUTexpand || control->x() == left) continue;
        control->move(left, control->y());
    }
    m_ui->BUTtime_1->move(left + m_ui->BUTtime_0->width(), m_ui->BUTtime_1->y());
    m_ui->BUTimode_1->move(left + m_ui->BUTimode_0->width(), m_ui->BUTimode_1->y());
    for (QWidget* const box :
         {static_cast<QWidget*>(m_ui->IPtext), static_cast<QWidget*>(m_ui->txtQuickETA)}) {
        place(box, {left, box->y(), box->width(), m_form.layout.notesHeight});
    }
}

void WorldView::writePane() {
    for (std::size_t i = 0; i < RemoteStat.size(); ++i) {
        if (m_shownLines[i] == m_form.RemoteStat[i]) continue;
        m_shownLines[i] = m_form.RemoteStat[i];
        RemoteStat[i]->setText(QString::fromStdString(m_form.RemoteStat[i]));
    }
    if (m_shownNotes != m_form.IPtext) {
        m_shownNotes = m_form.IPtext;
        m_ui->IPtext->setPlainText(QString::fromStdString(m_form.IPtext));
    }
    m_ui->BUTtime_0->setChecked(m_form.pressedBUTtime == 0);
    m_ui->BUTtime_1->setChecked(m_form.pressedBUTtime == 1);
    m_ui->BUTimode_0->setChecked(m_form.pressedBUTimode == 0);
    m_ui->BUTimode_1->setChecked(m_form.pressedBUTimode == 1);
}

/// Parts that came to those on show are put behind them; so a long list grows row by row.
void WorldView::writeComingPasses() {
    const RichText& text = m_form.txtQuickETA;
    m_ui->txtQuickETA->setVisible(text.isVisible);
    if (m_shownPassChanges == text.changes) return;
    const bool hasOnlyGrown = text.changes - m_shownPassChanges == text.parts.size() - m_shownPassParts;
    if (!hasOnlyGrown) {
        m_ui->txtQuickETA->clear();
        m_shownPassParts = 0;
    }
    QTextCursor cursor(m_ui->txtQuickETA->document());
    cursor.movePosition(QTextCursor::End);
    for (; m_shownPassParts < text.parts.size(); ++m_shownPassParts) {
        const RichText::Part& part = text.parts[m_shownPassParts];
        QTextCharFormat format;
        format.setForeground(toQColor(part.colour));
        cursor.insertText(QString::fromStdString(part.text), format);
    }
    m_shownPassChanges = text.changes;
}

void WorldView::writeMenus() {
    const auto write = [](QAction* entry, const MenuEntryState& state) {
        entry->setChecked(state.isChecked);
        entry->setEnabled(state.isEnabled);
    };
    write(m_ui->MspeechONoff, m_form.MspeechONoff);
    write(m_ui->MrecordONoff, m_form.MrecordONoff);
    write(m_ui->MrecordONoffP, m_form.MrecordONoffP);
    if (m_shownFavourites != m_form.favouriteLists || m_ui->M1->isEmpty()) writeFavourites();
    if (m_shownPopUps != m_form.popUps) {
        m_shownPopUps = m_form.popUps;
        m_ui->M1->popup(QCursor::pos());
    }
}

void WorldView::writeFavourites() {
    m_shownFavourites = m_form.favouriteLists;
    m_ui->M1->clear();
    for (std::size_t i = 0; i < m_form.MFaveList.size(); ++i) {
        QAction* const entry = m_ui->M1->addAction(entryText(m_form.MFaveList[i]));
        entry->setObjectName(QStringLiteral("MFaveList_%1").arg(i));
        onChosen(entry, [this, i] { MFaveList_Click(m_world, static_cast<std::int16_t>(i)); });
    }
    if (!m_ui->M1->isEmpty()) m_ui->M1->insertSeparator(m_ui->M1->actions().value(1));
}

}  // namespace vantrace
