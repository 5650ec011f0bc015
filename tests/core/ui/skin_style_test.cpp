#include "core/ui/skin_style.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QIcon>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QStandardItemModel>
#include <QStatusBar>
#include <QTreeView>

#include "core/ui/row_model.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

constexpr double leastForText = 4.5;
constexpr double leastForControls = 3.0;

/// Contrast ratio and relative luminance as WCAG 2.1 defines them.
double luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(const QColor& a, const QColor& b) {
    const double brighter = std::max(luminance(a), luminance(b));
    const double darker = std::min(luminance(a), luminance(b));
    return (brighter + 0.05) / (darker + 0.05);
}

struct Rule {
    QString selectors;
    QString body;

    /// The colour of a property, which may stand within others ("1px solid #808080"); invalid when there is
    /// none.
    QColor colour(const QString& property) const {
        const QRegularExpression line("(?:^|\\n)\\s*" + property + ":[^;]*?(#[0-9a-f]{6})");
        return QColor(line.match(body).captured(1));
    }
    bool isTransparent() const { return body.contains("background-color: transparent"); }
};

std::vector<Rule> rulesOf(QString sheet) {
    sheet.remove(QRegularExpression("/\\*.*?\\*/", QRegularExpression::DotMatchesEverythingOption));
    std::vector<Rule> rules;
    static const QRegularExpression rule("([^{}]+)\\{([^{}]*)\\}");
    for (auto places = rule.globalMatch(sheet); places.hasNext();) {
        const auto place = places.next();
        rules.push_back({place.captured(1).simplified(), place.captured(2)});
    }
    return rules;
}

QColor colourOf(const std::vector<Rule>& rules, const QString& selector, const QString& property) {
    QColor found;
    for (const Rule& rule : rules) {
        if (rule.selectors.split(", ").contains(selector) && rule.colour(property).isValid()) {
            found = rule.colour(property);
        }
    }
    return found;
}

class SkinSheet : public ::testing::Test {
  protected:
    const std::vector<Rule> rules = rulesOf(skinStyleSheet({}));
    const std::vector<Rule> rowRules = rulesOf(colouredRowsStyleSheet({}));
    /// What things without a back of their own stand on.
    const std::vector<QColor> grounds{skinPalette({}).color(QPalette::Window),
                                      colourOf(rules, "QDialog", "background-color"),
                                      colourOf(rules, "QFrame[panel=\"true\"]", "background-color")};
};

TEST_F(SkinSheet, HasReadableTextInEveryRule) {
    ASSERT_GT(rules.size(), 80U);
    for (const std::vector<Rule>* const sheet : {&rules, &rowRules}) {
        for (const Rule& rule : *sheet) {
            const QColor text = rule.colour("color");
            if (!text.isValid()) continue;
            const QColor back = rule.colour("background-color");
            ASSERT_TRUE(back.isValid() || rule.isTransparent())
                << qPrintable(rule.selectors) << " has no back";
            for (const QColor& under : back.isValid() ? std::vector<QColor>{back} : grounds) {
                EXPECT_GE(contrast(text, under), leastForText) << qPrintable(rule.selectors);
            }
        }
    }
}

TEST_F(SkinSheet, HasReadableItemsOnEveryBackThatAListGivesThem) {
    const QColor text = colourOf(rules, "QAbstractItemView", "color");
    const QColor chosen = colourOf(rules, "QAbstractItemView", "selection-color");
    int count = 0;
    for (const Rule& rule : rules) {
        const QColor back = rule.colour("background-color");
        if (!rule.selectors.contains("QTreeView::item") || !back.isValid()) continue;
        const QColor front = rule.selectors.contains(":selected") ? chosen : text;
        EXPECT_GE(contrast(front, back), leastForText) << qPrintable(rule.selectors);
        ++count;
    }
    EXPECT_GE(count, 3) << "hovered, chosen, and chosen in a window without the focus";
}

TEST_F(SkinSheet, LeavesRowsOfEveryColourReadableInEveryState) {
    const std::vector<Colour> rowColours{0xFFFFFF, 0x0030FF, 0xDDDDDD};
    int backs = 0;
    for (const Rule& rule : rowRules) {
        if (rule.selectors.contains("QHeaderView")) continue;
        for (const char* const property :
             {"background-color", "alternate-background-color", "selection-background-color"}) {
            const QColor back = rule.colour(QString::fromLatin1(property));
            if (!back.isValid()) continue;
            ++backs;
            for (const Colour colour : rowColours) {
                EXPECT_GE(contrast(toQColor(colour), back), leastForText)
                    << std::hex << colour << " in " << qPrintable(rule.selectors) << " " << property;
            }
        }
    }
    EXPECT_GE(backs, 5) << "plain, alternate, chosen, hovered";
}

