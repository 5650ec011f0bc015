// Message boxes, questions and file dialogs of Qt.
#pragma once

#include "platform/dialogs.h"

namespace vantrace {

/// Needs a QApplication. Each dialog stands over the active window.
class QtDialogs final : public Dialogs {
  public:
    void message(std::string_view text, std::string_view title = {}) override;
    bool question(std::string_view text, std::string_view title = {}) override;
    std::optional<std::string> textInput(std::string_view prompt, std::string_view title,
                                         std::string_view proposal) override;
    std::optional<std::filesystem::path> fileToOpen(const FileRequest& request) override;
    std::optional<std::filesystem::path> fileToSave(const FileRequest& request) override;
    std::optional<std::filesystem::path> folder(const FileRequest& request) override;
};

}  // namespace vantrace
