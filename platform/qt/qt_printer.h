// The printers of the desktop.
#pragma once

#include "platform/printer.h"

class QPrinter;

namespace vantrace {

/// Needs a QApplication. The dialog stands over the active window; it can print to a PDF file, too.
class QtPrinter final : public Printer {
  public:
    bool print(std::string_view dialogTitle, const PrintDocument& document) override;
    bool printOnDefault(std::string_view dialogTitle, const PrintDocument& document) override;
};

/// Puts the document on the pages of a printer that was chosen before. Throws std::runtime_error where the
/// printer doesn't take it.
void printPages(QPrinter& printer, const PrintDocument& document);

}  // namespace vantrace