TEST_F(SkinSheet, ShowsTheFocusOnEverythingThatTakesIt) {
    for (const char* const name : {"QPushButton", "QToolButton", "QCheckBox", "QRadioButton", "QLineEdit",
                                   "QPlainTextEdit", "QTextEdit", "QAbstractSpinBox", "QComboBox",
                                   "QAbstractItemView", "QSlider", "QTabBar::tab", "QGroupBox"}) {
        const QString control = QString::fromLatin1(name);
        const QColor focused = colourOf(rules, control + ":focus", "border");
        ASSERT_TRUE(focused.isValid()) << name;
        EXPECT_NE(focused, colourOf(rules, control, "border")) << name;
        for (const QColor& under : grounds) EXPECT_GE(contrast(focused, under), leastForControls) << name;
    }
}

TEST_F(SkinSheet, DrawsControlsWithEnoughContrast) {
    for (const char* const name :
         {"QPushButton", "QToolButton", "QCheckBox::indicator", "QRadioButton::indicator", "QLineEdit",
          "QComboBox", "QAbstractSpinBox", "QAbstractItemView"}) {
        const QString control = QString::fromLatin1(name);
        const QColor border = colourOf(rules, control, "border");
        ASSERT_TRUE(border.isValid()) << name;
        EXPECT_GE(contrast(border, colourOf(rules, control, "background-color")), leastForControls) << name;
        for (const QColor& under : grounds) EXPECT_GE(contrast(border, under), leastForControls) << name;
    }
    for (const char* const part : {"QSlider::handle", "QSlider::groove:horizontal", "QScrollBar::handle"}) {
        const QColor fill = colourOf(rules, QString::fromLatin1(part), "background-color");
        for (const QColor& under : grounds) EXPECT_GE(contrast(fill, under), leastForControls) << part;
    }
}

TEST_F(SkinSheet, NamesOnlyPicturesThatAreThere) {
    static const QRegularExpression url("url\\(([^)]*)\\)");
    int count = 0;
    for (auto places = url.globalMatch(skinStyleSheet({})); places.hasNext(); ++count) {
        const QString picture = places.next().captured(1);
        EXPECT_FALSE(QIcon(picture).pixmap(16, 16).isNull()) << qPrintable(picture);
    }
    EXPECT_GT(count, 10);
}

/// With shades of red alone a colour from elsewhere would show green or blue.
TEST(Skin, IsDrawnFromItsOwnColoursAlone) {
    SkinValues reds;
    reds.highlight = 0xFF;
    reds.text = 0xDD;
    reds.accent = 0xC0;
    reds.strongText = 0xF0;
    reds.border = 0x80;
    reds.back = 0;
    const QString sheet = skinStyleSheet(reds) + colouredRowsStyleSheet(reds);
    EXPECT_FALSE(sheet.contains('@'));
    static const QRegularExpression colour("#[0-9a-fA-F]+");
    for (auto places = colour.globalMatch(sheet); places.hasNext();) {
        const QString name = places.next().captured();
        EXPECT_TRUE(name.endsWith("0000")) << qPrintable(name);
    }
    const QPalette palette = skinPalette(reds);
    for (int role = 0; role < QPalette::NColorRoles; ++role) {
        if (role == QPalette::NoRole) continue;
        const QColor found = palette.color(QPalette::Active, static_cast<QPalette::ColorRole>(role));
        EXPECT_EQ(found.green() + found.blue(), 0) << "role " << role;
    }
}

TEST(Skin, HasAReadablePalette) {
    const QPalette palette = skinPalette({});
    const std::vector<std::pair<QPalette::ColorRole, QPalette::ColorRole>> pairs{
        {QPalette::WindowText, QPalette::Window},
        {QPalette::Text, QPalette::Base},
        {QPalette::Text, QPalette::AlternateBase},
        {QPalette::ButtonText, QPalette::Button},
        {QPalette::HighlightedText, QPalette::Highlight},
        {QPalette::ToolTipText, QPalette::ToolTipBase},
        {QPalette::PlaceholderText, QPalette::Base},
        {QPalette::BrightText, QPalette::Window},
        {QPalette::Link, QPalette::Window},
        {QPalette::LinkVisited, QPalette::Window}};
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        for (const auto& [front, back] : pairs) {
            EXPECT_GE(contrast(palette.color(group, front), palette.color(group, back)), leastForText)
                << "group " << group << " roles " << front << " and " << back;
        }
    }
}

