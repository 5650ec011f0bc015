// The desktop, by Qt and the freedesktop tools.
#pragma once

#include "platform/desktop.h"

namespace vantrace {

/// Needs a QGuiApplication.
class QtDesktop final : public Desktop {
  public:
    void openAddress(std::string_view address) override;
    void openTextFile(const std::filesystem::path& file) override;
    void startProgram(const std::filesystem::path& program) override;
    bool hasSystemInformation() const override;
    void startSystemInformation() override;
    void startTimeSettings() override;
};

}  // namespace vantrace
