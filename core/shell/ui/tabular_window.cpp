#include "core/shell/ui/tabular_window.h"

#include <QHeaderView>
#include <QPushButton>
#include <QTreeView>
#include <utility>

#include "core/program_state.h"
#include "core/services.h"
#include "core/ui/row_model.h"
#include "ui_tabular.h"

namespace vantrace {

namespace {

constexpr int firstNumberColumn = 1;
constexpr int lastNumberColumn = 6;

QStringList headings() {
    QStringList texts;
    for (const char* const heading : tableHeadings) texts << QString::fromLatin1(heading);
    return texts;
}

}  // namespace

Tabular::Tabular(WindowHost& host, ProgramState& state, Services& services)
    : FormWindow(host, "Tabular"),
      m_state(state),
      m_services(services),
      m_ui(std::make_unique<Ui::Tabular>()),
      m_rows(new RowModel(headings(), firstNumberColumn, lastNumberColumn, this)),
      m_timer1(addTimer(QStringLiteral("Timer1"), [this] { MainLoop(m_form, m_state, m_services); })) {
    m_ui->setupUi(this);
    m_ui->TabList->setModel(m_rows);
    onClick(m_ui->BUTexit, [this] { BUTexit_Click(m_form, m_services); });
    connect(m_ui->BUTmin, &QPushButton::clicked, this, &QWidget::showMinimized);
}

Tabular::~Tabular() = default;

void Tabular::formLoad() {
    Form_Load(m_form, m_state, m_services);
}

void Tabular::formUnload() {
    Form_Unload(m_form, m_services);
}

/// Wide enough for headings and names; from then on the user's.
void Tabular::showEvent(QShowEvent* event) {
    FormWindow::showEvent(event);
    if (std::exchange(m_hasColumnWidths, true)) return;
    // The last one takes what is left.
    for (int column = 0; column < m_rows->columnCount() - 1; ++column) {
        m_ui->TabList->resizeColumnToContents(column);
    }
}

void Tabular::writeControls() {
    apply(m_form.skin);
    writeRows();
    setLongText(*m_ui->Slocation, m_form.Slocation);
    setText(*m_ui->Slat, m_form.Slat);
    setText(*m_ui->Slong, m_form.Slong);
    setText(*m_ui->Sheight, m_form.Sheight);
    setText(*m_ui->Slocaltime, m_form.Slocaltime);
    setText(*m_ui->Sgmt, m_form.Sgmt);
    setText(*m_ui->Sstatus, m_form.Sstatus);
    apply(*m_timer1, m_form.Timer1);
}

void Tabular::writeRows() {
    std::vector<RowModel::Row> rows;
    rows.reserve(m_form.TabList.size());
    for (const TableRow& row : m_form.TabList) rows.push_back({row.columns, row.colour});
    m_rows->setRows(rows);
}

}  // namespace vantrace