/// A window with a list that colours its rows: white, red, and red chosen.
struct ListWindow : QMainWindow {
    ListWindow() {
        setCentralWidget(&list);
        list.setProperty("rowsAreColoured", true);
        list.setModel(&model);
        for (const QColor& colour : {QColor(Qt::white), QColor(0xFF, 0x30, 0), QColor(0xFF, 0x30, 0)}) {
            auto* const item = new QStandardItem("HHHHHH");
            item->setForeground(colour);
            model.appendRow(item);
        }
        list.setCurrentIndex(model.index(2, 0));
        resize(300, 200);
    }
    QImage row(int number) {
        return list.viewport()->grab(list.visualRect(model.index(number, 0))).toImage();
    }

    QStandardItemModel model;
    QTreeView list;
};

int countOf(const QImage& picture, const std::function<bool(const QColor&)>& test) {
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) count += test(picture.pixelColor(x, y)) ? 1 : 0;
    }
    return count;
}

TEST(Skin, KeepsColouredRowsOnADarkBackInBothLooks) {
    const auto isRed = [](const QColor& colour) { return colour.red() > 150 && colour.green() < 80; };
    const auto isBright = [](const QColor& colour) { return colour.green() > 150; };
    for (const bool isApplied : {true, false}) {
        ListWindow window;
        Skin skin;
        skin.isApplied = isApplied;
        applySkinStyle(window, skin);
        window.show();
        EXPECT_LT(luminance(window.list.viewport()->grab().toImage().pixelColor(150, 120)), 0.01)
            << isApplied;
        EXPECT_GT(countOf(window.row(0), isBright), 20) << isApplied;
        EXPECT_GT(countOf(window.row(1), isRed), 20) << isApplied;
        EXPECT_GT(countOf(window.row(2), isRed), 20) << "chosen, " << isApplied;
        EXPECT_LT(countOf(window.row(1), isBright), 1) << isApplied;
    }
}

TEST(Skin, ComesAndGoesWithoutATrace) {
    const auto pictureAfter = [](const std::vector<bool>& looks, bool isShown) {
        QMainWindow window;
        window.menuBar()->addMenu("Menu");
        window.statusBar()->addWidget(new QPushButton("Button"));
        auto* const calendar = new QCalendarWidget;
        calendar->setSelectedDate({2024, 2, 14});
        window.setCentralWidget(calendar);
        window.resize(500, 400);
        window.setVisible(isShown);
        for (const bool isApplied : looks) {
            Skin skin;
            skin.isApplied = isApplied;
            applySkinStyle(window, skin);
            if (isShown) QApplication::processEvents();
        }
        EXPECT_EQ(window.palette() == QMainWindow().palette(), !looks.back());
        window.show();
        QApplication::processEvents();
        return window.grab().toImage();
    };
    for (const bool isShown : {false, true}) {
        EXPECT_EQ(pictureAfter({false}, false), pictureAfter({true, false}, isShown)) << isShown;
        EXPECT_EQ(pictureAfter({false}, false), pictureAfter({false, true, true, false}, isShown)) << isShown;
        EXPECT_EQ(pictureAfter({true}, false), pictureAfter({false, true}, isShown)) << isShown;
        EXPECT_EQ(pictureAfter({true}, false), pictureAfter({true, false, true}, isShown)) << isShown;
    }
    EXPECT_NE(pictureAfter({true}, false), pictureAfter({false}, false));
}

TEST(Skin, GivesMenusAndHeadingsTheFontOfTheWindow) {
    QMainWindow window;
    QMenu* const menu = window.menuBar()->addMenu("Menu");
    auto* const heading = new QLabel("Heading", &window);
    heading->setProperty("heading", true);
    QFont font = window.font();
    font.setPointSize(17);
    window.setFont(font);
    Skin skin;
    skin.isApplied = true;
    applySkinStyle(window, skin);
    EXPECT_EQ(menu->font().pointSize(), 17);
    EXPECT_EQ(window.menuBar()->font().pointSize(), 17);
    EXPECT_GT(heading->font().pointSize(), 17);
    EXPECT_EQ(heading->font().family(), font.family());
}

}  // namespace
}  // namespace vantrace
