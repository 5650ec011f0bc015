// Paper.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/colour.h"

namespace vantrace {

/// Lines of fixed-pitch text, in parts of one colour each. Line ends are LF or CR LF.
struct PrintDocument {
    struct Part {
        Colour colour = 0;
        bool isBold = false;
        std::string text;

        friend bool operator==(const Part&, const Part&) = default;
    };

    /// By which the printer's own list of jobs tells it.
    std::string title;
    /// A face that the machine lacks is replaced by a similar one.
    std::string face;
    std::vector<Part> parts;
};

class Printer {
  public:
    virtual ~Printer() = default;

    /// Lets the user choose a printer in a dialog of that title, and sends the document there, its letters of
    /// a size at which no line is wrapped. False, and nothing is printed, where he cancels. Throws
    /// std::runtime_error where the printer doesn't take it.
    virtual bool print(std::string_view dialogTitle, const PrintDocument& document) = 0;
    /// Sends the document to the machine's default printer and asks nothing. Where the machine has none it is
    /// `print`, so that the user can still make a file of it; only then is there a dialog, and false.
    virtual bool printOnDefault(std::string_view dialogTitle, const PrintDocument& document) = 0;
};

/// For programs that don't print: as if the user had cancelled.
class NoPrinter final : public Printer {
  public:
    bool print(std::string_view, const PrintDocument&) override { return false; }
    bool printOnDefault(std::string_view, const PrintDocument&) override { return false; }
};

}  // namespace vantrace
