// A printer without paper.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/printer.h"

namespace vantrace {

class FakePrinter final : public Printer {
  public:
    bool print(std::string_view dialogTitle, const PrintDocument& document) override {
        titles.emplace_back(dialogTitle);
        if (!failure.empty()) throw std::runtime_error(failure);
        if (!isCancelled) documents.push_back(document);
        return !isCancelled;
    }

    bool printOnDefault(std::string_view dialogTitle, const PrintDocument& document) override {
        if (!hasDefault) return print(dialogTitle, document);
        if (!failure.empty()) throw std::runtime_error(failure);
        documents.push_back(document);
        return true;
    }

    /// Of the dialogs.
    std::vector<std::string> titles;
    std::vector<PrintDocument> documents;
    bool isCancelled = false;
    bool hasDefault = true;
    /// Why the printer takes nothing.
    std::string failure;
};

}  // namespace vantrace
