#include "core/ui/skin_style.h"

#include <QAbstractItemView>
#include <QCalendarWidget>
#include <QFile>
#include <QHash>
#include <QIcon>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QStyledItemDelegate>
#include <QTextCharFormat>
#include <QToolButton>
#include <typeinfo>

#include "core/ui/row_model.h"
#include "core/ui/svg_picture.h"

namespace vantrace {

namespace {

QColor mixed(const QColor& from, const QColor& to, double share) {
    const auto part = [share](int a, int b) { return qRound(a + (b - a) * share); };
    return {part(from.red(), to.red()), part(from.green(), to.green()), part(from.blue(), to.blue())};
}

/// The skin's colours and the mixes of them that the look is drawn with, by the names that the sheets use.
QHash<QString, QColor> skinColours(const SkinValues& values) {
    const QColor back = toQColor(values.back);
    const QColor border = toQColor(values.border);
    const QColor text = toQColor(values.text);
    const QColor accent = toQColor(values.accent);
    const auto grey = [&](double share) { return mixed(back, border, share); };
    return {
        {"highlight", toQColor(values.highlight)},
        {"text", text},
        {"accent", accent},
        {"strongText", toQColor(values.strongText)},
        {"border", border},
        {"back", back},
        {"field", grey(0.10)},
        {"panel", grey(0.16)},
        {"button", grey(0.26)},
        {"line", grey(0.44)},
        {"raised", grey(0.42)},
        {"handle", mixed(border, text, 0.3)},
        {"quietText", mixed(border, text, 0.4)},
        {"accentPressed", mixed(back, accent, 0.72)},
        {"accentDark", mixed(back, accent, 0.34)},
        {"accentDeep", mixed(back, accent, 0.20)},
        // Red rows are read on these too, which keeps them darker than other backs.
        {"rowAlternate", grey(0.10)},
        {"rowHover", grey(0.20)},
        {"rowChosen", mixed(back, accent, 0.12)},
    };
}

/// A sheet from the resources with its `@name` turned into colours.
QString colouredSheet(const QString& resource, const SkinValues& values) {
    providePictures();
    QFile file(resource);
    const bool isThere = file.open(QIODevice::ReadOnly);
    Q_ASSERT(isThere);
    Q_UNUSED(isThere);
    const QString sheet = QString::fromUtf8(file.readAll());
    const QHash<QString, QColor> colours = skinColours(values);
    static const QRegularExpression name(QStringLiteral("@([A-Za-z]+)"));
    QString filled;
    qsizetype done = 0;
    for (auto places = name.globalMatch(sheet); places.hasNext();) {
        const QRegularExpressionMatch place = places.next();
        filled += QStringView(sheet).mid(done, place.capturedStart() - done);
        Q_ASSERT_X(colours.contains(place.captured(1)), "skin", qPrintable(place.captured(1)));
        filled += colours.value(place.captured(1)).name();
        done = place.capturedEnd();
    }
    filled += QStringView(sheet).mid(done);
    return filled;
}

/// Lets a row that is chosen keep the colour that the program gave it, because the colour tells something.
class RowColourDelegate final : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->palette.setBrush(QPalette::HighlightedText, option->palette.brush(QPalette::Text));
    }
};

void keepRowColours(QWidget& window) {
    for (QAbstractItemView* const view : window.findChildren<QAbstractItemView*>()) {
        if (!view->property("rowsAreColoured").toBool()) continue;
        // A delegate of the window's own stays.
        const QAbstractItemDelegate* const present = view->itemDelegate();
        if (present != nullptr && typeid(*present) != typeid(QStyledItemDelegate)) continue;
        view->setItemDelegate(new RowColourDelegate(view));
    }
}

void showPictures(QWidget& window) {
    for (QLabel* const label : window.findChildren<QLabel*>()) {
        const QString picture = label->property("picture").toString();
        if (!picture.isEmpty()) showPicture(*label, picture);
    }
}

void enlargeHeadings(QWidget& window) {
    constexpr double headingSize = 1.7;
    for (QLabel* const label : window.findChildren<QLabel*>()) {
        if (!label->property("heading").toBool()) continue;
        QFont font = window.font();
        if (font.pixelSize() > 0) {
            font.setPixelSize(qRound(font.pixelSize() * headingSize));
        } else {
            font.setPointSizeF(font.pointSizeF() * headingSize);
        }
        font.setBold(true);
        label->setFont(font);
    }
}

