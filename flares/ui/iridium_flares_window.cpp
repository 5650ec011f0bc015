#include "flares/ui/iridium_flares_window.h"

#include <QHeaderView>
#include <QPushButton>
#include <QScrollBar>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "core/program_state.h"
#include "core/services.h"
#include "core/ui/row_model.h"
#include "core/ui/svg_picture.h"
#include "flares/iridium_flares.h"
#include "ui_iridium_flares.h"

namespace vantrace {

namespace {

QStringList headings() {
    QStringList texts;
    for (const char* const heading : flareHeadings) texts << QString::fromLatin1(heading);
    return texts;
}

/// As wide as the texts of a column usually come.
constexpr std::array<const char*, flareColumns> widestTexts = {
    "30 MAR", "00:00:00", "-00.0", "-00", "000", "000.0 km", "-00.0", "Iridium 000 (tumbling)"};

/// Figures are set to the right.
constexpr int firstNumberColumn = static_cast<int>(FlareColumn::Intensity);
constexpr int lastNumberColumn = static_cast<int>(FlareColumn::MaxIntensity);

constexpr const char* noFlaresText =
    "The service tells of no flares that can be seen from your location in the coming seven days.";

/// A cell of a page may be of any length; a list that paints megabytes stands still.
std::string shownText(const std::string& text) {
    constexpr std::size_t longestShownBytes = 260;
    return text.substr(0, longestShownBytes);
}

}  // namespace

IridiumFlares::IridiumFlares(WindowHost& host, ProgramState& state, Services& services)
    : FormWindow(host, "IridiumFlares"),
      m_state(state),
      m_services(services),
      m_ui(std::make_unique<Ui::IridiumFlares>()),
      m_rows(new RowModel(headings(), firstNumberColumn, lastNumberColumn, this)) {
    setWindowFlags(Qt::Dialog);
    m_ui->setupUi(this);
    closeOnEscape();
    providePictures();
    m_ui->Picture1->setIcon(QIcon(QStringLiteral(":/art/orbisky.svg")));
    m_ui->LSTflares->setModel(m_rows);
    layHintOverList();
    m_ui->BUTgetFlares->setFocus();
    onClick(m_ui->BUTgetFlares, [this] { BUTgetFlares_Click(m_form, m_state, m_services); });
    onClick(m_ui->BUTsave, [this] { BUTsave_Click(m_form, m_state, m_services); });
    onClick(m_ui->BUTprint, [this] { BUTprint_Click(m_form, m_state, m_services); });
    onClick(m_ui->Picture1, [this] { Picture1_Click(m_state, m_services); });
    onClick(m_ui->closeButton, [this] { m_services.windows.unload("IridiumFlares"); });
}

IridiumFlares::~IridiumFlares() = default;

/// What is to be done stands where the rows will be.
void IridiumFlares::layHintOverList() {
    auto* const place = new QVBoxLayout(m_ui->LSTflares->viewport());
    m_whatToDo = m_ui->hint->text().toStdString();
    m_ui->hint->setAttribute(Qt::WA_TransparentForMouseEvents);
    place->addWidget(m_ui->hint);
}

void IridiumFlares::formLoad() {
    Form_Load(m_form, m_state, m_services);
}

void IridiumFlares::formUnload() {
    Form_Unload(m_form);
}

void IridiumFlares::writeControls() {
    apply(m_form.skin);
    writeRows();
    setText(*m_ui->Label1, m_form.Label1);
    setText(*m_ui->hint, m_form.isComplete ? noFlaresText : m_whatToDo);
    m_ui->hint->setVisible(m_form.LSTflares.empty() && !m_form.isRetrieving);
    if (!std::exchange(m_isFitted, true)) fitContents();
}

void IridiumFlares::writeRows() {
    std::vector<std::array<std::string, flareColumns>> texts;
    texts.reserve(m_form.LSTflares.size());
    for (const FlareRow& row : m_form.LSTflares) {
        std::ranges::transform(row.texts, texts.emplace_back().begin(), shownText);
    }
    std::vector<RowModel::Row> rows;
    rows.reserve(texts.size());
    for (const auto& row : texts) rows.push_back({row, std::nullopt});
    m_rows->setRows(rows);
}

/// Once, when the skin has set the sizes: wide enough for headings and texts, and the window for all columns.
void IridiumFlares::fitContents() {
    constexpr int besideText = 22;
    QTreeView& list = *m_ui->LSTflares;
    QHeaderView& header = *list.header();
    list.ensurePolished();
    header.ensurePolished();
    const QFontMetrics letters(list.font());
    int all = list.verticalScrollBar()->sizeHint().width() + 2 * list.frameWidth();
    for (int column = 0; column < m_rows->columnCount(); ++column) {
        const QString text = QString::fromLatin1(widestTexts.at(static_cast<std::size_t>(column)));
        const int width =
            std::max(header.sectionSizeHint(column), letters.horizontalAdvance(text) + besideText);
        header.resizeSection(column, width);
        all += width;
    }
    const QMargins margins = m_ui->column->contentsMargins();
    resize(std::max(width(), all + margins.left() + margins.right()), height());
}

}  // namespace vantrace
