#include "passes/ui/pass_prediction_window.h"

#include <QComboBox>
#include <QDate>
#include <QHeaderView>
#include <QPushButton>
#include <QTreeView>
#include <algorithm>
#include <utility>

#include "core/program_state.h"
#include "core/services.h"
#include "core/ui/row_model.h"
#include "core/ui/scrolled_contents.h"
#include "passes/jobs.h"
#include "passes/pass_prediction.h"
#include "passes/results.h"
#include "passes/sort_results.h"
#include "platform/file_error.h"
#include "ui_pass_prediction.h"

namespace vantrace {

namespace {

QStringList headings() {
    QStringList texts;
    for (const char* const heading : resultHeadings) texts << QString::fromLatin1(heading);
    return texts;
}

/// As wide as the texts of a column come.
constexpr std::array<const char*, resultColumns> widestTexts = {
    "A SATELLITE'S LONG NAME", "30 MAR", "00:00:00", "000", "00 (AZ 000)", "24 Hours", "000", "Yes", "Yes"};

constexpr int noNumberColumns = -1;

/// The calendar asks for less than its eight lines need under the skin.
int calendarHeight(const QWidget& calendar) {
    constexpr int lines = 9;
    constexpr int gap = 4;
    return lines * (QFontMetrics(calendar.font()).lineSpacing() + gap);
}

}  // namespace

PassPrediction::PassPrediction(WindowHost& host, ProgramState& state, Services& services)
    : FormWindow(host, "PassPrediction"),
      m_state(state),
      m_services(services),
      m_ui(std::make_unique<Ui::PassPrediction>()),
      m_rows(new RowModel(headings(), noNumberColumns, noNumberColumns, this)) {
    m_ui->setupUi(this);
    makeTransparent(*m_ui->centre);
    m_ui->Calendar->setMinimumHeight(calendarHeight(*m_ui->Calendar));
    m_groups = std::make_unique<DropDownControl>(*m_ui->Groupname);
    m_satellites = std::make_unique<DropDownControl>(*m_ui->SatelliteName);
    m_favourites = std::make_unique<DropDownControl>(*m_ui->FavouriteName);
    m_presets = std::make_unique<NameListControl>(*m_ui->ListPresets);
    m_ui->LISTpasses->setModel(m_rows);
    QSizePolicy keepsItsPlace = m_ui->PROsorting->sizePolicy();
    keepsItsPlace.setRetainSizeWhenHidden(true);
    m_ui->PROsorting->setSizePolicy(keepsItsPlace);
    connectChoices();
    connectResults();
    connectJobs();
    onClick(m_ui->BUTexit, [this] { BUTexit_Click(m_form, m_services); });
    connect(m_ui->BUTmin, &QPushButton::clicked, this, &QWidget::showMinimized);
}

PassPrediction::~PassPrediction() = default;

void PassPrediction::connectChoices() {
    onPick(m_ui->Groupname, [this] { Groupname_Click(m_form, m_state, m_services); });
    onPick(m_ui->SatelliteName, [this] { SatelliteName_Click(m_form); });
    const auto dateClick = [this] { handle([this] { Calendar_DateClick(m_form); }); };
    connect(m_ui->Calendar, &QCalendarWidget::clicked, this, dateClick);
    connect(m_ui->Calendar, &QCalendarWidget::activated, this, dateClick);
    connect(m_ui->Calendar, &QCalendarWidget::currentPageChanged, this, [this](int year, int month) {
        // The day that is marked on the new page is the one that counts.
        const int day = std::min(m_ui->Calendar->selectedDate().day(), QDate(year, month, 1).daysInMonth());
        m_ui->Calendar->setSelectedDate(QDate(year, month, day));
    });
    onClick(m_ui->BUTcalc, [this] { BUTcalc_Click(m_form, m_state, m_services); });
}

void PassPrediction::connectResults() {
    onClick(m_ui->BUTsortChron, [this] { BUTsortChron_Click(m_form, m_state, m_services); });
    onClick(m_ui->BUTclearResults, [this] { BUTclearResults_Click(m_form); });
    onClick(m_ui->BUTsaveresults, [this] { BUTsaveresults_Click(m_form, m_state, m_services); });
    onClick(m_ui->BUTprint, [this] { BUTprint_Click(m_form, m_state, m_services); });
}

void PassPrediction::connectJobs() {
    onClick(m_ui->PresetAdd, [this] { PresetAdd_Click(m_services); });
    onClick(m_ui->BUTeditjob, [this] { BUTeditjob_Click(m_form, m_state, m_services); });
    onClick(m_ui->PresetDelete, [this] { PresetDelete_Click(m_form, m_state, m_services); });
    onClick(m_ui->PresetGo, [this] { PresetGo_Click(m_form, m_state, m_services); });
}

void PassPrediction::addPreset(std::string_view name) {
    handle([&] { m_form.ListPresets.add(std::string(name)); });
}

WindowCorner PassPrediction::corner() const {
    return {frameGeometry().left(), frameGeometry().top()};
}

void PassPrediction::formLoad() {
    try {
        Form_Load(m_form, m_state, m_services);
    } catch (const FileError& failure) {
        // Predictions need no jobs; the window opens without them.
        m_services.dialogs.message(failure.what());
    }
}

/// Once, when the skin has set the sizes; from then on they are the user's.
void PassPrediction::fitContents() {
    setColumnWidths();
    growToContents(*this, *m_ui->centre);
}

void PassPrediction::formUnload() {
    Form_Unload(m_form, m_services);
}

/// Wide enough for headings and texts.
void PassPrediction::setColumnWidths() {
    constexpr int besideText = 14;
    const QFontMetrics letters(m_ui->LISTpasses->font());
    // The last one takes what is left.
    for (int column = 0; column < m_rows->columnCount() - 1; ++column) {
        const QString text = QString::fromLatin1(widestTexts.at(static_cast<std::size_t>(column)));
        m_ui->LISTpasses->header()->resizeSection(
            column, std::max(m_ui->LISTpasses->header()->sectionSizeHint(column),
                             letters.horizontalAdvance(text) + besideText));
    }
}

void PassPrediction::readControls() {
    m_groups->read(m_form.Groupname);
    m_satellites->read(m_form.SatelliteName);
    m_favourites->read(m_form.FavouriteName);
    m_presets->read(m_form.ListPresets);
    m_form.CHvisOnly = m_ui->CHvisOnly->isChecked();
    const QDate date = m_ui->Calendar->selectedDate();
    m_form.Calendar = {static_cast<std::int16_t>(date.day()), static_cast<std::int16_t>(date.month()),
                       static_cast<std::int16_t>(date.year())};
}

void PassPrediction::writeControls() {
    apply(m_form.skin);
    m_groups->write(m_form.Groupname);
    m_satellites->write(m_form.SatelliteName);
    m_favourites->write(m_form.FavouriteName);
    m_presets->write(m_form.ListPresets);
    m_ui->CHvisOnly->setChecked(m_form.CHvisOnly);
    const QDate date(m_form.Calendar.year, m_form.Calendar.month, m_form.Calendar.day);
    if (m_ui->Calendar->selectedDate() != date) m_ui->Calendar->setSelectedDate(date);
    writeResults();
    if (std::exchange(m_shownActivations, m_form.BUTcalcActivations) != m_form.BUTcalcActivations) {
        m_ui->BUTcalc->setDefault(true);
        m_ui->BUTcalc->setFocus();
    }
    if (!std::exchange(m_isFitted, true)) fitContents();
}

/// Those that can be seen stand out. A hidden list is written when it comes back.
void PassPrediction::writeResults() {
    const ResultList& list = m_form.LISTpasses;
    m_ui->resultsPlace->setCurrentWidget(list.isVisible ? static_cast<QWidget*>(m_ui->LISTpasses)
                                                        : m_ui->Label8);
    m_ui->PROsorting->setVisible(!list.isVisible);
    m_ui->PROsorting->setMaximum(std::max(1, static_cast<int>(m_form.PROsorting.maximum)));
    m_ui->PROsorting->setValue(static_cast<int>(m_form.PROsorting.value));
    if (!list.isVisible || m_shownResults == list.changes()) return;
    m_shownResults = list.changes();
    std::vector<RowModel::Row> rows;
    rows.reserve(list.size());
    for (const ResultRow& row : list.rows()) {
        const bool isVisible = row[ResultColumn::Visible] == yesText;
        rows.push_back({row.texts, isVisible ? m_form.skin.values.accent : m_form.skin.values.text});
    }
    m_rows->setRows(rows);
}

}  // namespace vantrace