/// Menus are windows of their own and take no font from the window by themselves.
void setMenuFonts(QWidget& window, const QFont& font) {
    for (QMenuBar* const bar : window.findChildren<QMenuBar*>()) bar->setFont(font);
    for (QMenu* const menu : window.findChildren<QMenu*>()) menu->setFont(font);
}

/// The arrows of a calendar's months, and its own ones back again without the skin.
void setMonthArrow(QCalendarWidget& calendar, const char* button, const char* picture, bool isApplied) {
    constexpr const char* kept = "iconWithoutSkin";
    auto* const arrow = calendar.findChild<QToolButton*>(QString::fromLatin1(button));
    if (arrow == nullptr) return;
    if (isApplied && !arrow->property(kept).isValid()) arrow->setProperty(kept, arrow->icon());
    if (!arrow->property(kept).isValid()) return;
    arrow->setIcon(isApplied ? QIcon(QString::fromLatin1(picture)) : arrow->property(kept).value<QIcon>());
}

/// Calendars colour the weekend and draw their arrows themselves, out of a style sheet's reach.
void dressCalendars(QWidget& window, const Skin& skin) {
    // Without the skin red, as a calendar has it from the start.
    const QColor weekend = skin.isApplied ? toQColor(skin.values.strongText) : QColor(Qt::red);
    for (QCalendarWidget* const calendar : window.findChildren<QCalendarWidget*>()) {
        for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday}) {
            QTextCharFormat format = calendar->weekdayTextFormat(day);
            format.setForeground(weekend);
            calendar->setWeekdayTextFormat(day, format);
        }
        setMonthArrow(*calendar, "qt_calendar_prevmonth", ":/art/left.svg", skin.isApplied);
        setMonthArrow(*calendar, "qt_calendar_nextmonth", ":/art/right.svg", skin.isApplied);
    }
}

void setGroup(QPalette& palette, QPalette::ColorGroup group, const QHash<QString, QColor>& colours,
              const QString& text) {
    const auto set = [&](QPalette::ColorRole role, const char* name) {
        palette.setColor(group, role, colours[QString::fromLatin1(name)]);
    };
    const QColor front = colours[text];
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(group, role, front);
    }
    set(QPalette::BrightText, "strongText");
    set(QPalette::PlaceholderText, "quietText");
    set(QPalette::Window, "back");
    set(QPalette::Base, "field");
    set(QPalette::AlternateBase, "panel");
    set(QPalette::ToolTipBase, "panel");
    set(QPalette::Button, group == QPalette::Disabled ? "field" : "button");
    set(QPalette::Highlight, group == QPalette::Active ? "accent" : "accentDark");
    set(QPalette::HighlightedText, group == QPalette::Active ? "back" : "strongText");
    set(QPalette::Link, "accent");
    set(QPalette::LinkVisited, "quietText");
    set(QPalette::Light, "border");
    set(QPalette::Midlight, "raised");
    set(QPalette::Mid, "line");
    set(QPalette::Dark, "panel");
    set(QPalette::Shadow, "back");
}

}  // namespace

void applySkinStyle(QWidget& window, const Skin& skin) {
    providePictures();
    // A sheet remembers the palettes that it found and brings them back when it goes: none may be there while
    // the palette changes.
    window.setStyleSheet(QString());
    if (skin.isApplied) {
        window.setPalette(skinPalette(skin.values));
        window.setStyleSheet(skinStyleSheet(skin.values) + colouredRowsStyleSheet(skin.values));
        setMenuFonts(window, window.font());
    } else {
        window.setPalette(QPalette());
        window.setStyleSheet(colouredRowsStyleSheet(skin.values));
        setMenuFonts(window, QFont());
    }
    dressCalendars(window, skin);
    keepRowColours(window);
    enlargeHeadings(window);
    showPictures(window);
}

QPalette skinPalette(const SkinValues& values) {
    const QHash<QString, QColor> colours = skinColours(values);
    QPalette palette;
    setGroup(palette, QPalette::Active, colours, QStringLiteral("text"));
    setGroup(palette, QPalette::Inactive, colours, QStringLiteral("text"));
    setGroup(palette, QPalette::Disabled, colours, QStringLiteral("border"));
    return palette;
}

QString skinStyleSheet(const SkinValues& values) {
    QString sheet;
    for (const char* const resource :
         {":/art/skin_windows.qss", ":/art/skin_controls.qss", ":/art/skin_lists.qss"}) {
        sheet += colouredSheet(QString::fromLatin1(resource), values);
    }
    return sheet;
}

QString colouredRowsStyleSheet(const SkinValues& values) {
    return colouredSheet(QStringLiteral(":/art/coloured_rows.qss"), values);
}

}  // namespace vantrace
