#include "platform/qt/qt_printer.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <algorithm>
#include <stdexcept>

#include "platform/qt/window_below.h"

namespace vantrace {

namespace {

/// A stretch of one line.
struct Run {
    QColor colour;
    bool isBold = false;
    QString text;
};
using Line = std::vector<Run>;

QColor shownColour(Colour colour) {
    constexpr Colour byte = 0xFF;
    return {static_cast<int>(colour & byte), static_cast<int>((colour >> 8) & byte),
            static_cast<int>((colour >> 16) & byte)};
}

std::vector<Line> linesOf(const PrintDocument& document) {
    std::vector<Line> lines(1);
    for (const PrintDocument::Part& part : document.parts) {
        QString text = QString::fromStdString(part.text);
        text.remove(QLatin1Char('\r'));
        const QStringList pieces = text.split(QLatin1Char('\n'));
        for (qsizetype i = 0; i < pieces.size(); ++i) {
            if (i > 0) lines.emplace_back();
            if (!pieces[i].isEmpty())
                lines.back().push_back({shownColour(part.colour), part.isBold, pieces[i]});
        }
    }
    // What stands behind the last line's end is no line, and no page.
    if (lines.size() > 1 && lines.back().empty()) lines.pop_back();
    return lines;
}

QFont fixedFont(const std::string& face) {
    QFont font;
    font.setFamilies({QString::fromStdString(face), QStringLiteral("DejaVu Sans Mono")});
    font.setStyleHint(QFont::Monospace);
    font.setFixedPitch(true);
    font.setKerning(false);
    return font;
}

/// Draws run by run from the left; the answer is the width of it all.
class PageText {
  public:
    PageText(QPrinter& printer, const QFont& font) : m_printer(printer), m_font(font) {}

    double widthOf(const Line& line) const {
        double width = 0;
        for (const Run& run : line) width += metrics(run).horizontalAdvance(run.text);
        return width;
    }
    double lineHeight() const { return QFontMetricsF(m_font, &m_printer).lineSpacing(); }

    void draw(QPainter& painter, const Line& line, double top) const {
        double left = 0;
        for (const Run& run : line) {
            const QFontMetricsF measure = metrics(run);
            painter.setFont(fontOf(run));
            painter.setPen(run.colour);
            painter.drawText(QPointF(left, top + measure.ascent()), run.text);
            left += measure.horizontalAdvance(run.text);
        }
    }

  private:
    QFont fontOf(const Run& run) const {
        QFont font = m_font;
        font.setBold(run.isBold);
        return font;
    }
    QFontMetricsF metrics(const Run& run) const { return {fontOf(run), &m_printer}; }

    QPrinter& m_printer;
    QFont m_font;
};

/// Ten points, or less where the widest line asks for it.
QFont fittingFont(QPrinter& printer, const std::string& face, const std::vector<Line>& lines,
                  double pageWidth) {
    constexpr double usualPoints = 10;
    // What rounding may add.
    constexpr double reserve = 0.995;
    QFont font = fixedFont(face);
    font.setPointSizeF(usualPoints);
    const PageText text(printer, font);
    double widest = 0;
    for (const Line& line : lines) widest = std::max(widest, text.widthOf(line));
    if (widest > pageWidth) font.setPointSizeF(usualPoints * reserve * pageWidth / widest);
    return font;
}

/// Margins of 15 mm, or more where the user wants or the printer needs them.
void keepFromEdges(QPrinter& printer) {
    constexpr double least = 15;
    const QMarginsF chosen = printer.pageLayout().margins(QPageLayout::Millimeter);
    printer.setPageMargins({std::max(least, chosen.left()), std::max(least, chosen.top()),
                            std::max(least, chosen.right()), std::max(least, chosen.bottom())},
                           QPageLayout::Millimeter);
}

}  // namespace

void printPages(QPrinter& printer, const PrintDocument& document) {
    printer.setDocName(QString::fromStdString(document.title));
    keepFromEdges(printer);
    const std::vector<Line> lines = linesOf(document);
    QPainter painter;
    if (!painter.begin(&printer)) throw std::runtime_error("the printer doesn't take the document");
    // The painter's origin is the corner of what can be printed.
    const QRectF page = printer.pageLayout().paintRectPixels(printer.resolution());
    const PageText text(printer, fittingFont(printer, document.face, lines, page.width()));
    const double height = text.lineHeight();
    double top = 0;
    for (const Line& line : lines) {
        if (top + height > page.height() && top > 0) {
            if (!printer.newPage()) throw std::runtime_error("the printer takes no further page");
            top = 0;
        }
        text.draw(painter, line, top);
        top += height;
    }
    if (!painter.end() || printer.printerState() == QPrinter::Error) {
        throw std::runtime_error("the printer failed");
    }
}

bool QtPrinter::print(std::string_view dialogTitle, const PrintDocument& document) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(QString::fromStdString(document.title));
    const QPointer<QPrintDialog> dialog = new QPrintDialog(&printer, windowBelow());
    dialog->setWindowTitle(QString::fromUtf8(dialogTitle.data(), static_cast<qsizetype>(dialogTitle.size())));
    dialog->setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize);
    // The window below may go while the dialog waits, and take it along.
    const bool isAccepted = dialog->exec() == QDialog::Accepted && !dialog.isNull();
    delete dialog.data();
    if (isAccepted) printPages(printer, document);
    return isAccepted;
}

bool QtPrinter::printOnDefault(std::string_view dialogTitle, const PrintDocument& document) {
    const QPrinterInfo standard = QPrinterInfo::defaultPrinter();
    if (standard.isNull()) return print(dialogTitle, document);
    QPrinter printer(standard, QPrinter::HighResolution);
    printPages(printer, document);
    return true;
}

}  // namespace vantrace
